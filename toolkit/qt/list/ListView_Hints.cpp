#include "CellPainter.h"
#include "EventGate.h"
#include "ListView.h"
#include "Listbox.h"
#include "MarkedScrollBar.h"
#include "PlatformText.h"
#include "RowsModel.h"
#include "ToolkitKey.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

namespace folimark {
namespace {

/// How much of the list's width, and of its height from the top, the text of an empty list takes.
constexpr double kEmptyTextWidth = 0.8;
constexpr double kEmptyTextHeight = 0.8;
const QColor kEmptyTextColor(0x55, 0x55, 0x55);

} // namespace

void ListView::MarksChanged() {
    marks_->MarksChanged();
}

void ListView::PaintEmptyText() {
    if (model_->rowCount() > 0 || list_.EmptyText().empty()) {
        return;
    }
    const QSize room = viewport()->size();
    QRect rect(QPoint(0, 0),
               QSizeF(room.width() * kEmptyTextWidth, room.height() * kEmptyTextHeight).toSize());
    rect.moveCenter(QPoint(room.width() / 2, rect.center().y()));
    QPainter painter(viewport());
    painter.setFont(font());
    painter.setPen(kEmptyTextColor);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextWordWrap, AsDisplayed(list_.EmptyText()));
}

QString ListView::CutOffText(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    QString text = index.data(Qt::DisplayRole).toString();
    const QString note = AsDisplayed(list_.NoteOf(kToolkit, index.row(), index.column()));
    if (CellPainter::Fits(text, note, visualRect(index), fontMetrics())) {
        return {};
    }
    return note.isEmpty() ? text : text + QLatin1Char('\n') + note;
}

void ListView::ShowHint(const QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    const QString whole = CutOffText(index);
    if (!whole.isEmpty()) {
        QToolTip::showText(event.globalPos(), AsWholeName(whole), viewport(), visualRect(index));
    } else if (!hinted_) {
        hinted_ = true;
        QToolTip::showText(event.globalPos(), toolTip(), viewport());
    }
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        ShowHint(static_cast<const QHelpEvent&>(*event));
        return true;
    }
    if (event->type() == QEvent::Leave) {
        hinted_ = false;
    }
    return QTableView::viewportEvent(event);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const std::int64_t row = byMouse ? indexAt(event->pos()).row() : list_.ListIndex();
    if (row < 0) {
        return;
    }
    const QPointer<ListView> self(this);
    const InputHold forTheMenu;
    if (row != list_.ListIndex()) {
        list_.SelectByUser(kToolkit, row);
    }
    if (!self || !isVisible()) {
        return; // To select a row whose file has gone closes the window.
    }
    const std::vector<ContextCommand> commands = list_.CommandsOfRow(kToolkit);
    if (commands.empty()) {
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ContextCommand& command : commands) {
        QAction* action = menu->addAction(AsCaption(command.text));
        action->setEnabled(command.enabled);
        connect(action, &QAction::triggered, this, [this, command] { list_.RunCommand(kToolkit, command); });
    }
    const QRect cell = visualRect(model_->index(static_cast<int>(list_.ListIndex()), 0));
    menu->popup(byMouse ? event->globalPos() : viewport()->mapToGlobal(cell.bottomLeft()));
}

} // namespace folimark
