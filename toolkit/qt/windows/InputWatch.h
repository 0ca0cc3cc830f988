#pragma once

#include <QObject>

namespace folimark {

/// Looks at keys and clicks before the widgets get them: they find the window active and its menus up to
/// date. Those for what has closed go nowhere, but for a menu's keys. To be installed on the application.
class InputWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A key that was on its way to a menu when that closed is for the window beneath. But a key that has
    /// closed the menu itself is nobody else's, and what a dialog opens has its own ways. Returns whether it
    /// was passed on.
    bool PassOnKey(QEvent& key);

    bool cameLate_ = false; // whether the last key was passed on
};

} // namespace folimark
