#pragma once

#include <QObject>

class QWindow;

namespace folimark {

/// Looks at keys and clicks before the widgets get them: they find the window active and its menus up to
/// date. Those for what has closed go nowhere, but for a menu's keys. To be installed on the application.
class InputWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A key that was on its way to a menu when that closed is for the window beneath; the menu would choose
    /// by it. A key that has closed a menu itself is nobody else's, nor are those of other windows.
    void PassOnKey(const QWindow& closed, QEvent& key);

    bool cameLate_ = false; // whether what the last key was for had closed before it was pressed
};

} // namespace folimark
