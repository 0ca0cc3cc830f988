#include "KeyBacklog.h"
#include "ListView.h"
#include "Listbox.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

#include <QApplication>
#include <QDateTime>
#include <QKeyEvent>

#include <algorithm>

namespace folimark {
namespace {

/// Is it a key by itself, or with the shift key, and so no shortcut?
bool IsPlain(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
}

} // namespace

bool ListView::MoveByKey(int key) {
    const auto current = list_.ListIndex();
    const std::int64_t last = list_.LastIndex();
    const std::int64_t page = std::max(1, viewport()->height() / rowHeight_ - 1);
    std::int64_t row = 0;
    switch (key) {
    case Qt::Key_Home:
        break;
    case Qt::Key_Up:
        row = current - 1;
        break;
    case Qt::Key_Down:
        row = current + 1;
        break;
    case Qt::Key_PageUp:
        row = current - page;
        break;
    case Qt::Key_PageDown:
        row = current + page;
        break;
    case Qt::Key_End:
        row = last;
        break;
    default:
        return false;
    }
    row = std::clamp<std::int64_t>(row, 0, std::max<std::int64_t>(last, 0));
    if (row <= last && row != current) {
        list_.SelectByUser(kToolkit, row);
        // While a key is held the queue never runs empty, and that is when widgets would be painted.
        window()->repaint();
    }
    return true;
}

bool ListView::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        // Here, because Tab never gets as far as to keyPressEvent.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (backlog_->IsLate(key) && IsPlain(key)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (IsPlain(*event)) {
        if (!event->modifiers().testFlag(Qt::ShiftModifier) && MoveByKey(event->key())) {
            typed_.clear();
            return;
        }
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            list_.DoubleClickByUser(kToolkit);
            return;
        }
        if (!event->text().isEmpty() && event->text().front().isPrint()) {
            keyboardSearch(event->text());
            return;
        }
    }
    event->ignore(); // The window's turn.
}

bool ListView::ClickHeading(int column) {
    if (!list_.HasHeading() || column >= list_.ColumnCount() || isColumnHidden(column)) {
        return false;
    }
    list_.ClickHeading(kToolkit, column);
    return true;
}

void ListView::keyboardSearch(const QString& text) {
    const std::int64_t now = QDateTime::currentMSecsSinceEpoch();
    const bool goesOn = now - typedAt_ < QApplication::keyboardInputInterval();
    typedAt_ = now;
    // The same letter again and again steps through the entries that start with it.
    const bool steps = goesOn && typed_.size() == 1 && typed_ == text;
    typed_ = goesOn && !steps ? typed_ + text : text;
    const std::int64_t from = typed_.size() > 1 ? list_.ListIndex() : list_.ListIndex() + 1;
    std::int64_t row = list_.Rows().FindPrefix(ToText(typed_), from);
    if (row < 0 && !list_.PathSeparator().empty()) {
        row = list_.Rows().FindPrefix(ToText(typed_), from, list_.PathSeparator());
    }
    if (row >= 0 && row != list_.ListIndex()) {
        list_.SelectByUser(kToolkit, row);
    }
}

} // namespace folimark
