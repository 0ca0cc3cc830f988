#include "ChildProcess.h"
#include "FolderItem.h"

namespace folimark {
namespace {

std::function<void(const std::string&)>& Handler() {
    static std::function<void(const std::string&)> handler;
    return handler;
}

} // namespace

void SetLaunchHandler(std::function<void(const std::string& nativePath)> handler) {
    Handler() = std::move(handler);
}

// The application that opens the item decides by itself to come to the front.
void FolderItem::Launch(bool /*activate*/) const {
    if (Handler()) {
        Handler()(NativePath());
    } else {
        StartChild({.command = {"xdg-open", NativePath()}, .environment = {}, .limits = {}});
    }
}

} // namespace folimark
