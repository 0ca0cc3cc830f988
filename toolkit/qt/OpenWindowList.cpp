#include "OpenWindowList.h"

#include "Window.h"

#include <QTimer>

#include <algorithm>

namespace folimark {

std::vector<Ref<Window>>& OpenWindowList() {
    static std::vector<Ref<Window>> windows;
    return windows;
}

const std::vector<Ref<Window>>& OpenWindows() {
    return OpenWindowList();
}

void KeepAlive(const Ref<Window>& window) {
    QTimer::singleShot(0, [window] {});
}

void ForgetOpenWindow(Window& window) {
    std::vector<Ref<Window>>& windows = OpenWindowList();
    const auto found =
        std::ranges::find_if(windows, [&](const Ref<Window>& open) { return open.Get() == &window; });
    if (found != windows.end()) {
        KeepAlive(*found);
        windows.erase(found);
    }
}

} // namespace folimark
