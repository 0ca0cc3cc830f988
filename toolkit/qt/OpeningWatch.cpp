#include "OpeningWatch.h"

#include "BusyPointer.h"
#include "EventGate.h"
#include "FolderItem.h"
#include "MessageDialog.h"

#include <QGuiApplication>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <sys/eventfd.h>
#include <sys/wait.h>

namespace folimark {
namespace {

// In milliseconds.
constexpr int kBusyTime = 4000;
/// Some openers stay until the program that they have started ends, and end as it does: that is no failed
/// opening.
constexpr int kWatchTime = 20'000;

// What xdg-open ends with if there is no application for a file.
constexpr int kNoApplication = 3;

std::string Reason(const std::string& nativePath, int exitStatus) {
    const Ref<FolderItem> item = FolderItem::FromNativePath(nativePath);
    if (item && item->Gone()) {
        return "It isn’t there any more.";
    }
    return exitStatus == kNoApplication
               ? "The desktop has no application for it."
               : "The desktop could not find out how, or its application has failed.";
}

void Tell(const std::string& nativePath, const std::string& reason) {
    EnterApplication([&] {
        const Ref<MessageDialog> box = New<MessageDialog>();
        box->Icon(DialogIcon::Caution);
        box->Message("“" + nativePath.substr(nativePath.rfind('/') + 1) + "” could not be opened.");
        box->Explanation(reason);
        box->ShowModal();
    });
}

/// Lives as long as it is of interest, and deletes itself.
class Opening : public QObject {
  public:
    Opening(std::string nativePath, Descriptor status)
        : path_(std::move(nativePath)), status_(std::move(status)), busy_(std::make_unique<BusyPointer>()),
          notifier_(status_.Get(), QSocketNotifier::Read) {
        connect(&notifier_, &QSocketNotifier::activated, this, [this] { End(); });
        connect(qApp, &QGuiApplication::applicationStateChanged, this, [this] { busy_.reset(); });
        QTimer::singleShot(kBusyTime, this, [this] { busy_.reset(); });
        QTimer::singleShot(kWatchTime, this, &QObject::deleteLater);
    }

  private:
    void End() {
        notifier_.setEnabled(false);
        busy_.reset();
        deleteLater();
        eventfd_t told = 0;
        const int status = eventfd_read(status_.Get(), &told) == 0 ? static_cast<int>(told - 1) : 0;
        if (WIFEXITED(status) && WEXITSTATUS(status) != 0) {
            // The box lets events in, and with them the end of this object.
            const std::string path = path_;
            Tell(path, Reason(path, WEXITSTATUS(status)));
        }
    }

    std::string path_;
    Descriptor status_;
    std::unique_ptr<BusyPointer> busy_;
    QSocketNotifier notifier_;
};

} // namespace

void WatchOpening(const std::string& nativePath, Descriptor status) {
    if (status) {
        new Opening(nativePath, std::move(status));
    } else {
        QTimer::singleShot(0, qApp, [nativePath] {
            Tell(nativePath, "The program xdg-open, which hands files to the desktop, could not be started.");
        });
    }
}

} // namespace folimark
