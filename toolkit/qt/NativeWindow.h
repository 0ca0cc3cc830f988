#pragma once

#include "NativeControl.h"
#include "WindowFrame.h"

#include <QPointer>

class QEventLoop;

namespace folimark {

/// The widget behind a window. The window system owns it, so it may have gone.
struct NativeWindow {
    QPointer<WindowFrame> frame;
    /// What ShowModal waits in.
    QEventLoop* modalLoop = nullptr;
};

/// Makes the keyboard focus go from `first` to `second`.
void SetTabOrder(const NativeControl& first, const NativeControl& second);

} // namespace folimark
