#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace folimark {

// Text is UTF-8. A character is a code point: a byte that starts one, with the continuation bytes behind it.
// Positions, lengths and field numbers count characters or fields from 1. None of these functions depends on
// the locale. None raises, but for a RuntimeException where the system's Unicode library lacks its data.

/// The platform's line end.
inline constexpr char EndOfLine[] = "\n";

/// The position of the first occurrence of `wanted` at or behind position `start` (0 means 1), letter case
/// and spelling ignored by FoldForSearch, so that "SS" is found in "Maß"; 0 if there is none, or if `wanted`
/// is empty.
std::int64_t InStr(std::string_view text, std::string_view wanted, std::int64_t start = 0);

/// The number of fields between the separators. Even an empty text has one field. The separator's letter case
/// counts, and an empty separator separates nothing.
std::int64_t CountFields(std::string_view text, std::string_view separator);

/// The field of that number; "" for a number below 1 or past the last field.
std::string NthField(std::string_view text, std::string_view separator, std::int64_t number);

/// Replaces every occurrence (letter case counts) from left to right, without looking at what was replaced.
std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement);

/// The last `count` characters; "" for a count below 1, the whole text for one that is too large.
std::string Right(std::string_view text, std::int64_t count);

/// The number of characters.
std::int64_t Len(std::string_view text);

/// Plain decimal digits, with a leading "-" for a negative value.
std::string Str(std::int64_t value);

/// The one-character text of a Unicode code point; "" if there is no such character.
std::string Chr(std::int64_t code);

/// A number by a mask such as "###,###" or "000.0". Before the decimal point each "0" is a digit that is
/// always shown, and a "," asks for groups of three; behind it each place is a digit that is always shown.
/// Digits that find no place in the mask are shown all the same, and at least one stands before the point, so
/// that "###,###" of 0 is "0".
std::string Format(double value, std::string_view mask);

/// The greatest whole number that isn't above the value.
double Floor(double value);

/// The elements in order with the separator between them.
std::string Join(const std::vector<std::string>& elements, std::string_view separator);

/// An ASCII letter's small form; any other byte as it is.
constexpr char LowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

/// What is left of a text for a search: without letter case, and without differences of spelling that can't
/// be seen, such as accents that are characters of their own, ligatures, and characters without a look. That
/// is Unicode's NFKC_Casefold, and beyond it an "i" is an "i" with or without its dot, so that "istanbul"
/// finds "İSTANBUL". Bytes that are no UTF-8 stay as they are.
std::string FoldForSearch(std::string_view text);

/// True only if FoldForSearch does no more to the text than LowerAscii does to each byte.
bool FoldsByAscii(std::string_view text);

/// The byte behind the characters from `byte` on that FoldForSearch may join into one.
std::size_t NextFoldedUnit(std::string_view text, std::size_t byte);

/// The equality of texts everywhere in the application: letter case is ignored, character by character
/// (Unicode's simple case folding). "Maße" and "Masse", or two spellings of an accent, which are one to a
/// search, differ in more than case, as the files do that have such names.
bool EqualText(std::string_view left, std::string_view right);

/// Does what FoldForSearch makes of `text` start with `folded`, which it has made?
bool StartsWithFolded(std::string_view text, std::string_view folded);

/// The order of texts as a person means it: letters first, accents second, case third, by the root collation
/// of Unicode, so that it is the same whatever the user's language. Texts that this can't tell apart are in
/// the order of their bytes, so only identical texts are equal. Below, equal to or above 0.
int CompareForSort(std::string_view left, std::string_view right);

/// A key whose byte order is the order of CompareForSort, but for texts that only their bytes tell apart.
std::string SortKey(std::string_view text);

/// The indexes (from 0) of the texts in the order of CompareForSort. Identical texts keep their order.
/// `repeats`, if it isn't null, becomes one flag for each place of that order: is its text the same as the
/// one before it? `keys` are those of the first texts that LetterKeys has made already.
std::vector<std::size_t> SortedOrder(const std::vector<std::string_view>& texts,
                                     std::vector<bool>* repeats = nullptr,
                                     std::span<const char* const> keys = {});

} // namespace folimark
