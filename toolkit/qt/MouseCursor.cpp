#include "Application.h"

#include <QApplication>

namespace folimark {

void Application::MouseCursor(MouseCursorShape shape) {
    if (shape == cursor_) {
        return; // A scan sets it again for every row.
    }
    cursor_ = shape;
    QApplication::restoreOverrideCursor();
    if (shape != MouseCursorShape::Default) {
        QApplication::setOverrideCursor(
            QCursor(shape == MouseCursorShape::HandOpen ? Qt::OpenHandCursor : Qt::ClosedHandCursor));
    }
}

} // namespace folimark
