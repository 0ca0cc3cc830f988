#include "Text.h"
#include "Array.h"
#include "Color.h"
#include "Date.h"
#include "Phrase.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace folimark {
namespace {

using namespace std::string_literals;

TEST(Text, FindsWithoutRegardToCase) {
    const struct {
        std::string_view text;
        std::string_view wanted;
        std::int64_t start;
        std::int64_t position;
    } cases[] = {{"image/jpeg", "JPEG", 0, 7},
                 {"image/jpeg", "", 0, 0},
                 {"", "a", 0, 0},
                 {"abab", "ab", 2, 3},
                 {"abab", "ab", 1, 1},
                 {"abab", "ab", 4, 0},
                 {"ab", "ab", 9, 0},
                 {"a", "abc", 0, 0},
                 {"ÄÖÜ → é", "→ É", 0, 5},
                 {"Maß Straße", "SS", 0, 3},
                 {"STRASSE", "ß", 0, 5},
                 {"Maß ße", "ß", 4, 5},
                 {"ΣΊΣΥΦΟΣ", "σίσυφος", 0, 1},
                 {"x\xFF\x80y", "Y", 0, 3},
                 {"🙂🙂b", "B", 0, 3},
                 {"cafe\u0301 é", "É", 0, 4},
                 {"café", "CAFE\u0301", 0, 1},
                 {"cafe\u0301", "cafe", 0, 0},
                 {"x İstanbul", "istanbul", 0, 3},
                 {"I\u0307stanbul", "ıSTAN", 0, 1},
                 {"ﬁlm\u00A01", "film 1", 0, 1},
                 {"a → soft\u00ADhyphen", "→ SOFTH", 0, 3},
                 {"Ａ一B", "a一b", 0, 1},
                 {"年\u30ab\u3099", "ガ", 0, 2}};
    for (const auto& [text, wanted, start, position] : cases) {
        EXPECT_EQ(InStr(text, wanted, start), position) << text << " / " << wanted;
        EXPECT_EQ(start > 1 || Phrase(wanted).IsIn(text), start > 1 || position > 0)
            << text << " / " << wanted;
    }
}

TEST(Text, CutsFields) {
    const std::string path = "Disk:Photos:Trips:";
    EXPECT_EQ(CountFields(path, ":"), 4);
    EXPECT_EQ(CountFields("", ":"), 1);
    EXPECT_EQ(CountFields("a - b - c", " - "), 3);
    const std::pair<std::int64_t, std::string> fields[] = {{-1, ""},     {0, ""}, {1, "Disk"},
                                                           {3, "Trips"}, {4, ""}, {5, ""}};
    for (const auto& [number, field] : fields) {
        EXPECT_EQ(NthField(path, ":", number), field) << number;
    }
    EXPECT_EQ(NthField("no colon", ":", 1), "no colon");
    EXPECT_EQ(NthField("a::b", "::", 2), "b");
}

TEST(Text, ReplacesFromLeftToRight) {
    EXPECT_EQ(ReplaceAll("a:b:", ":", "→ "), "a→ b→ ");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("text", "", "x"), "text");
}

TEST(Text, CountsCharacters) {
    EXPECT_EQ(Len("Größe →🙂"), 8);
    EXPECT_EQ(Right("Größe →🙂", 4), "e →🙂");
    EXPECT_EQ(Right("ab", 0) + Right("ab", -1), "");
    EXPECT_EQ(Right("äb", 7), "äb");
    EXPECT_EQ(Chr(13) + Chr(0xE4) + Chr(0x2192) + Chr(0x1F642), "\rä→🙂");
    EXPECT_EQ(Chr(-1) + Chr(0xD800) + Chr(0x110000), "");
    EXPECT_EQ(Str(0) + Str(std::numeric_limits<std::int64_t>::min()), "0-9223372036854775808");
    EXPECT_EQ(Join({"a", "", "b"}, "→"), "a→→b");
    EXPECT_EQ(Join(Array<std::string>{}, " "), "");
}

TEST(Text, FormatsByMask) {
    const struct {
        double value;
        std::string_view mask;
        std::string_view text;
    } cases[] = {{0, "###,###", "0"},
                 {999, "###,###", "999"},
                 {1234, "###,###", "1,234"},
                 {7, "000.0", "007.0"},
                 {1234567890, "###,###", "1,234,567,890"},
                 {12.5, "000.0", "012.5"},
                 {1234.5, "000.0", "1234.5"},
                 {999.9, "000.0", "999.9"},
                 {0, "000.0", "000.0"},
                 {-1234, "###,###", "-1,234"},
                 {-0.01, "000.0", "000.0"}};
    for (const auto& [value, mask, text] : cases) {
        EXPECT_EQ(Format(value, mask), text);
    }
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "000.0").size(), 311U);
    EXPECT_EQ(Floor(-1.5), -2);
    EXPECT_EQ(RGB(1, 2, 255), 0x000102FFU);
}

