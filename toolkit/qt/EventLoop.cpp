#include "EventLoop.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

namespace folimark {

void RunEventLoop(std::function<void()> first) {
    QTimer::singleShot(0, std::move(first));
    QCoreApplication::exec();
}

void EndEventLoop(int exitCode) {
    QCoreApplication::exit(exitCode);
}

std::shared_ptr<void> WatchDescriptor(int descriptor, std::function<void()> ready) {
    auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(ready));
    return notifier;
}

std::shared_ptr<void> CallAfter(std::chrono::milliseconds pause, std::function<void()> due) {
    const auto letGo = [](QTimer* timer) { // which may be the one that calls just now
        timer->stop();
        timer->deleteLater();
    };
    const std::shared_ptr<QTimer> timer(new QTimer, letGo);
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(due));
    timer->start(pause);
    return timer;
}

} // namespace folimark
