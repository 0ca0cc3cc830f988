#pragma once

#include "Object.h"

#include <vector>

namespace folimark {

class Window;

/// The windows that are open, in the order in which they were shown first. These handles keep them alive.
const std::vector<Ref<Window>>& OpenWindows();
void AddOpenWindow(const Ref<Window>& window);
void ForgetOpenWindow(const Window& window);

} // namespace folimark
