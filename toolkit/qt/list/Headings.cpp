#include "Headings.h"

#include "CellPainter.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>

#include <algorithm>

namespace folimark {

void Headings::initStyleOptionForIndex(QStyleOptionHeader* option, int column) const {
    QHeaderView::initStyleOptionForIndex(option, column);
    option->text.clear(); // paintSection draws it
}

void Headings::paintSection(QPainter* painter, const QRect& section, int column) const {
    painter->save(); // styles leave a clip behind that may hide all that follows
    QHeaderView::paintSection(painter, section, column);
    painter->restore();
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = section;
    initStyleOptionForIndex(&option, column);
    QRect room = section.adjusted(CellPainter::kTextMargin, 0, -CellPainter::kTextMargin, 0);
    if (option.sortIndicator != QStyleOptionHeader::None) {
        const QRect label = style()->subElementRect(QStyle::SE_HeaderLabel, &option, this);
        room.setRight(std::min(room.right(), label.right())); // the style's arrow stands beside it
    }
    const QString text = model()->headerData(column, Qt::Horizontal).toString();
    style()->drawItemText(painter, room, static_cast<int>(option.textAlignment), option.palette, isEnabled(),
                          fontMetrics().elidedText(text, Qt::ElideRight, room.width()), QPalette::ButtonText);
}

} // namespace folimark
