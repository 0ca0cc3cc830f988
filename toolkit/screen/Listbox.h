#pragma once

#include "ContextCommand.h"
#include "Graphics.h"
#include "ListRows.h"
#include "RectControl.h"
#include "Units.h"

#include <cstdint>
#include <vector>

namespace folimark {

class NativeList;

enum class ColumnAlign : std::uint8_t { Left = 1, Right = 3 };
enum class SortDirection : std::int8_t { Ascending = 1, Descending = -1 };

/// A list of rows with one or more columns, sortable by its headings. Rows and columns count from 0; a
/// ListIndex of -1 means that no row is selected. Rows are 16 units high. A row or column outside
/// the list raises OutOfBoundsException everywhere.
///
/// New rows reach the screen in batches, when the event loop runs. A double click, and Return on the selected
/// row, raise DoubleClick. A click on the row that is selected already raises Change again, so that a person
/// can ask for a fresh look.
class Listbox : public RectControl {
  public:
    static constexpr int kRowHeight = kUnitsPerRow;

    /// Adds one row at the end, one text for each column.
    void AddRow(const std::vector<std::string_view>& cells);
    void RemoveRow(std::int64_t row);
    void DeleteAllRows();
    std::int64_t LastIndex() const { return rows_.LastIndex(); }

    std::int64_t ListIndex() const { return listIndex_; }
    /// Selects a row, or none with -1, and raises Change if the selection changes, before it returns.
    void ListIndex(std::int64_t row);

    std::string Cell(std::int64_t row, int column) const;
    void Cell(std::int64_t row, int column, const std::string& text);
    std::string RowTag(std::int64_t row) const { return rows_.RowTag(row); }
    void RowTag(std::int64_t row, const std::string& tag) { rows_.RowTag(row, tag); }

    /// The rows themselves, for whoever reads many of them.
    const ListRows& Rows() const { return rows_; }

    /// A list has one column, without a heading, until it is given some.
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    /// Gives the list its columns, one for each heading.
    void Headings(const std::vector<std::string>& headings);
    const std::string& Heading(int column) const { return columns_[Checked(column)].heading; }
    bool HasHeading() const { return hasHeading_; }
    void HorizontalScrollBar(bool has) { horizontalScrollBar_ = has; }
    /// Is a ring to show that the list has the keyboard, also while no row is selected?
    bool UseFocusRing() const { return useFocusRing_; }
    void UseFocusRing(bool use) { useFocusRing_ = use; }
    /// What stands between the names of a path in the first column; "" if that holds none. Typing looks for
    /// the beginning of a path, and for that of its last name if there is no such path.
    const std::string& PathSeparator() const { return pathSeparator_; }
    void PathSeparator(const std::string& separator) { pathSeparator_ = separator; }
    /// What stands in the list's room while it has no row; "" for nothing.
    const std::string& EmptyText() const { return emptyText_; }
    void EmptyText(const std::string& text) { emptyText_ = text; }

    /// All columns' widths in units, joined by ","; 0 hides a column. The last column takes what is
    /// left over, as does every column of a list whose widths are "".
    const std::string& ColumnWidths() const { return columnWidths_; }
    void ColumnWidths(const std::string& widths);
    ColumnAlign ColumnAlignment(int column) const { return columns_[Checked(column)].align; }
    void ColumnAlignment(int column, ColumnAlign align);
    SortDirection ColumnSortDirection(int column) const { return columns_[Checked(column)].direction; }
    void ColumnSortDirection(int column, SortDirection direction);
    int SortedColumn() const { return sortedColumn_; }
    void SortedColumn(int column);
    /// Prepares for a sort by that column with each row that is added.
    void ExpectSort(int column) { rows_.ExpectSort(column); }
    /// Sorts the rows by the text of SortedColumn in its direction. The selection goes with its row, and no
    /// Change is raised.
    void Sort();

    /// The selection changed, by the user or by a write to ListIndex.
    std::function<void(Listbox&)> Change;
    std::function<void(Listbox&)> DoubleClick;
    /// Paints a cell's background; comes for visible cells, and for the empty rows behind the last one. False
    /// lets the list draw the cell's text on top.
    std::function<bool(Listbox&, Graphics&, std::int64_t row, int column)> CellBackgroundPaint;

    /// What stands dimmed behind a cell's text, as far as there is room; "" for nothing. It is only drawn,
    /// and asked for as often as that happens.
    std::function<std::string(Listbox&, std::int64_t row, int column)> CellNote;
    /// Is the row one of those that the scroll bar marks? A click on a mark selects its row. Asked for all
    /// rows after MarksChanged.
    std::function<bool(Listbox&, std::int64_t row)> RowMarked;
    void MarksChanged();
    Color MarkColor() const { return markColor_; }
    void MarkColor(Color color) { markColor_ = color; }
    /// The commands for the selected row; a list without this has no menu.
    std::function<std::vector<ContextCommand>(Listbox&)> ContextMenu;
    /// The text by which the selected row goes to the clipboard; a list without this copies nothing.
    std::function<std::string(Listbox&)> CopyText;

    /// \name For the list's view
    /// @{
    std::string NoteOf(const ToolkitKey&, std::int64_t row, int column);
    /// Calls `take` with each marked row, from the first one on.
    void ForEachMark(const ToolkitKey&, const std::function<void(std::int64_t row)>& take);
    std::vector<ContextCommand> CommandsOfRow(const ToolkitKey&);
    void RunCommand(const ToolkitKey&, const ContextCommand& command);
    bool CanCopy(const ToolkitKey&) const { return listIndex_ >= 0 && CopyText; }
    void Copy(const ToolkitKey&);
    void SelectByUser(const ToolkitKey&, std::int64_t row);
    void DoubleClickByUser(const ToolkitKey&);
    void ClickHeading(const ToolkitKey&, int column);
    bool PaintCellBackground(const ToolkitKey&, Graphics& graphics, std::int64_t row, int column);
    /// @}

  protected:
    void MakeWidget(WindowFrame& frame) override;
    void FitWidget(const WindowFrame& frame) override;

  private:
    struct Column {
        std::string heading;
        ColumnAlign align = ColumnAlign::Left;
        SortDirection direction = SortDirection::Ascending;
    };

    /// Null while there is none.
    NativeList* View() const;
    template <class... Parameters>
    void ToView(void (NativeList::*tell)(Parameters...),
                const std::type_identity_t<Parameters>&... arguments) const;
    std::size_t Checked(int column) const;

    ListRows rows_;
    std::vector<Column> columns_{1};
    std::string columnWidths_;
    std::string emptyText_;
    std::string pathSeparator_;
    Color markColor_ = 0x000000;
    std::int64_t listIndex_ = -1;
    int sortedColumn_ = -1;
    bool hasHeading_ = false;
    bool horizontalScrollBar_ = false;
    bool useFocusRing_ = false;
};

} // namespace folimark
