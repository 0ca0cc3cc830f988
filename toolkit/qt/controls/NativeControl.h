#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace folimark {

/// The widget behind a control. The window system owns the widget, so it may have gone.
struct NativeControl {
    QPointer<QWidget> widget;
    /// The context of all connections from the widget to the control: they end with the control.
    QObject connections;

    /// The widget as its own class; null if it has gone.
    template <class WidgetClass>
    WidgetClass* As() const {
        return static_cast<WidgetClass*>(widget.data());
    }
};

} // namespace folimark
