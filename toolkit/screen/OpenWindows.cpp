#include "OpenWindows.h"

#include "Window.h"

namespace folimark {
namespace {

/// Never destroyed: where the window system ends the process (its server has gone, say), windows are still
/// open, and what they need has gone before.
std::vector<Ref<Window>>& TheWindows() {
    static auto& windows = *new std::vector<Ref<Window>>;
    return windows;
}

} // namespace

const std::vector<Ref<Window>>& OpenWindows() {
    return TheWindows();
}

void AddOpenWindow(const Ref<Window>& window) {
    TheWindows().push_back(window);
}

void ForgetOpenWindow(const Window& window) {
    std::erase_if(TheWindows(), [&](const Ref<Window>& open) { return open.Get() == &window; });
}

} // namespace folimark
