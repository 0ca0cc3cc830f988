#pragma once

#include "Exceptions.h"
#include "LetterKeys.h"
#include "RowStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace folimark {

/// The rows of a list: each has a text for each column and a tag that isn't shown. Rows and columns count
/// from 0. They are kept compactly, so that a million of them are no burden: tags that follow each other may
/// have all in common but what follows their last ":". A row outside the list, or a column that no list can
/// have, raises OutOfBoundsException.
class ListRows {
  public:
    /// Lists have far fewer columns than this.
    static constexpr std::int64_t kMostColumns = RowStore::kMostTexts - 1;

    /// Adds a row at the end, with one text for each column from the first on, and an empty tag.
    void AddRow(const std::vector<std::string_view>& cells);

    /// The rows below it move up by one.
    void RemoveRow(std::int64_t row);
    void DeleteAllRows() { *this = ListRows(); }
    /// -1 for an empty list.
    std::int64_t LastIndex() const { return static_cast<std::int64_t>(rows_.size()) - 1; }

    /// "" in a column that the row was given no text for. The view holds until a row is changed, added or
    /// removed.
    std::string_view Cell(std::int64_t row, std::int64_t column) const;
    void Cell(std::int64_t row, std::int64_t column, std::string_view text);
    std::string RowTag(std::int64_t row) const;
    void RowTag(std::int64_t row, std::string_view tag);

    /// From now on makes ready, with each row that is added, what a sort by that column needs, until it
    /// comes or other rows change: so the sort takes less time at once.
    void ExpectSort(std::int64_t column);
    /// Puts whole rows into the order of a column's texts. Rows with identical texts keep their order,
    /// upwards and downwards. Rows that are in order by that column already are only turned round, if at all.
    /// The result tells each row's new number: what stood in row i stands in row result[i].
    std::vector<std::int64_t> Sort(std::int64_t column, bool ascending);

    /// The first row, from `startRow` on and then from the top, whose first column starts with the text as
    /// a search sees it (FoldForSearch); -1 if there is none, or the text is empty. A `startRow` outside the
    /// list means the top. With a separator only what follows the last one in a row counts.
    std::int64_t FindPrefix(std::string_view text, std::int64_t startRow,
                            std::string_view separator = "") const;

  private:
    struct KeysAhead {
        std::size_t column;
        LetterKeys keys;
        std::vector<const char*> made; // of the rows, one by one
    };

    std::size_t Checked(std::int64_t row) const;
    std::string StoredTag(std::string_view tag);
    void Replace(std::size_t row, const std::vector<std::string_view>& texts);
    void Compact();
    std::vector<std::size_t> TurnRound();
    std::vector<std::int64_t> Put(const std::vector<std::size_t>& order);

    RowStore store_;
    std::vector<const char*> rows_;
    std::vector<std::string> beginnings_; // of tags, up to their last ":"
    // By which column the rows are in order, and in which direction. None once they may not be any more.
    std::optional<std::size_t> orderedBy_;
    bool ascending_ = true;
    std::optional<KeysAhead> keysAhead_; // none if no sort is expected
    std::vector<bool> repeats_; // of rows in order: does a row have the same text as the one above it?
};

} // namespace folimark
