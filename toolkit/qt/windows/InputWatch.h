#pragma once

#include <QObject>

namespace folimark {

/// Looks at keys and clicks before the widgets get them: they find the window active and its menus up to
/// date, and those for what has closed go nowhere. To be installed on the application.
class InputWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace folimark
