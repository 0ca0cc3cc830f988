#pragma once

#include "NativeList.h"

#include <QTableView>
#include <QTimer>

namespace folimark {

class KeyBacklog;
class Listbox;
class MarkedScrollBar;
class RowsModel;

/// The view of a Listbox: rows of a fixed height, backgrounds painted by the list's owner, also behind the
/// last row, and one selected row, which follows the list's ListIndex.
class ListView : public QTableView, public NativeList {
  public:
    ListView(Listbox& list, QWidget* parent);
    ~ListView() override;

    void RowAdded() override;
    void BeginRemove(std::int64_t row) override;
    void EndRemove() override;
    void Reset() override;
    void Sorted(int column, bool ascending) override;
    void CellChanged(std::int64_t row, int column) override;
    void ShowColumns(const std::string& widths) override;
    void ShowSelection() override;
    void MarksChanged() override;

    /// Sets the height of the rows, in logical pixels; the columns' widths go with it.
    void Measure(int rowHeight);

    /// As a click on a heading does it. \returns whether there is such a heading to be seen.
    bool ClickHeading(int column);

    Listbox& List() const { return list_; }

    void keyboardSearch(const QString& text) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    bool MoveByKey(int key);
    void PaintEmptyRows();
    void PaintFocusRing();
    void PaintEmptyText();
    /// The whole text of a cell that is cut off; "" of any other.
    QString CutOffText(const QModelIndex& index) const;
    void ShowHint(const QHelpEvent& event);
    /// Gives the columns their widths. Where there is too little room the first one has what is left.
    void ShareWidth();

    Listbox& list_;
    RowsModel* model_;
    std::unique_ptr<KeyBacklog> backlog_;
    std::vector<int> widths_; // units
    int rowHeight_ = 0;
    QString typed_;
    std::int64_t typedAt_ = 0;
    QTimer announcement_;
    MarkedScrollBar* marks_;
    /// Has the help tag been shown since the pointer came to the list?
    bool hinted_ = false;
};

} // namespace folimark
