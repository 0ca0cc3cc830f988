#pragma once

#include <QStyledItemDelegate>

namespace folimark {

class ListView;

/// Paints a cell: the background that the list's owner wants, the selection, the text, and a note behind it.
class CellPainter : public QStyledItemDelegate {
  public:
    /// What is kept free on both sides of a text, in logical pixels.
    static constexpr int kTextMargin = 6;

    explicit CellPainter(ListView* view);

    /// The selected row's colour in a window that has the keyboard.
    static QColor SelectionColor();

    /// Has a cell room for the whole of its text, and of the note behind it?
    static bool Fits(const QString& text, const QString& note, const QRect& cell,
                     const QFontMetrics& metrics);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    ListView& view_;
};

} // namespace folimark
