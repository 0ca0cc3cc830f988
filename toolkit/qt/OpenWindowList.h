#pragma once

#include "Object.h"

#include <vector>

namespace folimark {

class Window;

/// The handles that keep open windows alive.
std::vector<Ref<Window>>& OpenWindowList();
/// Lets go of a window that has closed: not at once, since its own functions may still be running.
void ForgetOpenWindow(Window& window);
/// Holds a window until the event loop runs next.
void KeepAlive(const Ref<Window>& window);

} // namespace folimark
