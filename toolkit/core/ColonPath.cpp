#include "ColonPath.h"

#include <algorithm>
#include <cstdint>
#include <unicode/utf8.h>

namespace folimark {
namespace {

constexpr std::int32_t kFirstEscape = 0xEF00;
constexpr std::int32_t kLastEscape = 0xEFFF;

// In UTF-8 the escapes are three bytes: 0xEE, 0xBC to 0xBF with the byte's two highest bits, a continuation
// byte with the other six.
constexpr unsigned kEscapeLead = 0xEE;
constexpr unsigned kEscapeSecond = 0xBC;
constexpr std::size_t kEscapeSize = 3;

void AppendEscape(std::string& field, unsigned char byte) {
    field += static_cast<char>(kEscapeLead);
    field += static_cast<char>(kEscapeSecond + (byte >> 6U));
    field += static_cast<char>(0x80U | (byte & 0x3FU));
}

bool IsEscape(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    return text.size() >= kEscapeSize && byte(0) == kEscapeLead && byte(1) >= kEscapeSecond && byte(1) <= 0xBF
           && byte(2) >= 0x80 && byte(2) <= 0xBF;
}

char EscapedByte(std::string_view escape) {
    const unsigned high = static_cast<unsigned char>(escape[1]) - kEscapeSecond;
    return static_cast<char>(high << 6U | (static_cast<unsigned char>(escape[2]) & 0x3FU));
}

/// `character` is negative for bytes that are no UTF-8.
bool NeedsEscape(std::int32_t character) {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F)
           || (character >= kFirstEscape && character <= kLastEscape);
}

/// True of the bytes that most names consist of.
bool StandsForItself(char byte) {
    return byte >= ' ' && byte <= '~' && byte != ':';
}

} // namespace

std::string FieldOfName(std::string_view name) {
    if (std::ranges::all_of(name, StandsForItself)) {
        return std::string(name);
    }
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(name.data());
    std::string field;
    field.reserve(name.size() + 1);
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        std::int32_t character = 0;
        U8_NEXT(bytes, i, name.size(), character);
        if (character == ':') {
            field += '/';
        } else if (!NeedsEscape(character)) {
            field.append(name, start, i - start);
        } else {
            for (const char byte : name.substr(start, i - start)) {
                AppendEscape(field, static_cast<unsigned char>(byte));
            }
        }
    }
    return field;
}

std::optional<std::string> NameOfField(std::string_view field) {
    std::string name;
    name.reserve(field.size());
    for (std::size_t i = 0; i < field.size();) {
        if (IsEscape(field.substr(i))) {
            const char byte = EscapedByte(field.substr(i));
            if (byte == '/') {
                return std::nullopt;
            }
            name += byte;
            i += kEscapeSize;
        } else if (field[i] == ':') {
            return std::nullopt;
        } else {
            name += field[i] == '/' ? ':' : field[i];
            ++i;
        }
    }
    if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return name;
}

std::string ReadableNames(std::string fields) {
    std::ranges::replace(fields, '/', ':'); // No name holds a "/" of its own.
    return fields;
}

std::string ColonPathOfFolder(std::string_view nativePath) {
    std::string path(kVolumeName);
    path += ':';
    for (std::size_t start = 1; start < nativePath.size();) {
        const std::size_t end = std::min(nativePath.find('/', start), nativePath.size());
        path.append(FieldOfName(nativePath.substr(start, end - start))) += ':';
        start = end + 1;
    }
    return path;
}

std::optional<std::string> NativePathOf(std::string_view colonPath) {
    if (colonPath.ends_with(':')) {
        colonPath.remove_suffix(1);
    }
    std::size_t end = std::min(colonPath.find(':'), colonPath.size());
    if (colonPath.substr(0, end) != kVolumeName) {
        return std::nullopt;
    }
    std::string native;
    while (end < colonPath.size()) {
        const std::size_t start = end + 1;
        end = std::min(colonPath.find(':', start), colonPath.size());
        const std::optional<std::string> name = NameOfField(colonPath.substr(start, end - start));
        if (!name) {
            return std::nullopt;
        }
        native.append("/").append(*name);
    }
    return native;
}

} // namespace folimark
