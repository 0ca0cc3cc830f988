#include "InputWatch.h"

#include "EventGate.h"
#include "OpenWindows.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QApplication>
#include <QEvent>
#include <QMenuBar>
#include <QWindow>

namespace folimark {
namespace {

/// The open window, and its frame, that the window system knows as `native`; null for dialogs and menus, and
/// for what has closed.
std::pair<Ref<Window>, WindowFrame*> FindOpenWindow(const QObject* native) {
    for (const Ref<Window>& window : OpenWindows()) {
        auto* frame = dynamic_cast<WindowFrame*>(window->Native(kToolkit));
        if (frame != nullptr && frame->windowHandle() == native) {
            return {window, frame};
        }
    }
    return {};
}

/// The keyboard that is given to a window behind a dialog is passed on to the dialog. If that closes at that
/// moment, no window counts as active any more and no shortcut would be heard; but input shows who has it.
void ActivateIfNoneIs(WindowFrame& frame) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (QApplication::activeWindow() == nullptr && QApplication::activePopupWidget() == nullptr
        && (modal == nullptr || modal == &frame)) {
        QApplication::setActiveWindow(&frame);
    }
}

bool IsClick(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
           || type == QEvent::MouseButtonRelease || type == QEvent::ContextMenu;
}

} // namespace

bool InputWatch::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched->isWindowType() && (type == QEvent::ShortcutOverride || type == QEvent::MouseButtonPress)) {
        const auto [window, frame] = FindOpenWindow(watched);
        if (frame != nullptr) {
            ActivateIfNoneIs(*frame);
        }
        if (frame != nullptr && type == QEvent::ShortcutOverride) {
            // A menu that has just closed has the keyboard given back; this key is for whoever gets it.
            QCoreApplication::sendPostedEvents(frame, QEvent::MetaCall);
            // The window system only tries the shortcuts of items that are enabled.
            EnterApplication([&] { window->UpdateMenuItems(kToolkit); });
        }
    }
    const auto* const widget = IsClick(type) ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr) {
        return false;
    }
    // A click is the end of what the keyboard has begun in the menu bar.
    if (type == QEvent::MouseButtonPress && qobject_cast<const QMenuBar*>(widget) == nullptr) {
        if (auto* frame = dynamic_cast<WindowFrame*>(widget->window())) {
            frame->ReturnKeyboard();
        }
    }
    // One that was on its way when the window or the menu closed would be served all the same.
    return !widget->isVisible();
}

} // namespace folimark
