#include "InputWatch.h"

#include "EventGate.h"
#include "FrontFrame.h"
#include "OpenWindows.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

namespace folimark {
namespace {

/// The open window that the window system knows as `native`; null for dialogs and menus, and for what has
/// closed.
Ref<Window> FindOpenWindow(const QWindow& native) {
    for (const Ref<Window>& window : OpenWindows()) {
        const auto* frame = dynamic_cast<WindowFrame*>(window->Native(kToolkit));
        if (frame != nullptr && frame->windowHandle() == &native) {
            return window;
        }
    }
    return nullptr;
}

bool MayHaveKeyboard(const WindowFrame& frame) {
    const QWidget* modal = QApplication::activeModalWidget();
    return QApplication::activePopupWidget() == nullptr && (modal == nullptr || modal == &frame);
}

/// The keyboard that is given to a window behind a dialog is passed on to the dialog. If that closes at that
/// moment, no window counts as active any more and no shortcut would be heard; but input shows who has it.
void ActivateIfNoneIs(WindowFrame& frame) {
    if (QApplication::activeWindow() == nullptr && MayHaveKeyboard(frame)) {
        QApplication::setActiveWindow(&frame);
    }
}

/// Each press of a key is a ShortcutOverride first.
bool IsKey(QEvent::Type type) {
    return type == QEvent::ShortcutOverride || type == QEvent::KeyPress || type == QEvent::KeyRelease;
}

/// What is to be done before the open window gets a key or a click.
void Prepare(const QWindow& native, QEvent::Type type) {
    const Ref<Window> window = FindOpenWindow(native);
    if (!window) {
        return;
    }
    auto& frame = dynamic_cast<WindowFrame&>(*window->Native(kToolkit));
    ActivateIfNoneIs(frame);
    if (type == QEvent::ShortcutOverride) {
        // A menu that has just closed has the keyboard given back; this key is for whoever gets it.
        QCoreApplication::sendPostedEvents(&frame, QEvent::MetaCall);
        // The window system only tries the shortcuts of items that are enabled.
        EnterApplication([&] { window->UpdateMenuItems(kToolkit); });
    }
}

bool FilterForWidget(const QWidget& widget, QEvent::Type type) {
    const bool isClick = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
                         || type == QEvent::MouseButtonRelease || type == QEvent::ContextMenu;
    // A click is the end of what the keyboard has begun in the menu bar.
    if (type == QEvent::MouseButtonPress && qobject_cast<const QMenuBar*>(&widget) == nullptr) {
        if (auto* frame = dynamic_cast<WindowFrame*>(widget.window())) {
            frame->ReturnKeyboard();
        }
    }
    // What was on its way when the window or the menu closed would be served all the same, or choose.
    const bool chooses = type == QEvent::KeyPress && qobject_cast<const QMenu*>(&widget) != nullptr;
    return (isClick || chooses) && !widget.isVisible();
}

} // namespace

bool InputWatch::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWidgetType()) {
        return FilterForWidget(static_cast<const QWidget&>(*watched), event->type());
    }
    if (!watched->isWindowType()) {
        return false;
    }
    const auto& window = static_cast<const QWindow&>(*watched);
    const QEvent::Type type = event->type();
    if (IsKey(type) && window.type() == Qt::Popup && !window.isVisible() && PassOnKey(*event)) {
        return true;
    }
    if (type == QEvent::ShortcutOverride || type == QEvent::MouseButtonPress) {
        cameLate_ = false;
        Prepare(window, type);
    }
    return false;
}

bool InputWatch::PassOnKey(QEvent& key) {
    const bool isPress = key.type() == QEvent::ShortcutOverride;
    const auto* frame = dynamic_cast<WindowFrame*>(FrontFrame());
    if (frame == nullptr || !MayHaveKeyboard(*frame) || (!isPress && !cameLate_)) {
        return false;
    }
    QCoreApplication::sendEvent(frame->windowHandle(), &key);
    cameLate_ |= isPress;
    return true;
}

} // namespace folimark
