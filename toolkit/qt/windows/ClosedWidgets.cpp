#include "ClosedWidgets.h"

#include "EventGate.h"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <malloc.h>
#include <utility>
#include <vector>

namespace folimark {
namespace {

/// Milliseconds between attempts. A closed window may wait for as long as a dialog stands.
constexpr int kBetweenAttempts = 100;

std::vector<QPointer<QWidget>>& ClosedWidgets() {
    static std::vector<QPointer<QWidget>> widgets;
    return widgets;
}

QTimer& Attempts() {
    static QTimer* const timer = [] {
        auto* made = new QTimer(QCoreApplication::instance());
        made->setInterval(kBetweenAttempts);
        QObject::connect(made, &QTimer::timeout, [] { DeleteClosedWidgets(); });
        return made;
    }();
    return *timer;
}

/// The outermost loop is the first; what isn't ours (a drag, a menu of a text field) has loops of its own.
bool IsIdle() {
    return !IsHandlingEvent() && QThread::currentThread()->loopLevel() <= 1;
}

} // namespace

void DeleteWhenIdle(QWidget* closed) {
    ClosedWidgets().emplace_back(closed);
    Attempts().start();
}

void DeleteClosedWidgets() {
    if (!IsIdle()) {
        return;
    }
    for (const QPointer<QWidget>& widget : std::exchange(ClosedWidgets(), {})) {
        delete widget;
    }
    if (ClosedWidgets().empty()) {
        Attempts().stop();
        // A large album leaves hundreds of megabytes behind, free but not the system's again.
        malloc_trim(0);
    }
}

bool DeletionWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::DeferredDelete || !watched->isWidgetType() || IsIdle()) {
        return false;
    }
    DeleteWhenIdle(static_cast<QWidget*>(watched));
    return true;
}

} // namespace folimark
