#include "RowsModel.h"

#include "Listbox.h"
#include "PlatformText.h"

namespace folimark {
namespace {

QVariant AlignmentOf(const Listbox& list, int column) {
    return QVariant::fromValue(
        Qt::AlignVCenter
        | (list.ColumnAlignment(column) == ColumnAlign::Right ? Qt::AlignRight : Qt::AlignLeft));
}

} // namespace

RowsModel::RowsModel(const Listbox& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list), announced_(static_cast<int>(list.LastIndex() + 1)) {}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : announced_;
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.ColumnCount();
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    // A view may still ask for a row that has gone a moment ago.
    if (!index.isValid() || index.row() >= announced_ || index.row() > list_.LastIndex()
        || index.column() >= list_.ColumnCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return AsDisplayed(list_.Rows().Cell(index.row(), index.column()));
    case Qt::TextAlignmentRole:
        return AlignmentOf(list_, index.column());
    default:
        return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= list_.ColumnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return ToQString(list_.Heading(section));
    }
    if (role == Qt::TextAlignmentRole) {
        return AlignmentOf(list_, section);
    }
    return {};
}

void RowsModel::Announce() {
    const int rows = static_cast<int>(list_.LastIndex() + 1);
    if (rows > announced_) {
        beginInsertRows({}, announced_, rows - 1);
        announced_ = rows;
        endInsertRows();
    }
}

void RowsModel::BeginRemove(int row) {
    Announce();
    beginRemoveRows({}, row, row);
}

void RowsModel::EndRemove() {
    announced_ = static_cast<int>(list_.LastIndex() + 1);
    endRemoveRows();
}

void RowsModel::Reset() {
    beginResetModel();
    announced_ = static_cast<int>(list_.LastIndex() + 1);
    endResetModel();
}

void RowsModel::Reordered() {
    Announce();
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // The view sets its selection anew: no index leads to its former row.
    changePersistentIndexList(persistentIndexList(), QModelIndexList(persistentIndexList().size()));
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void RowsModel::CellChanged(int row, int column) {
    if (row < announced_) {
        Q_EMIT dataChanged(index(row, column), index(row, column));
    }
}

} // namespace folimark
