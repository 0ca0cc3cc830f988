#include "Application.h"
#include "EditCommands.h"
#include "Window.h"

namespace folimark {

void Window::MenuHandler(const std::string& itemName, std::function<bool()> handler) {
    if (!menuBar_ || !menuBar_->Find(itemName)) {
        throw NameNotFoundException("The menu bar has no item “" + itemName + "”.");
    }
    menuHandlers_[itemName] = std::move(handler);
}

void Window::ChooseMenuItem(const Ref<MenuItem>& item) {
    UpdateMenuItems();
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

void Window::UpdateMenuItems() {
    if (!menuBar_) {
        return;
    }
    for (const Ref<MenuItem>& menu : menuBar_->Children()) {
        for (const Ref<MenuItem>& item : menu->Children()) {
            const bool served = HasMenuHandler(item->Name()) || item.As<QuitMenuItem>();
            item->Enabled((item->AutoEnable() && served) || CanRunEditCommand(item->Name()));
        }
    }
    Event_EnableMenuItems();
}

} // namespace folimark
