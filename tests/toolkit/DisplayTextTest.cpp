#include "DisplayText.h"
#include "ColonPath.h"

#include <gtest/gtest.h>

namespace folimark {
namespace {

TEST(DisplayText, ShowsWhatWouldHideOrDisguiseANameAndNothingElse) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"plain & name.jpg", "plain & name.jpg"},
        {"Größe → 日本 🙂", "Größe → 日本 🙂"},
        {FieldOfName("a\nb\x1B\x7F"), "a␊b␛␡"},
        {FieldOfName("\xFFz\uEF41"), "�z���"},
        {"raw \x01\x1B[31m\u0085 \xC3(", "raw ␁␛[31m� �("},
        {"a first line\n\ta second\r", "a first line\n\ta second\r"},
        {"photo\u202Egpj.exe", "photo⟦RLO⟧gpj.exe"},
        {"\u061C\u200E\u200F\u2028\u2029", "⟦ALM⟧⟦LRM⟧⟦RLM⟧⟦LSEP⟧⟦PSEP⟧"},
        {"\u202A\u202B\u202C\u202D\u2066\u2067\u2068\u2069", "⟦LRE⟧⟦RLE⟧⟦PDF⟧⟦LRO⟧⟦LRI⟧⟦RLI⟧⟦FSI⟧⟦PDI⟧"},
        // Joiners belong to letters and to pictures of families.
        {"می\u200Cخواهم 👨\u200D👩", "می\u200Cخواهم 👨\u200D👩"},
        {"שלום.jpg", "שלום.jpg"},
        {"home→ שלום→ عالم→ a", "home→\u2066 שלום\u2069→\u2066 عالم\u2069→ a"},
        {"Trash the “שלום 12” album?", "Trash the “\u2066שלום 12\u2069” album?"},
        {"a:\u2069\u202Eשלום:", "a:\u2066⟦PDI⟧⟦RLO⟧שלום\u2069:"}};
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(ForDisplay(text), shown);
    }
}

} // namespace
} // namespace folimark
