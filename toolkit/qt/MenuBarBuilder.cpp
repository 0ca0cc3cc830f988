#include "MenuBarBuilder.h"

#include "EventGate.h"
#include "NativeMenuItem.h"
#include "NativeWindow.h"
#include "PlatformText.h"
#include "Window.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace folimark {
namespace {

void AddAction(Window& window, QMenu& menu, const Ref<MenuItem>& item) {
    QAction* action = menu.addAction(WithPlatformKeys(item->Text()));
    action->setObjectName(ToQString(item->Name()));
    action->setShortcut(AsShortcut(item->KeyboardShortcut()));
    action->setEnabled(item->Enabled());
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, window.Native().frame, [&window, item] {
        const Ref<Window> keptAlive(&window);
        EnterApplication([&] { window.ChooseMenuItem(item); });
    });
    std::erase_if(item->Native().actions, [](const QPointer<QAction>& old) { return old.isNull(); });
    item->Native().actions.emplace_back(action);
}

} // namespace

void BuildMenuBar(Window& window) {
    QMenuBar* bar = window.Native().frame->menuBar();
    std::vector<Ref<MenuItem>> aboutApplication;
    QMenu* menu = nullptr;
    for (const Ref<MenuItem>& top : window.MenuBar()->Children()) {
        menu = bar->addMenu(WithPlatformKeys(top->Text()));
        QObject::connect(menu, &QMenu::aboutToShow, window.Native().frame,
                         [&window] { EnterApplication([&window] { window.UpdateMenuItems(); }); });
        for (const Ref<MenuItem>& item : top->Children()) {
            if (item.As<AppleMenuItem>()) {
                aboutApplication.push_back(item);
            } else if (item->IsSeparator()) {
                menu->addSeparator();
            } else if (item->Visible()) {
                AddAction(window, *menu, item);
            }
        }
    }
    if (menu != nullptr && !aboutApplication.empty()) {
        menu->addSeparator();
        for (const Ref<MenuItem>& item : aboutApplication) {
            AddAction(window, *menu, item);
        }
    }
}

} // namespace folimark
