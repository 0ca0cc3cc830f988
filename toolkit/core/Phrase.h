#pragma once

#include <string>
#include <string_view>

namespace folimark {

/// A text that is looked for in many others, just as InStr would look for it, but without folding it each
/// time, and most of the others not at all.
class Phrase {
  public:
    explicit Phrase(std::string_view text);

    /// Does it stand anywhere in the text? False if it is empty.
    bool IsIn(std::string_view text);

  private:
    bool IsInLowered(std::string_view text) const;

    std::string folded_;
    std::size_t rarest_ = 0; // the place in folded_ of the byte that is looked for first
    std::string lowered_;    // memory that is used again for each text
};

} // namespace folimark
