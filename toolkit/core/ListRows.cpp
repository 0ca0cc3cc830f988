#include "ListRows.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace folimark {
namespace {

// A row's texts: the tag is part 0, the cell of column c part c + 1.
constexpr std::size_t kTag = 0;
/// Bytes that may be lost before the rows are put together anew.
constexpr std::size_t kMostWaste = std::size_t{1} << 20U;

std::size_t PartOfColumn(std::int64_t column) {
    if (column < 0 || column >= ListRows::kMostColumns) {
        throw OutOfBoundsException("No list has a column " + Str(column) + ".");
    }
    return static_cast<std::size_t>(column) + 1;
}

} // namespace

std::size_t ListRows::Checked(std::int64_t row) const {
    if (row < 0 || row > LastIndex()) {
        throw OutOfBoundsException("Row " + Str(row) + " of a list that ends at " + Str(LastIndex()) + ".");
    }
    return static_cast<std::size_t>(row);
}

void ListRows::AddRow(const std::vector<std::string>& cells) {
    std::array<std::string_view, RowStore::kMostTexts> parts;
    const std::size_t count = std::min(cells.size(), parts.size() - 1);
    std::copy_n(cells.begin(), count, parts.begin() + 1);
    rows_.push_back(store_.Add({parts.data(), count + 1}));
    orderedBy_ = 0;
}

void ListRows::RemoveRow(std::int64_t row) {
    const std::size_t index = Checked(row);
    store_.Remove(rows_[index]);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    orderedBy_ = 0;
}

std::string_view ListRows::Cell(std::int64_t row, std::int64_t column) const {
    return RowStore::Text(rows_[Checked(row)], PartOfColumn(column));
}

void ListRows::Cell(std::int64_t row, std::int64_t column, std::string_view text) {
    Replace(Checked(row), PartOfColumn(column), text);
}

std::string_view ListRows::RowTag(std::int64_t row) const {
    return RowStore::Text(rows_[Checked(row)], kTag);
}

void ListRows::RowTag(std::int64_t row, std::string_view tag) {
    Replace(Checked(row), kTag, tag);
}

void ListRows::Replace(std::size_t row, std::size_t part, std::string_view text) {
    // Copies, since the old row's memory may become the new one's.
    const std::string newText(text);
    const std::size_t count = std::max(RowStore::Count(rows_[row]), part + 1);
    std::string old;
    std::array<std::size_t, RowStore::kMostTexts> ends{};
    for (std::size_t i = 0; i < count; ++i) {
        old.append(i == part ? newText : RowStore::Text(rows_[row], i));
        ends[i] = old.size();
    }
    std::array<std::string_view, RowStore::kMostTexts> parts;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t start = i == 0 ? 0 : ends[i - 1];
        parts[i] = std::string_view(old).substr(start, ends[i] - start);
    }
    store_.Remove(rows_[row]);
    rows_[row] = store_.Add({parts.data(), count});
    orderedBy_ = part == orderedBy_ ? 0 : orderedBy_;
    if (store_.Waste() > kMostWaste && store_.Waste() > store_.Size() / 2) {
        Compact();
    }
}

void ListRows::Compact() {
    RowStore compact;
    for (const char*& row : rows_) {
        std::array<std::string_view, RowStore::kMostTexts> parts;
        const std::size_t count = RowStore::Count(row);
        for (std::size_t i = 0; i < count; ++i) {
            parts[i] = RowStore::Text(row, i);
        }
        row = compact.Add({parts.data(), count});
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

/// \returns each row's new place.
std::vector<std::int64_t> ListRows::Put(const std::vector<std::size_t>& order) {
    std::vector<const char*> sorted;
    sorted.reserve(rows_.size());
    std::vector<std::int64_t> places(rows_.size());
    for (const std::size_t row : order) {
        places[row] = static_cast<std::int64_t>(sorted.size());
        sorted.push_back(rows_[row]);
    }
    rows_ = std::move(sorted);
    return places;
}

std::vector<std::int64_t> ListRows::Sort(std::int64_t column, bool ascending) {
    const std::size_t part = PartOfColumn(column);
    if (orderedBy_ == part) {
        if (ascending_ != ascending) {
            ascending_ = ascending;
            return Put(TurnRound());
        }
        std::vector<std::int64_t> places(rows_.size());
        std::iota(places.begin(), places.end(), 0);
        return places;
    }
    std::vector<std::string_view> texts;
    texts.reserve(rows_.size());
    for (const char* row : rows_) {
        texts.push_back(RowStore::Text(row, part));
    }
    std::vector<std::size_t> order = SortedOrder(texts, &repeats_);
    if (!ascending) {
        const std::vector<std::size_t> turned = TurnRound();
        std::vector<std::size_t> downwards;
        downwards.reserve(order.size());
        for (const std::size_t place : turned) {
            downwards.push_back(order[place]);
        }
        order = std::move(downwards);
    }
    orderedBy_ = part;
    ascending_ = ascending;
    return Put(order);
}

std::int64_t ListRows::FindPrefix(std::string_view text, std::int64_t startRow,
                                  std::string_view separator) const {
    const std::string folded = FoldForSearch(text);
    const std::int64_t count = LastIndex() + 1;
    const std::int64_t start = startRow < 0 || startRow >= count ? 0 : startRow;
    const std::size_t part = PartOfColumn(0);
    for (std::int64_t i = 0; i < count && !folded.empty(); ++i) {
        const std::int64_t row = start + i < count ? start + i : start + i - count;
        std::string_view cell = RowStore::Text(rows_[static_cast<std::size_t>(row)], part);
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
