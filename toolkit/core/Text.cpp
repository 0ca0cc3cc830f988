#include "Text.h"

#include <cmath>

namespace folimark {
namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
}

/// The byte at which the character behind the one at `byte` starts.
std::size_t NextCharacter(std::string_view text, std::size_t byte) {
    do {
        ++byte;
    } while (byte < text.size() && !StartsCharacter(text[byte]));
    return byte;
}

/// The byte at which a character starts; the text's end if it has fewer characters.
std::size_t ByteOfPosition(std::string_view text, std::int64_t position) {
    std::size_t byte = 0;
    for (; position > 1 && byte < text.size(); --position) {
        byte = NextCharacter(text, byte);
    }
    return byte;
}

/// The byte of `text` at which the character starts whose folded form holds the byte `foldedByte` of the
/// folded text: folding may change a character's length, and join it with those behind it.
std::size_t ByteBeforeFolding(std::string_view text, std::size_t foldedByte) {
    std::size_t byte = 0;
    std::size_t folded = 0;
    while (byte < text.size()) {
        const std::size_t next = NextFoldedUnit(text, byte);
        folded += FoldForSearch(text.substr(byte, next - byte)).size();
        if (folded > foldedByte) {
            break;
        }
        byte = next;
    }
    return byte;
}

} // namespace

std::int64_t Len(std::string_view text) {
    std::int64_t count = 0;
    for (const char byte : text) {
        count += StartsCharacter(byte) ? 1 : 0;
    }
    return count;
}

std::int64_t InStr(std::string_view text, std::string_view wanted, std::int64_t start) {
    const std::size_t skipped = ByteOfPosition(text, start);
    const std::string_view searched = text.substr(skipped);
    const std::string::size_type found = FoldForSearch(searched).find(FoldForSearch(wanted));
    if (wanted.empty() || found == std::string::npos) {
        return 0;
    }
    return Len(text.substr(0, skipped + ByteBeforeFolding(searched, found))) + 1;
}

std::int64_t CountFields(std::string_view text, std::string_view separator) {
    std::int64_t count = 1;
    if (!separator.empty()) {
        for (std::size_t at = 0; (at = text.find(separator, at)) != std::string_view::npos;
             at += separator.size()) {
            ++count;
        }
    }
    return count;
}

std::string NthField(std::string_view text, std::string_view separator, std::int64_t number) {
    for (std::size_t first = 0; number > 0; --number) {
        const std::size_t end = separator.empty() ? std::string_view::npos : text.find(separator, first);
        if (number == 1) {
            return std::string(text.substr(first, end == std::string_view::npos ? end : end - first));
        }
        if (end == std::string_view::npos) {
            break;
        }
        first = end + separator.size();
    }
    return "";
}

std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement) {
    std::string result;
    result.reserve(text.size() + 2 * replacement.size()); // enough for most
    std::size_t first = 0;
    while (!wanted.empty()) {
        const std::size_t found = text.find(wanted, first);
        if (found == std::string_view::npos) {
            break;
        }
        result.append(text, first, found - first).append(replacement);
        first = found + wanted.size();
    }
    return result.append(text, first);
}

std::string Right(std::string_view text, std::int64_t count) {
    std::size_t byte = text.size();
    while (count > 0 && byte > 0) {
        --byte;
        count -= StartsCharacter(text[byte]) ? 1 : 0;
    }
    return std::string(text.substr(count > 0 ? 0 : byte));
}

std::string Join(const std::vector<std::string>& elements, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        joined.append(i == 0 ? "" : separator).append(elements[i]);
    }
    return joined;
}

double Floor(double value) {
    return std::floor(value);
}

} // namespace folimark
