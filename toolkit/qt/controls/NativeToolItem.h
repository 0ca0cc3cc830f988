#pragma once

#include <QAction>
#include <QPointer>

namespace folimark {

/// The action behind an item of a toolbar; null before it is appended, and after its window has gone.
struct NativeToolItem {
    QPointer<QAction> action;
};

} // namespace folimark
