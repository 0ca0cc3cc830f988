#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct UCollator;

namespace folimark {

/// The root collation of Unicode, by which texts are ordered, that puts letters before accents before case.
const UCollator* RootCollator();
/// The same, but for letters alone.
const UCollator* LettersCollator();

/// Makes sort keys, in memory that it uses again for each.
class KeyMaker {
  public:
    explicit KeyMaker(const UCollator* collator) : collator_(collator) {}

    /// The key without its final NUL. It holds until the next one is made.
    std::string_view Key(std::string_view text);

  private:
    const UCollator* collator_;
    std::u16string wide_;
    std::string key_ = std::string(256, '\0');
};

/// Makes sort keys of texts by their letters, which are those of LettersCollator to the byte, and keeps them.
/// For letters of Latin scripts, and for the signs that are common in names, they are put together from a
/// table, which takes a fraction of the time.
class LetterKeys {
  public:
    /// The key, filled up with one NUL at least, which no key holds, to whole words of eight bytes. It lives
    /// as long as this object.
    const char* Add(std::string_view text);

    /// Eight bytes of a key as a number that is ordered as they are.
    static std::uint64_t WordAt(const char* key);

  private:
    KeyMaker maker_{LettersCollator()};
    std::string key_; // memory that is used again for each
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t used_ = 0; // of the last block
    std::size_t room_ = 0; // in the last block
};

} // namespace folimark
