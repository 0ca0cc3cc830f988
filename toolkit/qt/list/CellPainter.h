#pragma once

#include <QStyledItemDelegate>

namespace folimark {

class ListView;

/// Paints a cell: the background that the list's owner wants, the selection, and the text.
class CellPainter : public QStyledItemDelegate {
  public:
    /// What is kept free on both sides of a text, in logical pixels.
    static constexpr int kTextMargin = 6;

    explicit CellPainter(ListView* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    ListView& view_;
};

} // namespace folimark
