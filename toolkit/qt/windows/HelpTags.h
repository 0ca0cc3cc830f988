#pragma once

#include <QObject>
#include <QPoint>

namespace folimark {

/// Lets help tags go with the next movement of the pointer, over whatever it moves: the window system keeps
/// them until it leaves the control. To be installed on the application.
class HelpTags : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPoint shownAt_;
};

} // namespace folimark
