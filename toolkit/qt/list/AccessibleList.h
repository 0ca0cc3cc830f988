#pragma once

#include "ListView.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <unordered_map>

namespace folimark {

/// A list as assistive technology sees it: a table whose cells are its children, row by row. Rows come
/// straight from the list, which may change at any time. The window system's own description of tables keeps
/// an object for each cell that was ever asked for, moves them all with each change, and selects past the
/// list.
class AccessibleList : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit AccessibleList(ListView* view);
    ~AccessibleList() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    /// Cells stand for a row and a column, not for what is in them, so no change of the rows touches them.
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

  private:
    ListView* View() const;
    void ForgetCells() const;
    /// Forgets all cells if there would be too many with so many more.
    void MakeRoomFor(std::size_t cells) const;

    /// The cells that have been asked for, by the index of the child.
    mutable std::unordered_map<int, QAccessible::Id> cells_;
};

} // namespace folimark
