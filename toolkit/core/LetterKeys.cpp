#include "LetterKeys.h"

#include "Exceptions.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <endian.h>
#include <memory>
#include <optional>
#include <unicode/ucol.h>
#include <unicode/uset.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
/// Keys lie together in blocks of this size, in bytes.
constexpr std::size_t kBlock = std::size_t{1} << 20U;
/// What stands in for bytes that are no UTF-8.
constexpr std::int32_t kReplacement = 0xFFFD;

using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

Collator OpenRootCollator(UColAttributeValue strength) {
    UErrorCode error = U_ZERO_ERROR;
    Collator collator(ucol_open("", &error), &ucol_close);
    if (U_FAILURE(error)) {
        throw RuntimeException(std::string("The order of texts can't be had: ") + u_errorName(error) + ".");
    }
    ucol_setStrength(collator.get(), strength);
    return collator;
}

/// What a character adds to a key: a byte that letters of a script have in common, and the others. ICU leaves
/// out the former while it stays the same ("compression"), and writes a byte of its own when it changes.
struct Piece {
    std::uint8_t lead = 0; // 0: the table doesn't know the character
    bool isShared = false; // May the lead be left out behind an equal one?
    std::uint8_t size = 0;
    std::array<char, 5> rest{};
};

/// What a byte of a text adds to a key at most: a mark, the lead, and the rest.
constexpr std::size_t kMostBytes = 7;

/// What ICU writes before a lead that is less, or greater, than the shared one before it.
constexpr char kLeadFalls = 0x03;
constexpr char kLeadRises = static_cast<char>(0xFF);

/// Characters that are in the table if their keys are simple: ASCII, Latin letters, and signs.
constexpr UChar32 kLatinEnd = 0x180;
constexpr UChar32 kSigns = 0x2010;
constexpr UChar32 kSignsEnd = 0x2040;
constexpr UChar32 kArrow = 0x2192;
constexpr std::size_t kPieces = kLatinEnd + (kSignsEnd - kSigns) + 1;

std::size_t PieceIndexOf(UChar32 character) {
    if (character < kLatinEnd) {
        return static_cast<std::size_t>(character);
    }
    if (character >= kSigns && character < kSignsEnd) {
        return static_cast<std::size_t>(character) - kSigns + kLatinEnd;
    }
    return character == kArrow ? kPieces - 1 : 0; // NUL isn't in the table.
}

/// The characters that make up a letter only together, or change behind others, with those.
std::vector<std::u16string> Contractions() {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<USet, decltype(&uset_close)> set(uset_openEmpty(), &uset_close);
    ucol_getContractionsAndExpansions(LettersCollator(), set.get(), nullptr, 1, &error);
    std::vector<std::u16string> contractions;
    for (std::int32_t i = 0; i < uset_getItemCount(set.get()); ++i) {
        std::u16string text(16, u'\0');
        UChar32 first = 0;
        UChar32 last = 0;
        const std::int32_t length = uset_getItem(set.get(), i, &first, &last, text.data(), 16, &error);
        if (length > 0) {
            text.resize(static_cast<std::size_t>(length));
            contractions.push_back(std::move(text));
        }
    }
    return contractions;
}

Piece PieceOf(UChar32 character, KeyMaker& maker) {
    Piece piece;
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::int32_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, character);
    const std::string text(bytes.data(), static_cast<std::size_t>(length));
    const std::string key(maker.Key(text));
    const std::size_t twice = maker.Key(text + text).size();
    const bool isShared = twice == 2 * key.size() - 1;
    if (key.empty() || key.size() > piece.rest.size() + 1 || (!isShared && twice != 2 * key.size())) {
        return piece;
    }
    piece.lead = static_cast<std::uint8_t>(key.front());
    piece.isShared = isShared;
    piece.size = static_cast<std::uint8_t>(key.size() - 1);
    key.copy(piece.rest.data(), piece.size, 1);
    return piece;
}

