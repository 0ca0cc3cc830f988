#include "ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace folimark {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    // A folder's name may look like markup.
    setTextFormat(Qt::PlainText);
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
