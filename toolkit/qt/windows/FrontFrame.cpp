#include "FrontFrame.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace folimark {
namespace {

QPointer<QWidget>& LastFrame() {
    static QPointer<QWidget> frame;
    return frame;
}

class Restorer : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::WindowStateChange && window != nullptr && window->isMinimized()) {
            QTimer::singleShot(0, window, [window] {
                window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
                window->activateWindow();
            });
        }
        return false;
    }
};

} // namespace

QWidget* FrontFrame() {
    QWidget* active = QApplication::activeWindow();
    if (active == nullptr && LastFrame() && LastFrame()->isVisible()) {
        return LastFrame();
    }
    return active;
}

QWidget* FrontFrameBefore() {
    return LastFrame();
}

void NoteFrontFrame(QWidget& frame) {
    LastFrame() = &frame;
}

void CentreOver(QWidget& window, const QWidget& front) {
    const QRect room = front.screen()->availableGeometry();
    QRect place(QPoint(0, 0), window.size());
    place.moveCenter(front.frameGeometry().center());
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    window.move(place.topLeft());
}

void RefuseToBeMinimised(QWidget& window) {
    window.installEventFilter(new Restorer(&window));
}

} // namespace folimark
