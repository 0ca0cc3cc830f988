#include "Text.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

/// The character at `byte`, its letter case taken out, with `byte` moved behind it. A byte that is no UTF-8
/// counts as a character of its own, below 0.
UChar32 NextFolded(std::string_view text, std::size_t& byte) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::size_t start = byte;
    UChar32 character = 0;
    U8_NEXT(bytes, byte, text.size(), character);
    if (character < 0) {
        byte = start + 1;
        return -1 - bytes[start];
    }
    return u_foldCase(character, U_FOLD_CASE_DEFAULT);
}

} // namespace

bool EqualText(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        if (NextFolded(left, i) != NextFolded(right, j)) {
            return false;
        }
    }
    return i == left.size() && j == right.size();
}

} // namespace folimark
