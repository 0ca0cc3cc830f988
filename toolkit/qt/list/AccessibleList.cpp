#include "AccessibleList.h"

#include "AccessibleCell.h"
#include "EventGate.h"
#include "Listbox.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

namespace folimark {
namespace {

// Several screens full. Who reads a list from end to end would make as many objects as it has cells. It may
// be more while an event is being handled: the event may have come through one of the cells.
constexpr std::size_t kMostCells = 1'000;

} // namespace

AccessibleList::AccessibleList(ListView* view) : QAccessibleWidget(view, QAccessible::Table) {}

AccessibleList::~AccessibleList() {
    ForgetCells();
}

void AccessibleList::ForgetCells() const {
    for (const auto& [index, id] : cells_) {
        QAccessible::deleteAccessibleInterface(id);
    }
    cells_.clear();
}

void AccessibleList::MakeRoomFor(std::size_t cells) const {
    if (cells_.size() + cells > kMostCells && !IsHandlingEvent()) {
        ForgetCells();
    }
}

ListView* AccessibleList::View() const {
    return static_cast<ListView*>(object());
}

void* AccessibleList::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int AccessibleList::rowCount() const {
    return View()->model()->rowCount();
}

int AccessibleList::columnCount() const {
    return View()->model()->columnCount();
}

int AccessibleList::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* AccessibleList::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (const auto found = cells_.find(index); found != cells_.end()) {
        return QAccessible::accessibleInterface(found->second);
    }
    MakeRoomFor(1);
    auto* cell = new AccessibleCell(View(), index / columnCount(), index % columnCount());
    cells_[index] = QAccessible::registerAccessibleInterface(cell);
    return cell;
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const AccessibleCell*>(child);
    return cell == nullptr ? -1 : cell->rowIndex() * columnCount() + cell->columnIndex();
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
    const QModelIndex index = View()->indexAt(View()->viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* AccessibleList::focusChild() const {
    return View()->hasFocus() ? cellAt(static_cast<int>(View()->List().ListIndex()), 0) : nullptr;
}

QAccessibleInterface* AccessibleList::cellAt(int row, int column) const {
    const bool exists = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return exists ? child(row * columnCount() + column) : nullptr;
}

int AccessibleList::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

int AccessibleList::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> AccessibleList::selectedCells() const {
    // Room for all is made first: no cell may be forgotten for another's sake.
    MakeRoomFor(static_cast<std::size_t>(selectedCellCount()));
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            cells.append(cellAt(row, column));
        }
    }
    return cells;
}

QList<int> AccessibleList::selectedRows() const {
    const std::int64_t row = View()->List().ListIndex();
    return row >= 0 && row < rowCount() ? QList<int>{static_cast<int>(row)} : QList<int>();
}

QString AccessibleList::columnDescription(int column) const {
    return View()->model()->headerData(column, Qt::Horizontal).toString();
}

bool AccessibleList::isRowSelected(int row) const {
    return selectedRows().contains(row);
}

bool AccessibleList::selectRow(int row) {
    if (row < 0 || row >= rowCount()) {
        return false;
    }
    if (!isRowSelected(row)) {
        View()->List().SelectByUser(kToolkit, row);
    }
    return true;
}

} // namespace folimark
