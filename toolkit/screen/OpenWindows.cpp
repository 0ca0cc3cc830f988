#include "OpenWindows.h"

#include "Window.h"

namespace folimark {
namespace {

std::vector<Ref<Window>>& TheWindows() {
    static std::vector<Ref<Window>> windows;
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
