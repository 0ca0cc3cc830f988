#include "CellPainter.h"

#include "ListView.h"
#include "Listbox.h"
#include "NativeSurface.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

#include <QHelpEvent>
#include <QPainter>

namespace folimark {
namespace {

// The selected row, in a window that has the keyboard and in one that hasn't. The row's own background stays
// to be seen at its ends, so that a coloured row can be told while it is selected.
const QColor kSelection(0x2A, 0x5D, 0xB0);
const QColor kSelectionText(Qt::white);
const QColor kIdleSelection(0xC3, 0xCF, 0xE2);
const QColor kText(Qt::black);
// Both in a list that is disabled.
const QColor kDimmedSelection(0xE0, 0xE0, 0xE0);
const QColor kDimmedText(0x6B, 0x6B, 0x6B);
// What stands behind a text.
const QColor kNote(0x55, 0x55, 0x55);
const QColor kSelectionNote(0xDD, 0xE6, 0xF4);
constexpr int kNoteDistance = 12;
constexpr int kEndWidth = 4;

void PaintSelection(QPainter& painter, QRect cell, const QColor& color, bool isFirst, bool isLast) {
    if (isFirst) {
        cell.setLeft(cell.left() + kEndWidth);
    }
    if (isLast) {
        cell.setRight(cell.right() - kEndWidth);
    }
    painter.fillRect(cell, color);
}

QRect RoomIn(const QRect& cell) {
    return cell.adjusted(CellPainter::kTextMargin, 0, -CellPainter::kTextMargin, 0);
}

/// Draws one line, shortened if need be. A name that is read from the right stays at its column's side, with
/// its extension at its end. All stand on the line that the list's own font has, also those for which another
/// has to step in.
void DrawLine(QPainter& painter, const QRect& room, const QString& text, Qt::Alignment alignment) {
    painter.setLayoutDirection(Qt::LeftToRight);
    const QFontMetrics metrics = painter.fontMetrics();
    const QString line = metrics.elidedText(text, Qt::ElideMiddle, room.width());
    const int left =
        alignment.testFlag(Qt::AlignRight) ? room.right() + 1 - metrics.horizontalAdvance(line) : room.left();
    painter.drawText(left, room.top() + (room.height() - metrics.height()) / 2 + metrics.ascent(), line);
}

} // namespace

QColor CellPainter::SelectionColor() {
    return kSelection;
}

CellPainter::CellPainter(ListView* view) : QStyledItemDelegate(view), view_(*view) {}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    painter->save();
    painter->setClipRect(option.rect);
    Graphics background(
        std::make_unique<PaintedSurface>(*painter, option.rect, option.palette.color(QPalette::Base)));
    const bool painted = view_.List().PaintCellBackground(kToolkit, background, index.row(), index.column());
    const bool selected = index.row() == view_.List().ListIndex();
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool active = enabled && option.state.testFlag(QStyle::State_Active);
    if (selected) {
        PaintSelection(*painter, option.rect,
                       active    ? kSelection
                       : enabled ? kIdleSelection
                                 : kDimmedSelection,
                       index.column() == 0, index.column() == view_.List().ColumnCount() - 1);
    }
    if (!painted) {
        const QRect room = RoomIn(option.rect);
        const QString text = index.data(Qt::DisplayRole).toString();
        painter->setFont(view_.font());
        painter->setPen(selected && active ? kSelectionText : enabled ? kText : kDimmedText);
        DrawLine(*painter, room, text, static_cast<Qt::Alignment>(index.data(Qt::TextAlignmentRole).toInt()));
        const QString note = AsDisplayed(view_.List().NoteOf(kToolkit, index.row(), index.column()));
        const int start = view_.fontMetrics().horizontalAdvance(text) + kNoteDistance;
        if (!note.isEmpty() && start < room.width()) {
            painter->setPen(selected && active ? kSelectionNote : enabled ? kNote : kDimmedText);
            DrawLine(*painter, room.adjusted(start, 0, 0, 0), note, Qt::AlignLeft);
        }
    }
    painter->restore();
}

bool CellPainter::Fits(const QString& text, const QString& note, const QRect& cell,
                       const QFontMetrics& metrics) {
    const int ofNote = note.isEmpty() ? 0 : kNoteDistance + metrics.horizontalAdvance(note);
    return metrics.horizontalAdvance(text) + ofNote <= RoomIn(cell).width();
}

bool CellPainter::helpEvent(QHelpEvent* /*event*/, QAbstractItemView* /*view*/,
                            const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) {
    return false; // The list's own tooltip serves all cells.
}

} // namespace folimark
