#include "Exceptions.h"
#include "Text.h"

#include <bitset>
#include <cstring>
#include <memory>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

constexpr UChar32 kBasicPlane = 0x10000;
/// Turkish letters with and without a dot, which are the same to a search.
constexpr std::string_view kDotlessI = "\u0131";
constexpr std::string_view kDottedI = "i\u0307";

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

void Check(UErrorCode error) {
    if (U_FAILURE(error)) {
        throw RuntimeException(std::string("Text can't be folded: ") + u_errorName(error) + ".");
    }
}

const icu::Normalizer2& Folding() {
    UErrorCode error = U_ZERO_ERROR;
    static const icu::Normalizer2* const folding = icu::Normalizer2::getNFKCCasefoldInstance(error);
    Check(error);
    return *folding;
}

/// The characters of the basic plane that folding leaves alone, whatever stands around them. Making it takes
/// milliseconds, which plain names, and a start, do without.
const std::bitset<kBasicPlane>& Inert() {
    static const std::bitset<kBasicPlane>& inert = [] {
        auto& made = *new std::bitset<kBasicPlane>; // lives as long as the process
        for (UChar32 character = 0x80; character < kBasicPlane; ++character) {
            UErrorCode error = U_ZERO_ERROR;
            made[static_cast<std::size_t>(character)] =
                !U_IS_SURROGATE(character) && Folding().hasBoundaryBefore(character)
                && Folding().isNormalized(icu::UnicodeString(character), error) != 0;
        }
        made[0x131] = false;
        return std::ref(made);
    }();
    return inert;
}

UChar32 CharacterAt(std::string_view text, std::size_t& byte) {
    UChar32 character = 0;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    U8_NEXT(bytes, byte, text.size(), character);
    return character;
}

void ReplaceIn(std::string& text, std::string_view wanted, std::string_view replacement) {
    if (text.find(wanted) != std::string::npos) {
        text = ReplaceAll(text, wanted, replacement);
    }
}

} // namespace

bool FoldsByAscii(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    for (std::size_t i = 0; i < text.size();) {
        std::uint64_t word = 0;
        if (text.size() - i >= sizeof word) {
            std::memcpy(&word, text.data() + i, sizeof word);
            if ((word & kHighBits) == 0) {
                i += sizeof word;
                continue;
            }
        }
        if (IsAscii(text[i])) {
            ++i;
            continue;
        }
        const UChar32 character = CharacterAt(text, i);
        if (character < 0 || character >= kBasicPlane || !Inert()[static_cast<std::size_t>(character)]) {
            return false;
        }
    }
    return true;
}

std::string FoldForSearch(std::string_view text) {
    std::string result(text);
    if (FoldsByAscii(text)) {
        for (char& byte : result) {
            byte = LowerAscii(byte);
        }
        return result;
    }
    result.clear();
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
    UErrorCode error = U_ZERO_ERROR;
    Folding().normalizeUTF8(0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                            nullptr, error);
    Check(error);
    ReplaceIn(result, kDottedI, "i");
    ReplaceIn(result, kDotlessI, "i");
    return result;
}

std::size_t NextFoldedUnit(std::string_view text, std::size_t byte) {
    CharacterAt(text, byte);
    while (byte < text.size()) {
        std::size_t next = byte;
        const UChar32 character = CharacterAt(text, next);
        if (character < 0 || Folding().hasBoundaryBefore(character)) {
            break;
        }
        byte = next;
    }
    return byte;
}

bool StartsWithFolded(std::string_view text, std::string_view folded) {
    for (std::size_t i = 0; i < folded.size(); ++i) {
        if (i == text.size()) {
            return false;
        }
        // What follows a letter may belong to it.
        const bool standsAlone = IsAscii(text[i]) && (i + 1 == text.size() || IsAscii(text[i + 1]));
        if (!standsAlone) {
            return FoldForSearch(text.substr(i)).starts_with(folded.substr(i));
        }
        if (LowerAscii(text[i]) != folded[i]) {
            return false;
        }
    }
    return true;
}

} // namespace folimark
