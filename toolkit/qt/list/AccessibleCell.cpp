#include "AccessibleCell.h"

#include "Listbox.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

#include <QTimer>

namespace folimark {

bool AccessibleCell::isValid() const {
    return view_ && row_ < view_->model()->rowCount() && row_ <= view_->List().LastIndex();
}

QWindow* AccessibleCell::window() const {
    return view_ ? view_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* AccessibleCell::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    switch (kind) {
    case QAccessible::Name:
        return view_->model()->index(row_, column_).data().toString();
    case QAccessible::Description:
        return AsDisplayed(view_->List().NoteOf(kToolkit, row_, column_));
    default:
        return {};
    }
}

QRect AccessibleCell::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect rect = view_->visualRect(view_->model()->index(row_, column_));
    return rect.isNull() ? rect : rect.translated(view_->viewport()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.readOnly = true;
    state.selected = isSelected();
    state.focused = isSelected() && column_ == 0 && view_->hasFocus();
    state.disabled = !view_->isEnabled();
    state.invisible = !view_->isVisible() || view_->isColumnHidden(column_);
    state.offscreen =
        !view_->viewport()->rect().intersects(view_->visualRect(view_->model()->index(row_, column_)));
    return state;
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface*>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface*>(this);
    default:
        return nullptr;
    }
}

bool AccessibleCell::isSelected() const {
    return isValid() && view_->List().ListIndex() == row_;
}

QStringList AccessibleCell::actionNames() const {
    return {pressAction(), setFocusAction()};
}

void AccessibleCell::doAction(const QString& name) {
    if (!isValid()) {
        return;
    }
    if (name == setFocusAction()) {
        view_->setFocus(Qt::OtherFocusReason);
    }
    if (row_ != view_->List().ListIndex()) {
        view_->List().SelectByUser(kToolkit, row_);
    }
    if (name == pressAction() && view_) {
        // The command may ask questions; who asked for it isn't kept waiting.
        QTimer::singleShot(0, view_, [view = view_.data()] { view->List().DoubleClickByUser(kToolkit); });
    }
}

} // namespace folimark
