#include "Application.h"
#include "EditCommands.h"
#include "NativeWindow.h"
#include "OpenWindows.h"
#include "ToolkitKey.h"
#include "Window.h"

namespace folimark {
namespace {

/// Asks all windows, closes them, and ends the application.
void QuitByUser() {
    const std::vector<Ref<Window>> windows = OpenWindows();
    for (const Ref<Window>& window : windows) {
        if (window->Event_CancelClose(true)) {
            return;
        }
    }
    for (const Ref<Window>& window : windows) {
        window->CloseUnasked();
    }
    Quit(0);
}

} // namespace

void Window::MenuHandler(const std::string& itemName, std::function<bool()> handler) {
    if (!menuBar_ || !menuBar_->Find(itemName)) {
        throw NameNotFoundException("The menu bar has no item “" + itemName + "”.");
    }
    menuHandlers_[itemName] = std::move(handler);
}

void Window::KeyHandler(const std::string& key, std::function<void()> handler) {
    native_->AddKey(key, std::move(handler));
}

void Window::ChooseMenuItem(const ToolkitKey&, const Ref<MenuItem>& item) {
    UpdateMenuItems(kToolkit);
    if (!item->Enabled()) {
        return;
    }
    if (const auto found = menuHandlers_.find(item->Name()); found != menuHandlers_.end()) {
        const auto handler = found->second;
        if (handler()) {
            return;
        }
    }
    if (item.As<QuitMenuItem>()) {
        QuitByUser();
    } else {
        RunEditCommand(item->Name());
    }
}

void Window::UpdateMenuItems(const ToolkitKey&) {
    if (!menuBar_) {
        return;
    }
    for (const Ref<MenuItem>& menu : menuBar_->Children()) {
        for (const Ref<MenuItem>& item : menu->Children()) {
            const bool served = menuHandlers_.contains(item->Name()) || item.As<QuitMenuItem>();
            item->Enabled((item->AutoEnable() && served) || CanRunEditCommand(item->Name()));
        }
    }
    Event_EnableMenuItems();
}

} // namespace folimark
