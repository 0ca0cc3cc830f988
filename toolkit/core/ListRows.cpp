#include "ListRows.h"

#include "Text.h"

#include <algorithm>
#include <cstring>

namespace folimark {
namespace {

// A row's block: the number of its parts, where each part ends, counted in bytes from the first text, and
// then the texts. The tag is part 0, the cell of column c part c + 1.
using Block = std::unique_ptr<std::uint32_t[]>;
constexpr std::size_t kTag = 0;

const char* Texts(const Block& block) {
    return reinterpret_cast<const char*>(block.get() + 1 + block[0]);
}

std::string_view Part(const Block& block, std::size_t part) {
    if (part >= block[0]) {
        return "";
    }
    const std::uint32_t start = part == 0 ? 0 : block[part];
    return {Texts(block) + start, block[part + 1] - start};
}

Block MakeBlock(const std::vector<std::string_view>& parts) {
    std::size_t bytes = 0;
    for (const std::string_view part : parts) {
        bytes += part.size();
    }
    const std::size_t header = 1 + parts.size();
    const std::size_t words = header + (bytes + sizeof(std::uint32_t) - 1) / sizeof(std::uint32_t);
    Block block = std::make_unique_for_overwrite<std::uint32_t[]>(words);
    block[0] = static_cast<std::uint32_t>(parts.size());
    char* const texts = reinterpret_cast<char*>(block.get() + header);
    std::size_t end = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        end += parts[i].copy(texts + end, parts[i].size());
        block[i + 1] = static_cast<std::uint32_t>(end);
    }
    return block;
}

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
    std::vector<std::string_view> parts{""};
    parts.insert(parts.end(), cells.begin(), cells.end());
    rows_.push_back(MakeBlock(parts));
}

void ListRows::RemoveRow(std::int64_t row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(Checked(row)));
}

std::string_view ListRows::Cell(std::int64_t row, std::int64_t column) const {
    return Part(rows_[Checked(row)], PartOfColumn(column));
}

void ListRows::Cell(std::int64_t row, std::int64_t column, std::string_view text) {
    Replace(Checked(row), PartOfColumn(column), text);
}

std::string_view ListRows::RowTag(std::int64_t row) const {
    return Part(rows_[Checked(row)], kTag);
}

void ListRows::RowTag(std::int64_t row, std::string_view tag) {
    Replace(Checked(row), kTag, tag);
}

void ListRows::Replace(std::size_t row, std::size_t part, std::string_view text) {
    std::vector<std::string_view> parts(std::max<std::size_t>(rows_[row][0], part + 1));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] = i == part ? text : Part(rows_[row], i);
    }
    rows_[row] = MakeBlock(parts);
}

std::vector<std::int64_t> ListRows::Sort(std::int64_t column, bool ascending) {
    const std::size_t part = PartOfColumn(column);
    std::vector<std::string_view> texts;
    texts.reserve(rows_.size());
    for (const Block& row : rows_) {
        texts.push_back(Part(row, part));
    }
    std::vector<std::size_t> order = SortedOrder(texts);
    if (!ascending) {
        std::reverse(order.begin(), order.end());
        for (auto equal = order.begin(); equal != order.end();) {
            const auto end = std::find_if(equal, order.end(),
                                          [&](std::size_t row) { return texts[row] != texts[*equal]; });
            std::reverse(equal, end);
            equal = end;
        }
    }
    std::vector<Block> sorted;
    sorted.reserve(rows_.size());
    std::vector<std::int64_t> newPlaces(rows_.size());
    for (const std::size_t row : order) {
        newPlaces[row] = static_cast<std::int64_t>(sorted.size());
        sorted.push_back(std::move(rows_[row]));
    }
    rows_ = std::move(sorted);
    return newPlaces;
}

std::int64_t ListRows::FindPrefix(std::string_view text, std::int64_t startRow) const {
    const std::string folded = FoldCase(text);
    const std::int64_t count = LastIndex() + 1;
    const std::int64_t start = startRow < 0 || startRow >= count ? 0 : startRow;
    const std::size_t part = PartOfColumn(0);
    for (std::int64_t i = 0; i < count && !folded.empty(); ++i) {
        const std::int64_t row = start + i < count ? start + i : start + i - count;
        if (StartsWithFolded(Part(rows_[static_cast<std::size_t>(row)], part), folded)) {
            return row;
        }
    }
    return -1;
}

} // namespace folimark
