#include "Listbox.h"

#include "Clipboard.h"
#include "NativeList.h"
#include "ToolkitKey.h"

#include <algorithm>

namespace folimark {

template <class... Parameters>
void Listbox::ToView(void (NativeList::*tell)(Parameters...),
                     const std::type_identity_t<Parameters>&... arguments) const {
    if (NativeList* view = View()) {
        (view->*tell)(arguments...);
    }
}

void Listbox::Headings(const std::vector<std::string>& headings) {
    columns_.clear();
    for (const std::string& heading : headings) {
        columns_.push_back({.heading = heading});
    }
    hasHeading_ = true;
    ToView(&NativeList::Reset);
}

void Listbox::AddRow(const std::vector<std::string_view>& cells) {
    rows_.AddRow(cells);
    ToView(&NativeList::RowAdded);
}

void Listbox::RemoveRow(std::int64_t row) {
    if (row < 0 || row > LastIndex()) {
        throw OutOfBoundsException("A list has no row " + std::to_string(row) + " to remove.");
    }
    ToView(&NativeList::BeginRemove, row);
    rows_.RemoveRow(row);
    const bool wasSelected = row == listIndex_;
    if (wasSelected) {
        listIndex_ = -1;
    } else if (row < listIndex_) {
        --listIndex_; // The selected row itself has moved up.
    }
    ToView(&NativeList::EndRemove);
    if (wasSelected) {
        Raise(Change, *this);
    }
}

void Listbox::DeleteAllRows() {
    rows_.DeleteAllRows();
    listIndex_ = -1;
    ToView(&NativeList::Reset);
}

void Listbox::ListIndex(std::int64_t row) {
    if (row < -1 || row > LastIndex()) {
        throw OutOfBoundsException("A list has no row " + std::to_string(row) + " to select.");
    }
    const bool changes = row != listIndex_;
    listIndex_ = row;
    ToView(&NativeList::ShowSelection);
    if (changes) {
        Raise(Change, *this);
    }
}

std::string Listbox::Cell(std::int64_t row, int column) const {
    Checked(column);
    return std::string(rows_.Cell(row, column));
}

void Listbox::Cell(std::int64_t row, int column, const std::string& text) {
    Checked(column);
    rows_.Cell(row, column, text);
    ToView(&NativeList::CellChanged, row, column);
}

void Listbox::ColumnWidths(const std::string& widths) {
    columnWidths_ = widths;
    ToView(&NativeList::ShowColumns, widths);
}

std::size_t Listbox::Checked(int column) const {
    if (column < 0 || column >= ColumnCount()) {
        throw OutOfBoundsException("A list has no column " + std::to_string(column) + ".");
    }
    return static_cast<std::size_t>(column);
}

void Listbox::ColumnAlignment(int column, ColumnAlign align) {
    columns_[Checked(column)].align = align;
    Refresh();
}

void Listbox::ColumnSortDirection(int column, SortDirection direction) {
    columns_[Checked(column)].direction = direction;
}

void Listbox::SortedColumn(int column) {
    Checked(column);
    sortedColumn_ = column;
}

void Listbox::Sort() {
    Checked(sortedColumn_);
    const bool ascending = ColumnSortDirection(sortedColumn_) == SortDirection::Ascending;
    const std::vector<std::int64_t> newRows = rows_.Sort(sortedColumn_, ascending);
    if (listIndex_ >= 0) {
        listIndex_ = newRows[static_cast<std::size_t>(listIndex_)];
    }
    ToView(&NativeList::Sorted, sortedColumn_, ascending);
}

void Listbox::ClickHeading(const ToolkitKey&, int column) {
    FromUser([this, column] {
        const bool turns = column == sortedColumn_ && ColumnSortDirection(column) == SortDirection::Ascending;
        ColumnSortDirection(column, turns ? SortDirection::Descending : SortDirection::Ascending);
        SortedColumn(column);
        Sort();
    });
}

void Listbox::SelectByUser(const ToolkitKey&, std::int64_t row) {
    FromUser([this, row] {
        if (row == listIndex_) {
            Raise(Change, *this);
        } else {
            ListIndex(std::min(row, LastIndex()));
        }
    });
}

void Listbox::DoubleClickByUser(const ToolkitKey&) {
    FromUser([this] { Raise(DoubleClick, *this); });
}

bool Listbox::PaintCellBackground(const ToolkitKey&, Graphics& graphics, std::int64_t row, int column) {
    bool painted = false;
    ToPaint([&] {
        if (CellBackgroundPaint) {
            painted = CellBackgroundPaint(*this, graphics, row, column);
        }
    });
    return painted;
}

void Listbox::MarksChanged() {
    ToView(&NativeList::MarksChanged);
}

std::string Listbox::NoteOf(const ToolkitKey&, std::int64_t row, int column) {
    std::string note;
    ToPaint([&] {
        if (CellNote) {
            note = CellNote(*this, row, column);
        }
    });
    return note;
}

void Listbox::ForEachMark(const ToolkitKey&, const std::function<void(std::int64_t row)>& take) {
    FromUser([&] {
        for (std::int64_t row = 0; RowMarked && row <= LastIndex(); ++row) {
            if (RowMarked(*this, row)) {
                take(row);
            }
        }
    });
}

std::vector<ContextCommand> Listbox::CommandsOfRow(const ToolkitKey&) {
    std::vector<ContextCommand> commands;
    FromUser([&] {
        if (ContextMenu && listIndex_ >= 0) {
            commands = ContextMenu(*this);
        }
    });
    return commands;
}

void Listbox::RunCommand(const ToolkitKey&, const ContextCommand& command) {
    FromUser(command.run);
}

void Listbox::Copy(const ToolkitKey& key) {
    FromUser([&] {
        if (CanCopy(key)) {
            CopyToClipboard(CopyText(*this));
        }
    });
}

} // namespace folimark
