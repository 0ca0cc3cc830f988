#pragma once

#include <QAction>
#include <QPointer>

#include <vector>

namespace folimark {

/// What shows a menu item in the windows that are open; entries whose window has gone are null.
struct NativeMenuItem {
    std::vector<QPointer<QAction>> actions;
};

} // namespace folimark
