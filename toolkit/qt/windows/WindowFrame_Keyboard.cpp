#include "EventGate.h"
#include "ListView.h"
#include "PlatformText.h"
#include "PushButton.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>

namespace folimark {
namespace {

bool CanHaveKeyboard(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

/// The digit from 1 to 9 of a key in the upper row, also where that takes the shift key, or stands for
/// something else, as in France; 0 of any other key.
int DigitOf(const QKeyEvent& event) {
    constexpr quint32 kScanCodeOf1 = 10; // of X11 and Wayland
    if (event.key() >= Qt::Key_1 && event.key() <= Qt::Key_9) {
        return event.key() - Qt::Key_0;
    }
    const quint32 place = event.nativeScanCode() - kScanCodeOf1;
    return place < 9 ? static_cast<int>(place) + 1 : 0;
}

/// Does a key walk through a list?
bool Walks(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown
           || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

void WindowFrame::AddKey(const std::string& key, std::function<void()> handler) {
    auto* shortcut = new QShortcut(QKeySequence(ToQString(key)), this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, [this, handler = std::move(handler)] {
        const Ref<Window> window(window_);
        EnterApplication(handler);
    });
}

void WindowFrame::TakeKeyboard(bool comesBack) {
    for (const Ref<RectControl>& control : window_->Controls(kToolkit)) {
        if (comesBack && control->Name() == layout_.keyboardHome) {
            control->SetFocus();
        }
    }
    ReturnKeyboard();
}

void WindowFrame::ReturnKeyboard() {
    const QWidget* const holder = focusWidget();
    if (QApplication::activePopupWidget() != nullptr || (holder != menuBar() && CanHaveKeyboard(holder))) {
        return;
    }
    QWidget* const list = content_->findChild<ListView*>();
    for (QWidget* candidate : {control_.data(), list}) {
        if (CanHaveKeyboard(candidate)) {
            candidate->setFocus(Qt::ActiveWindowFocusReason); // The menu bar gives up with this.
            return;
        }
    }
}

bool WindowFrame::HandToList(QKeyEvent& key) {
    auto* const list = content_->findChild<ListView*>();
    if (!CanHaveKeyboard(list) || list->hasFocus() || !Walks(key.key())
        || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return false;
    }
    QApplication::sendEvent(list, &key);
    return true;
}

bool WindowFrame::RunWindowKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool shifted = modifiers == Qt::ShiftModifier;
    if (event.key() == Qt::Key_F6 && (shifted || modifiers == Qt::NoModifier)) {
        setAttribute(Qt::WA_KeyboardFocusChange);         // shows where the focus is, as Tab does
        return QMainWindow::focusNextPrevChild(!shifted); // Tab itself may be the application's.
    }
    if (event.key() == Qt::Key_F10 && modifiers == Qt::NoModifier && !menuBar()->actions().isEmpty()) {
        menuBar()->setActiveAction(menuBar()->actions().first());
        return true;
    }
    if (QWidget* focused = focusWidget(); event.key() == Qt::Key_F10 && shifted && focused != nullptr) {
        const QPoint middle = focused->rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, middle, focused->mapToGlobal(middle));
        QApplication::sendEvent(focused, &asked);
        return true;
    }
    auto* const list = content_->findChild<ListView*>();
    const int digit = DigitOf(event);
    return digit > 0 && list != nullptr && modifiers.testFlag(Qt::ControlModifier)
           && (modifiers & ~(Qt::ControlModifier | Qt::ShiftModifier)) == Qt::NoModifier
           && list->ClickHeading(digit - 1);
}

bool WindowFrame::PressDialogButton(int key) {
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isReturn && key != Qt::Key_Escape) {
        return false;
    }
    if (auto* focused = qobject_cast<QAbstractButton*>(focusWidget()); isReturn && focused != nullptr) {
        focused->click();
        return true;
    }
    for (const Ref<RectControl>& control : window_->Controls(kToolkit)) {
        const Ref<PushButton> button = control.As<PushButton>();
        if (button && (isReturn ? button->Default() : button->Cancel())) {
            button->Click(kToolkit);
            return true;
        }
    }
    return false;
}

void WindowFrame::keyPressEvent(QKeyEvent* event) {
    if (window_ == nullptr) {
        return;
    }
    const Ref<Window> window(window_);
    if (PressDialogButton(event->key()) || RunWindowKey(*event)) {
        return;
    }
    bool used = false;
    // With one of these a key is a command, even where it also stands for a character: Ctrl+I is no Tab.
    if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        EnterApplication([&] { used = window->KeyDownByUser(kToolkit, event->text().toStdString()); });
    }
    if (!used) {
        QMainWindow::keyPressEvent(event);
    }
}

bool WindowFrame::focusNextPrevChild(bool next) {
    bool used = false;
    // Without a key, the focus moves on from a control that has just been hidden or disabled.
    const QWidget* const focused = focusWidget();
    const bool isKey = focused == nullptr || (focused->isVisible() && focused->isEnabled());
    if (isKey && window_ != nullptr) {
        const Ref<Window> window(window_);
        EnterApplication([&] { used = window->KeyDownByUser(kToolkit, "\t"); });
        if (used) {
            repaint(); // While a key is held the queue never runs empty, and that is when widgets would be
                       // painted.
        }
    }
    return used || QMainWindow::focusNextPrevChild(next);
}

} // namespace folimark
