#include "MenuBarBuilder.h"

#include "EventGate.h"
#include "NativeMenuItem.h"
#include "PlatformText.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace folimark {
namespace {

void AddAction(Window& window, WindowFrame& frame, QMenu& menu, const Ref<MenuItem>& item) {
    QAction* action = menu.addAction(WithPlatformKeys(item->Text()));
    action->setObjectName(ToQString(item->Name()));
    action->setShortcut(AsShortcut(item->KeyboardShortcut()));
    action->setEnabled(item->Enabled());
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, &frame, [&window, item] {
        const Ref<Window> keptAlive(&window);
        EnterApplication([&] { window.ChooseMenuItem(kToolkit, item); });
    });
    QObject::connect(action, &QAction::triggered, &frame, &WindowFrame::ReturnKeyboard, Qt::QueuedConnection);
    std::vector<QPointer<QAction>>& actions = item->Native(kToolkit).actions;
    std::erase_if(actions, [](const QPointer<QAction>& old) { return old.isNull(); });
    actions.emplace_back(action);
}

} // namespace

void BuildMenuBar(Window& window, WindowFrame& frame) {
    QMenuBar* bar = frame.menuBar();
    std::vector<Ref<MenuItem>> aboutApplication;
    QMenu* menu = nullptr;
    for (const Ref<MenuItem>& top : window.MenuBar()->Children()) {
        menu = bar->addMenu(WithPlatformKeys(top->Text()));
        QObject::connect(menu, &QMenu::aboutToShow, &frame,
                         [&window] { EnterApplication([&window] { window.UpdateMenuItems(kToolkit); }); });
        QObject::connect(menu, &QMenu::aboutToHide, &frame, &WindowFrame::ReturnKeyboard,
                         Qt::QueuedConnection);
        for (const Ref<MenuItem>& item : top->Children()) {
            if (item.As<AppleMenuItem>()) {
                aboutApplication.push_back(item);
            } else if (item->IsSeparator()) {
                menu->addSeparator();
            } else if (item->Visible()) {
                AddAction(window, frame, *menu, item);
            }
        }
    }
    if (menu != nullptr && !aboutApplication.empty()) {
        menu->addSeparator();
        for (const Ref<MenuItem>& item : aboutApplication) {
            AddAction(window, frame, *menu, item);
        }
    }
}

} // namespace folimark
