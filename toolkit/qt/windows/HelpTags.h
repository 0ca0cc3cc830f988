#pragma once

#include <QObject>
#include <QPoint>
#include <QProxyStyle>

namespace folimark {

/// The desktop's style, but that each help tag comes after the same pause: a second one would come without.
class HelpTagStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_ToolTip_FallAsleepDelay ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

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
