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

} // namespace folimark