TEST(Text, ComparesWithoutRegardToCase) {
    const struct {
        std::string_view left;
        std::string_view right;
        bool equal;
    } cases[] = {{"Trips:A", "trips:a", true}, {"Straße", "STRASSE", false}, {"ÀÉ", "àé", true},
                 {"a", "ab", false},           {"\xFF", "\xFE", false},      {"K", "k", true},
                 {"e\u0301", "é", false},      {"\xC3\xFF", "\xC3ÿ", false}, {"ΣΣ", "σς", true}};
    for (const auto& [left, right, equal] : cases) {
        EXPECT_EQ(EqualText(left, right) && EqualText(right, left), equal) << left << " / " << right;
        EXPECT_EQ(StartsWithFolded(std::string(left) + "…", FoldForSearch(right)),
                  equal || left == "Straße" || left == "e\u0301");
    }
    EXPECT_FALSE(StartsWithFolded("a", "ab"));
}

TEST(TextOrder, IsThatOfAPerson) {
    const std::vector<std::string> sorted = {"",          "BY  999.0", "KB  001.0", "MB  009.9", "MB  010.0",
                                             "OB  001.0", "TB 001.0",  "Zebra",     "zebra → a"};
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        EXPECT_LT(CompareForSort(sorted[i - 1], sorted[i]), 0) << sorted[i];
    }
    const std::vector<std::string> letters = {"a", "A", "ä", "Ab", "b", "ß", "z"};
    for (std::size_t i = 1; i < letters.size(); ++i) {
        EXPECT_LT(CompareForSort(letters[i - 1], letters[i]), 0) << letters[i];
    }
    EXPECT_NE(CompareForSort("é", "e\u0301"), 0);
    EXPECT_EQ(CompareForSort("Ä", "Ä"), 0);
}

TEST(TextOrder, SortsManyTextsAsPairsAreCompared) {
    std::mt19937 random(7);
    const std::vector<std::string> pieces = {
        "a", "A", "ä",     "b",  "0", " → ", "\0"s, "é", "e\u0301", "\xFF",   "long common beginning ",
        "ß", "l", "·",     "\r", "–", "東",  "я",   "ก", "เ",       "\u0308", "Ŀ",
        "٣", "…", "\u00AD"};
    std::vector<std::string> texts(20000);
    for (std::string& text : texts) {
        for (std::size_t i = random() % 9; i > 0; --i) {
            const auto letter = static_cast<std::int64_t>(random() % (i % 4 == 0 ? 0x2200 : 0x180));
            text += i % 2 == 0 ? pieces[random() % pieces.size()] : Chr(letter);
        }
    }
    const std::vector<std::size_t> order = SortedOrder({texts.begin(), texts.end()});
    ASSERT_EQ(order.size(), texts.size());
    for (std::size_t i = 1; i < order.size(); ++i) {
        const int compared = CompareForSort(texts[order[i - 1]], texts[order[i]]);
        ASSERT_TRUE(compared < 0 || (compared == 0 && order[i - 1] < order[i])) << i;
    }
}

TEST(Array, KeepsItsBounds) {
    Array<bool> flags;
    EXPECT_EQ(flags.Ubound(), -1);
    flags.Redim(2);
    flags.Set(1, true);
    flags.Remove(0);
    EXPECT_TRUE(flags(0) && !flags(1));
    EXPECT_THROW(flags(2), OutOfBoundsException);
    EXPECT_THROW(flags(-1), OutOfBoundsException);
    EXPECT_THROW(flags.Set(2, true), OutOfBoundsException);
    EXPECT_THROW(flags.Remove(2), OutOfBoundsException);
    EXPECT_THROW(flags.Redim(-2), OutOfBoundsException);
    flags.Redim(-1);
    EXPECT_EQ(flags.Ubound(), -1);
}

TEST(Array, SortsOthersAlong) {
    Array<std::string> labels{"b", "C", "a", "b"};
    Array<std::string> paths{"1", "2", "3", "4"};
    Array<bool> open{false, true, false, false};
    SortWith(labels, paths, open);
    EXPECT_EQ(Join(labels, "") + Join(paths, ""), "abbC3142");
    EXPECT_TRUE(open(3) && !open(0));
    open.Append(true);
    EXPECT_THROW(SortWith(labels, paths, open), OutOfBoundsException);
    EXPECT_EQ(Join(paths, ""), "3142");
}

TEST(Date, IsTheLocalDayInAnyYear) {
    setenv("TZ", "XYZ-14", 1); // fourteen hours ahead of UTC
    tzset();
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const std::pair<std::int64_t, std::string> cases[] = {{0, "1970-01-01"},
                                                          {10 * 3600, "1970-01-02"},
                                                          {-15 * 3600, "1969-12-31"},
                                                          {951782400, "2000-02-29"},
                                                          {-62135596800, "0001-01-01"},
                                                          {-99999999999, "0001-01-01"},
                                                          {253402300800, "9999-12-31"},
                                                          {kMost, "9999-12-31"},
                                                          {-kMost, "0001-01-01"}};
    for (const auto& [seconds, text] : cases) {
        EXPECT_EQ(New<Date>(seconds)->SQLDate(), text) << seconds;
    }
}

} // namespace
} // namespace folimark
