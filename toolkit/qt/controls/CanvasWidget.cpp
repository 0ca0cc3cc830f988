#include "CanvasWidget.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace folimark {
namespace {

constexpr double kDimmed = 0.4;

} // namespace

CanvasWidget::CanvasWidget(QWidget* parent, std::function<void(int x, int y)> doubleClick)
    : QWidget(parent), doubleClick_(std::move(doubleClick)) {}

void CanvasWidget::Show(const QImage& image, QSize size) {
    image_ = image;
    size_ = size;
    update();
}

void CanvasWidget::Measure(QSize units) {
    units_ = units;
    update();
}

QTransform CanvasWidget::FromUnits() const {
    const double scale = std::min(static_cast<double>(width()) / units_.width(),
                                  static_cast<double>(height()) / units_.height());
    const double left = (width() - units_.width() * scale) / 2;
    const double top = height() - units_.height() * scale;
    return {scale, 0, 0, scale, left, top};
}

void CanvasWidget::paintEvent(QPaintEvent* /*event*/) {
    if (!image_.isNull() && !units_.isEmpty()) {
        QPainter painter(this);
        painter.setTransform(FromUnits());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setOpacity(isEnabled() ? 1 : kDimmed);
        painter.drawImage(QRect(QPoint(0, 0), size_), image_);
    }
}

void CanvasWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        const QPoint position = FromUnits().inverted().map(event->position()).toPoint();
        doubleClick_(position.x(), position.y());
    }
}

} // namespace folimark
