#include "ChildProcess.h"
#include "Descriptor.h"
#include "FolderItem.h"

namespace folimark {
namespace {

std::function<void(const std::string&)>& Handler() {
    static std::function<void(const std::string&)> handler;
    return handler;
}

std::function<void(const std::string&, Descriptor)>& Watcher() {
    static std::function<void(const std::string&, Descriptor)> watcher;
    return watcher;
}

} // namespace

void SetLaunchWatcher(std::function<void(const std::string& nativePath, Descriptor status)> watcher) {
    Watcher() = std::move(watcher);
}

void SetLaunchHandler(std::function<void(const std::string& nativePath)> handler) {
    Handler() = std::move(handler);
}

// The application that opens the item decides by itself to come to the front.
void FolderItem::Launch(bool /*activate*/) const {
    if (Handler()) {
        Handler()(NativePath());
    } else {
        std::optional<ChildProcess> opener = StartChild(
            {.command = {"xdg-open", NativePath()}, .environment = {}, .limits = {}, .tellsStatus = true});
        if (Watcher()) {
            Watcher()(NativePath(), opener ? std::move(opener->status) : Descriptor());
        }
    }
}

} // namespace folimark
