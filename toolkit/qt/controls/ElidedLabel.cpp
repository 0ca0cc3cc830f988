#include "ElidedLabel.h"

#include "PlatformText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace folimark {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    // A folder's name may look like markup.
    setTextFormat(Qt::PlainText);
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip
        && fontMetrics().horizontalAdvance(text()) > contentsRect().width()) {
        QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), AsWholeName(text()), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString line = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
    // A name that is read from the right stays in its place, as in the lists.
    const int flags = static_cast<int>(alignment()) | static_cast<int>(Qt::TextForceLeftToRight);
    style()->drawItemText(&painter, room, flags, palette(), isEnabled(), line, foregroundRole());
}

} // namespace folimark
