#pragma once

#include <QAbstractTableModel>

namespace folimark {

class Listbox;

/// Shows a list's rows to its view. It may know fewer rows than the list has: new ones are announced in
/// batches.
class RowsModel : public QAbstractTableModel {
  public:
    RowsModel(const Listbox& list, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Tells the view of all rows that have been added.
    void Announce();
    void BeginRemove(int row);
    void EndRemove();
    void Reset();
    /// All rows have changed places.
    void Reordered();
    void CellChanged(int row, int column);

  private:
    const Listbox& list_;
    int announced_ = 0;
};

} // namespace folimark
