#include "HelpTags.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

namespace folimark {
namespace {

/// A hand that rests trembles by so many logical pixels.
constexpr int kTremble = 2;

} // namespace

bool HelpTags::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        shownAt_ = static_cast<const QHelpEvent*>(event)->globalPos();
    } else if (event->type() == QEvent::MouseMove && watched->isWindowType() && QToolTip::isVisible()) {
        const QPoint position = static_cast<const QMouseEvent*>(event)->globalPosition().toPoint();
        if ((position - shownAt_).manhattanLength() > kTremble) {
            QToolTip::hideText();
        }
    }
    return false;
}

} // namespace folimark
