#pragma once

#include <QObject>

class QWidget;

namespace folimark {

/// Takes over a window's widget that has closed and is hidden, and deletes it, with all that stands on it, as
/// soon as nothing on the call stack can have met it: when the outermost event loop runs and no event is
/// being handled. Not before: the window system goes on with the widgets that it has told of an event, and
/// its next event may hold a closed window as the one that was active before; handlers of either may yield.
/// So a deferred deletion of the window system's own won't do, which a yield delivers.
void DeleteWhenIdle(QWidget* closed);

/// Deletes what can go now. A timer calls it; tests needn't wait for that.
void DeleteClosedWidgets();

/// Lets the window system's own deferred deletions of widgets wait in the same way: menus of rows and of text
/// fields have them, and a menu that is open counts as active. To be installed on the application.
class DeletionWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace folimark
