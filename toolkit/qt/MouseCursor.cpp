#include "MouseCursor.h"

#include "Application.h"
#include "BusyPointer.h"

#include <QApplication>

#include <utility>

namespace folimark {
namespace {

MouseCursorShape chosen = MouseCursorShape::Default;
int busy = 0;

void ShowPointer() {
    static bool isOverridden = false;
    const bool overrides = busy > 0 || chosen != MouseCursorShape::Default;
    if (std::exchange(isOverridden, overrides)) {
        QApplication::restoreOverrideCursor();
    }
    if (overrides) {
        QApplication::setOverrideCursor(busy > 0                               ? Qt::BusyCursor
                                        : chosen == MouseCursorShape::HandOpen ? Qt::OpenHandCursor
                                                                               : Qt::ClosedHandCursor);
    }
}

} // namespace

void Application::MouseCursor(MouseCursorShape shape) {
    if (shape == cursor_) {
        return; // A scan sets it again for every row.
    }
    cursor_ = shape;
    chosen = shape;
    ShowPointer();
}

BusyPointer::BusyPointer() {
    ++busy;
    ShowPointer();
}

BusyPointer::~BusyPointer() {
    --busy;
    ShowPointer();
}

} // namespace folimark
