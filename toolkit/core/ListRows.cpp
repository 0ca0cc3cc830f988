#include "ListRows.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <utility>

namespace folimark {
namespace {

// A row's texts are its cells, and behind them its tag: the index of its beginning, and the rest. A row that
// never got a tag has an empty text there.
using BeginningIndex = std::uint32_t;

/// Bytes that may be lost before the rows are put together anew.
constexpr std::size_t kMostWaste = std::size_t{1} << 20U;

std::size_t CheckedColumn(std::int64_t column) {
    if (column < 0 || column >= ListRows::kMostColumns) {
        throw OutOfBoundsException("No list has a column " + Str(column) + ".");
    }
    return static_cast<std::size_t>(column);
}

std::string_view CellOf(const char* row, std::size_t column) {
    return column + 1 < RowStore::Count(row) ? RowStore::Text(row, column) : "";
}

std::vector<std::string_view> TextsOf(const char* row) {
    std::vector<std::string_view> texts;
    for (std::size_t i = 0; i < RowStore::Count(row); ++i) {
        texts.push_back(RowStore::Text(row, i));
    }
    return texts;
}

} // namespace

std::size_t ListRows::Checked(std::int64_t row) const {
    if (row < 0 || row > LastIndex()) {
        throw OutOfBoundsException("Row " + Str(row) + " of a list that ends at " + Str(LastIndex()) + ".");
    }
    return static_cast<std::size_t>(row);
}

void ListRows::AddRow(const std::vector<std::string_view>& cells) {
    std::array<std::string_view, RowStore::kMostTexts> texts;
    const std::size_t count = std::min(cells.size(), texts.size() - 1);
    std::copy_n(cells.begin(), count, texts.begin());
    rows_.push_back(store_.Add({texts.data(), count + 1}));
    orderedBy_.reset();
    if (keysAhead_) {
        keysAhead_->made.push_back(keysAhead_->keys.Add(CellOf(rows_.back(), keysAhead_->column)));
    }
}

void ListRows::RemoveRow(std::int64_t row) {
    const std::size_t index = Checked(row);
    store_.Remove(rows_[index]);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    orderedBy_.reset();
    keysAhead_.reset();
}

std::string_view ListRows::Cell(std::int64_t row, std::int64_t column) const {
    return CellOf(rows_[Checked(row)], CheckedColumn(column));
}

void ListRows::Cell(std::int64_t row, std::int64_t column, std::string_view text) {
    const std::size_t index = Checked(row);
    const std::size_t cell = CheckedColumn(column);
    std::vector<std::string_view> texts = TextsOf(rows_[index]);
    if (cell + 1 >= texts.size()) {
        texts.insert(texts.end() - 1, cell + 2 - texts.size(), "");
    }
    texts[cell] = text;
    Replace(index, texts);
    if (orderedBy_ == cell) {
        orderedBy_.reset();
    }
    keysAhead_.reset();
}

std::string ListRows::RowTag(std::int64_t row) const {
    const char* const texts = rows_[Checked(row)];
    const std::string_view tag = RowStore::Text(texts, RowStore::Count(texts) - 1);
    BeginningIndex beginning = 0;
    if (tag.empty()) {
        return "";
    }
    std::memcpy(&beginning, tag.data(), sizeof beginning);
    return std::string(beginnings_[beginning]).append(tag.substr(sizeof beginning));
}

std::string ListRows::StoredTag(std::string_view tag) {
    const std::size_t size = tag.rfind(':') + 1;
    const std::string_view beginning = tag.substr(0, size);
    if (beginnings_.empty() || beginnings_.back() != beginning) {
        beginnings_.emplace_back(beginning);
    }
    const auto index = static_cast<BeginningIndex>(beginnings_.size() - 1);
    std::string stored(sizeof index, '\0');
    std::memcpy(stored.data(), &index, sizeof index);
    return stored.append(tag.substr(size));
}

void ListRows::RowTag(std::int64_t row, std::string_view tag) {
    const std::size_t index = Checked(row);
    const std::string stored = StoredTag(tag);
    if (!store_.ChangeLast(rows_[index], stored)) {
        std::vector<std::string_view> texts = TextsOf(rows_[index]);
        texts.back() = stored;
        Replace(index, texts);
    }
}

/// The texts may be the row's own, since these keep their memory until the store is compacted.
void ListRows::Replace(std::size_t row, const std::vector<std::string_view>& texts) {
    const char* const old = rows_[row];
    rows_[row] = store_.Add(texts);
    store_.Remove(old);
    if (store_.Waste() > kMostWaste && store_.Waste() > store_.Size() / 2) {
        Compact();
    }
}

void ListRows::Compact() {
    RowStore compact;
    for (const char*& row : rows_) {
        row = compact.Add(TextsOf(row));
    }
    store_ = std::move(compact);
}

/// The order that is needed for the other direction, in which rows of one text keep theirs.
std::vector<std::size_t> ListRows::TurnRound() {
    std::vector<std::size_t> order;
    order.reserve(rows_.size());
    std::vector<bool> repeats;
    repeats.reserve(rows_.size());
    for (std::size_t last = rows_.size(); last > 0;) {
        std::size_t first = last - 1;
        while (repeats_[first]) {
            --first;
        }
        for (std::size_t row = first; row < last; ++row) {
            order.push_back(row);
            repeats.push_back(row != first);
        }
        last = first;
    }
    repeats_ = std::move(repeats);
    return order;
}

/// \returns each row's new number.
std::vector<std::int64_t> ListRows::Put(const std::vector<std::size_t>& order) {
    std::vector<const char*> sorted;
    sorted.reserve(rows_.size());
    std::vector<std::int64_t> newRows(rows_.size());
    for (const std::size_t row : order) {
        newRows[row] = static_cast<std::int64_t>(sorted.size());
        sorted.push_back(rows_[row]);
    }
    rows_ = std::move(sorted);
    return newRows;
}

void ListRows::ExpectSort(std::int64_t column) {
    keysAhead_.emplace().column = CheckedColumn(column);
    for (const char* row : rows_) {
        keysAhead_->made.push_back(keysAhead_->keys.Add(CellOf(row, keysAhead_->column)));
    }
}

std::vector<std::int64_t> ListRows::Sort(std::int64_t column, bool ascending) {
    const std::size_t sorted = CheckedColumn(column);
    if (orderedBy_ == sorted) {
        if (ascending_ != ascending) {
            ascending_ = ascending;
            return Put(TurnRound());
        }
        std::vector<std::int64_t> newRows(rows_.size());
        std::iota(newRows.begin(), newRows.end(), 0);
        return newRows;
    }
    std::vector<std::string_view> texts;
    texts.reserve(rows_.size());
    for (const char* row : rows_) {
        texts.push_back(CellOf(row, sorted));
    }
    const std::optional<KeysAhead> ahead = std::exchange(keysAhead_, std::nullopt);
    std::vector<std::size_t> order =
        SortedOrder(texts, &repeats_,
                    ahead && ahead->column == sorted ? std::span<const char* const>(ahead->made)
                                                     : std::span<const char* const>());
    if (!ascending) {
        const std::vector<std::size_t> turned = TurnRound();
        std::vector<std::size_t> downwards;
        downwards.reserve(order.size());
        for (const std::size_t row : turned) {
            downwards.push_back(order[row]);
        }
        order = std::move(downwards);
    }
    orderedBy_ = sorted;
    ascending_ = ascending;
    return Put(order);
}

std::int64_t ListRows::FindPrefix(std::string_view text, std::int64_t startRow,
                                  std::string_view separator) const {
    const std::string folded = FoldForSearch(text);
    const std::int64_t count = LastIndex() + 1;
    const std::int64_t start = startRow < 0 || startRow >= count ? 0 : startRow;
    for (std::int64_t i = 0; i < count && !folded.empty(); ++i) {
        const std::int64_t row = start + i < count ? start + i : start + i - count;
        std::string_view cell = CellOf(rows_[static_cast<std::size_t>(row)], 0);
        if (const auto last = cell.rfind(separator); !separator.empty() && last != std::string_view::npos) {
            cell.remove_prefix(last + separator.size());
        }
        if (StartsWithFolded(cell, folded)) {
            return row;
        }
    }
    return -1;
}

} // namespace folimark
