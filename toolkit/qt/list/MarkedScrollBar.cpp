#include "MarkedScrollBar.h"

#include "Listbox.h"
#include "ToolkitKey.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace folimark {
namespace {

constexpr int kMarkHeight = 3;
/// How far from a mark a click may be, in logical pixels.
constexpr int kReach = 4;
/// The edge that tells a pale mark from a pale groove.
constexpr int kEdgeDarkness = 160;

} // namespace

MarkedScrollBar::MarkedScrollBar(Listbox& list, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), list_(list) {}

void MarkedScrollBar::MarksChanged() {
    stale_ = true;
    update();
}

QRect MarkedScrollBar::Groove() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarGroove, this);
}

void MarkedScrollBar::FindMarks() {
    const std::int64_t rows = list_.LastIndex() + 1;
    const auto height = static_cast<std::size_t>(std::max(Groove().height(), 0));
    if (!stale_ && rows == rowCount_ && height == rowAtPixel_.size()) {
        return;
    }
    stale_ = false;
    rowCount_ = rows;
    rowAtPixel_.assign(height, -1);
    list_.ForEachMark(kToolkit, [&](std::int64_t row) {
        if (height > 0) {
            std::int64_t& first =
                rowAtPixel_[static_cast<std::size_t>(row) * height / static_cast<std::size_t>(rows)];
            first = first < 0 ? row : first;
        }
    });
}

void MarkedScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    FindMarks();
    const QRect groove = Groove();
    const QColor color = QColor::fromRgb(static_cast<QRgb>(list_.MarkColor()));
    QPainter painter(this);
    painter.setPen(color.darker(kEdgeDarkness));
    painter.setBrush(color);
    // Marks that touch each other are drawn as one.
    const int height = static_cast<int>(rowAtPixel_.size());
    const auto isMarked = [&](int pixel) {
        const auto from = rowAtPixel_.begin() + std::clamp(pixel - kMarkHeight / 2, 0, height);
        const auto to = rowAtPixel_.begin() + std::clamp(pixel + kMarkHeight / 2 + 1, 0, height);
        return std::any_of(from, to, [](std::int64_t row) { return row >= 0; });
    };
    for (int pixel = 0; pixel < height; ++pixel) {
        const int start = pixel;
        while (pixel < height && isMarked(pixel)) {
            ++pixel;
        }
        if (pixel > start) {
            painter.drawRect(groove.left() + 1, groove.top() + start, groove.width() - 3, pixel - start - 1);
        }
    }
}

void MarkedScrollBar::mousePressEvent(QMouseEvent* event) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QPoint position = event->position().toPoint();
    const bool onSlider = style()->hitTestComplexControl(QStyle::CC_ScrollBar, &option, position, this)
                          == QStyle::SC_ScrollBarSlider;
    if (event->button() != Qt::LeftButton || onSlider) {
        QScrollBar::mousePressEvent(event);
        return;
    }
    FindMarks();
    const int hit = position.y() - Groove().top();
    for (int reach = 0; reach <= kReach; ++reach) {
        for (const int pixel : {hit - reach, hit + reach}) {
            const auto index = static_cast<std::size_t>(std::max(pixel, 0));
            if (pixel >= 0 && index < rowAtPixel_.size() && rowAtPixel_[index] >= 0) {
                list_.SelectByUser(kToolkit, rowAtPixel_[index]);
                return;
            }
        }
    }
    QScrollBar::mousePressEvent(event);
}

} // namespace folimark
