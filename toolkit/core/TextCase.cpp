#include "Text.h"

#include "Exceptions.h"

#include <memory>
#include <unicode/ucasemap.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char LowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

void Check(UErrorCode error) {
    if (U_FAILURE(error)) {
        throw RuntimeException(std::string("Letter case can't be taken out: ") + u_errorName(error) + ".");
    }
}

using Map = std::unique_ptr<UCaseMap, decltype(&ucasemap_close)>;

Map OpenCaseMap() {
    UErrorCode error = U_ZERO_ERROR;
    Map map(ucasemap_open("", 0, &error), &ucasemap_close);
    Check(error);
    return map;
}

const UCaseMap* CaseMap() {
    static const Map map = OpenCaseMap();
    return map.get();
}

/// Folds any text and adds it to `result`.
void AppendFolded(std::string& result, std::string_view text) {
    const std::size_t start = result.size();
    std::size_t room = text.size() + 8; // enough for nearly every text, since few characters grow
    for (int attempt = 0; attempt < 2; ++attempt) {
        result.resize(start + room);
        UErrorCode error = U_ZERO_ERROR;
        const std::int32_t length =
            ucasemap_utf8FoldCase(CaseMap(), result.data() + start, static_cast<std::int32_t>(room),
                                  text.data(), static_cast<std::int32_t>(text.size()), &error);
        room = static_cast<std::size_t>(length);
        if (error != U_BUFFER_OVERFLOW_ERROR) {
            Check(error);
            break;
        }
    }
    result.resize(start + room);
}

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

std::string FoldCase(std::string_view text) {
    std::string result(text);
    // Plain loops, which the compiler turns into wide instructions: most texts are ASCII alone.
    unsigned char allBits = 0;
    for (const char byte : text) {
        allBits |= static_cast<unsigned char>(byte);
    }
    if (IsAscii(static_cast<char>(allBits))) {
        for (char& byte : result) {
            byte = LowerAscii(byte);
        }
        return result;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsAscii(text[i])) {
            result.resize(i);
            AppendFolded(result, text.substr(i));
            break;
        }
        result[i] = LowerAscii(text[i]);
    }
    return result;
}

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

bool StartsWithFolded(std::string_view text, std::string_view folded) {
    for (std::size_t i = 0; i < folded.size(); ++i) {
        if (i == text.size()) {
            return false;
        }
        if (!IsAscii(text[i])) {
            return FoldCase(text.substr(i)).starts_with(folded.substr(i));
        }
        if (LowerAscii(text[i]) != folded[i]) {
            return false;
        }
    }
    return true;
}

} // namespace folimark
