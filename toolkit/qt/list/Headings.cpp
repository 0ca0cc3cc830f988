#include "Headings.h"

#include "CellPainter.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QTableView>

#include <algorithm>

namespace folimark {
namespace {

/// A row at the list's lower edge shows no more than two thirds of its height, and no less than one, or it is
/// whole.
constexpr int kMostCut = 2;
constexpr int kRowParts = 3;

} // namespace

void Headings::initStyleOptionForIndex(QStyleOptionHeader* option, int column) const {
    QHeaderView::initStyleOptionForIndex(option, column);
    option->text.clear(); // paintSection draws it
}

QSize Headings::sizeHint() const {
    QSize size = QHeaderView::sizeHint();
    if (const auto* list = qobject_cast<const QTableView*>(parentWidget())) {
        const int row = list->verticalHeader()->defaultSectionSize();
        const int cut = std::max(0, list->contentsRect().height() - size.height()) % row;
        const int most = row * kMostCut / kRowParts;
        size.rheight() += cut < row - most ? cut : std::max(0, cut - most);
    }
    return size;
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
