#include "ListRows.h"

#include "Text.h"

#include <gtest/gtest.h>

namespace folimark {
namespace {

ListRows Rows(const std::vector<std::vector<std::string>>& rows) {
    ListRows list;
    for (const std::vector<std::string>& row : rows) {
        list.AddRow({row.begin(), row.end()});
        list.RowTag(list.LastIndex(), row[0] + ":tag:" + row[0]);
    }
    return list;
}

std::string Column(const ListRows& list, std::int64_t column) {
    std::vector<std::string> texts;
    for (std::int64_t row = 0; row <= list.LastIndex(); ++row) {
        EXPECT_EQ(list.RowTag(row), std::string(list.Cell(row, 0)) + ":tag:" + std::string(list.Cell(row, 0)))
            << "Rows move as a whole.";
        texts.emplace_back(list.Cell(row, column));
    }
    return Join(texts, " ");
}

TEST(ListRows, KeepCellsAndTags) {
    ListRows list = Rows({{"a", "", "long text of a cell"}, {"b"}});
    EXPECT_EQ(list.LastIndex(), 1);
    EXPECT_EQ(list.Cell(0, 2), "long text of a cell");
    EXPECT_EQ(list.Cell(1, 4), "");
    list.Cell(1, 4, "x");
    list.Cell(0, 2, list.Cell(0, 0));
    EXPECT_EQ(Column(list, 4) + Column(list, 2), " xa ");
    list.RowTag(1, "");
    list.RowTag(0, list.RowTag(0) + "bc");
    EXPECT_EQ(list.RowTag(0) + list.RowTag(1), "a:tag:abc");
    list.RemoveRow(0);
    EXPECT_EQ(list.Cell(0, 0), "b");
    EXPECT_EQ(list.Cell(0, 4), "x");
    list.AddRow({});
    EXPECT_EQ(list.Cell(1, 0), "");
    const std::string large(1000, 'x');
    for (int i = 0; i < 9000; ++i) { // until what is lost has to be gathered
        list.Cell(i % 2, 2, large + std::to_string(i));
    }
    EXPECT_EQ(list.Cell(0, 2), large + "8998");
    EXPECT_EQ(list.Cell(0, 0), "b");
    list.DeleteAllRows();
    EXPECT_EQ(list.LastIndex(), -1);
}

TEST(ListRows, RefuseWhatIsOutside) {
    ListRows list = Rows({{"a"}});
    for (const std::int64_t row : {-1, 1}) {
        EXPECT_THROW(list.Cell(row, 0), OutOfBoundsException);
        EXPECT_THROW(list.Cell(row, 0, "x"), OutOfBoundsException);
        EXPECT_THROW(list.RowTag(row), OutOfBoundsException);
        EXPECT_THROW(list.RowTag(row, "x"), OutOfBoundsException);
        EXPECT_THROW(list.RemoveRow(row), OutOfBoundsException);
    }
    EXPECT_THROW(list.Cell(0, -1), OutOfBoundsException);
    EXPECT_THROW(list.Cell(0, ListRows::kMostColumns, "x"), OutOfBoundsException);
    EXPECT_THROW(list.Sort(-1, true), OutOfBoundsException);
}

TEST(ListRows, SortWholeRowsAndTellWhereTheyWent) {
    ListRows list = Rows({{"b", "2"}, {"C", "1"}, {"a", "2"}, {"d", "1"}});
    EXPECT_EQ(list.Sort(0, true), (std::vector<std::int64_t>{1, 2, 0, 3}));
    EXPECT_EQ(Column(list, 0), "a b C d");
    list.Sort(1, true);
    EXPECT_EQ(Column(list, 0), "C d a b") << "Equal cells keep their order.";
    EXPECT_EQ(list.Sort(1, false), (std::vector<std::int64_t>{2, 3, 0, 1}));
    EXPECT_EQ(Column(list, 0), "a b C d") << "Downwards too.";
    list.Cell(3, 1, "3"); // no longer in order by that column
    list.Sort(1, false);
    EXPECT_EQ(Column(list, 0), "d a b C");
    list.Sort(1, true);
    list.AddRow({"e", "0"});
    list.RowTag(4, "e:tag:e");
    list.Sort(1, true);
    EXPECT_EQ(Column(list, 0), "e C a b d");
    list.RemoveRow(0);
    list.ExpectSort(0);
    list.AddRow({"B"});
    list.RowTag(4, "B:tag:B");
    list.Sort(0, false);
    EXPECT_EQ(Column(list, 0), "d C B b a");
    list.Sort(7, true);
    EXPECT_EQ(Column(list, 0), "d C B b a");
    list.ExpectSort(0);
    list.Cell(0, 0, "0");
    list.RowTag(0, "0:tag:0");
    list.Sort(0, true);
    EXPECT_EQ(Column(list, 0), "0 a b B C");
}

TEST(ListRows, FindTheFirstLetters) {
    const ListRows list = Rows({{"Apple"}, {"äpfel"}, {"banana"}, {"Bär"}, {"apricot"}});
    const struct {
        std::string_view text;
        std::int64_t start;
        std::int64_t row;
    } cases[] = {{"a", 0, 0}, {"a", 1, 4},       {"AP", 4, 4},  {"appl", 4, 0},
                 {"Ä", 2, 1}, {"bÄ", 0, 3},      {"bär", 4, 3}, {"x", 0, -1},
                 {"", 0, -1}, {"banana", 99, 2}, {"b", -1, 2},  {"bananas", 0, -1}};
    for (const auto& [text, start, row] : cases) {
        EXPECT_EQ(list.FindPrefix(text, start), row) << text << " from " << start;
    }
    EXPECT_EQ(ListRows().FindPrefix("a", 0), -1);
}

} // namespace
} // namespace folimark