std::vector<Piece> MakePieces() {
    KeyMaker maker(LettersCollator());
    std::vector<Piece> pieces(kPieces);
    for (UChar32 character = 1; character <= kArrow; ++character) {
        if (const std::size_t index = PieceIndexOf(character); index > 0) {
            pieces[index] = PieceOf(character, maker);
        }
    }
    for (const std::u16string& contraction : Contractions()) {
        for (const char16_t other : contraction.substr(1)) {
            const bool isKnown = pieces[PieceIndexOf(contraction.front())].lead != 0;
            pieces[PieceIndexOf(other)] = isKnown ? Piece() : pieces[PieceIndexOf(other)];
        }
    }
    return pieces;
}

/// The character at `byte`, which moves behind it; NUL for what is no UTF-8, and behind the end.
UChar32 NextCharacter(std::string_view text, std::uint32_t& byte) {
    UChar32 character = 0;
    if (byte < text.size()) {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
        U8_NEXT(bytes, byte, text.size(), character);
    }
    return std::max(character, 0);
}

/// Writes the key of a text whose characters all stand in the table. \returns its size; nothing if one
/// doesn't.
std::optional<std::size_t> KeyOfKnown(std::string_view text, char* key) {
    static const std::vector<Piece> pieces = MakePieces();
    char* end = key;
    std::uint8_t lead = 0;
    for (std::uint32_t byte = 0; byte < text.size();) {
        const auto first = static_cast<unsigned char>(text[byte]);
        const Piece& piece = pieces[first < 0x80 ? (++byte, first) : PieceIndexOf(NextCharacter(text, byte))];
        if (piece.lead == 0) {
            return std::nullopt;
        }
        if (piece.lead != lead) {
            if (lead != 0) {
                *end++ = piece.lead < lead ? kLeadFalls : kLeadRises;
            }
            *end++ = static_cast<char>(piece.lead);
        }
        std::memcpy(end, piece.rest.data(), piece.rest.size());
        end += piece.size;
        lead = piece.isShared ? piece.lead : 0;
    }
    return end - key;
}

} // namespace

const UCollator* RootCollator() {
    static const Collator collator = OpenRootCollator(UCOL_TERTIARY);
    return collator.get();
}

const UCollator* LettersCollator() {
    static const Collator collator = OpenRootCollator(UCOL_PRIMARY);
    return collator.get();
}

std::string_view KeyMaker::Key(std::string_view text) {
    wide_.resize(text.size());
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8WithSub(wide_.data(), static_cast<std::int32_t>(wide_.size()), &length, text.data(),
                         static_cast<std::int32_t>(text.size()), kReplacement, nullptr, &error);
    for (;;) {
        const auto size = static_cast<std::size_t>(
            ucol_getSortKey(collator_, wide_.data(), length, reinterpret_cast<std::uint8_t*>(key_.data()),
                            static_cast<std::int32_t>(key_.size())));
        if (size <= key_.size()) {
            return std::string_view(key_).substr(0, std::max<std::size_t>(size, 1) - 1);
        }
        key_.resize(size);
    }
}

std::uint64_t LetterKeys::WordAt(const char* key) {
    std::uint64_t word = 0;
    std::memcpy(&word, key, kWord);
    return be64toh(word);
}

const char* LetterKeys::Add(std::string_view text) {
    const std::size_t most = text.size() * kMostBytes + 2 * kWord;
    if (key_.size() < most) {
        key_.resize(most);
    }
    const std::optional<std::size_t> known = KeyOfKnown(text, key_.data());
    const std::string_view key = known ? std::string_view(key_.data(), *known) : maker_.Key(text);
    const std::size_t size = (key.size() / kWord + 1) * kWord;
    if (room_ - used_ < size) {
        room_ = std::max(kBlock, size);
        used_ = 0;
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
    }
    char* const start = blocks_.back().get() + used_;
    used_ += size;
    std::memset(start + size - kWord, 0, kWord);
    key.copy(start, key.size());
    return start;
}

} // namespace folimark
