#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace folimark {

/// A text that is looked for in many others, just as InStr would look for it, but without folding it each
/// time, and most of the others not at all.
class Phrase {
  public:
    explicit Phrase(std::string_view text);

    /// Does it stand anywhere in the text? False if it is empty.
    bool IsIn(std::string_view text) const;

  private:
    std::size_t EndIn(std::string_view text) const;

    std::string folded_;
    std::size_t rarest_ = 0; // the index in folded_ of the byte that is looked for first
};

} // namespace folimark
