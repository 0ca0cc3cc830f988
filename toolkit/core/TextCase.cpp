#include "Text.h"

#include <memory>
#include <unicode/ucasemap.h>

namespace folimark {
namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char LowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

const UCaseMap* CaseMap() {
    UErrorCode error = U_ZERO_ERROR;
    static const std::unique_ptr<UCaseMap, decltype(&ucasemap_close)> map(ucasemap_open("", 0, &error),
                                                                          &ucasemap_close);
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
            break;
        }
    }
    result.resize(start + room);
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
    if (left == right) {
        return true;
    }
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
        if (!IsAscii(left[i]) || !IsAscii(right[i])) {
            return FoldCase(left.substr(i)) == FoldCase(right.substr(i));
        }
        if (LowerAscii(left[i]) != LowerAscii(right[i])) {
            return false;
        }
    }
    return left.size() == right.size();
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
