#include "CanvasWidget.h"

#include <QMouseEvent>
#include <QPainter>

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

void CanvasWidget::paintEvent(QPaintEvent* /*event*/) {
    if (!image_.isNull()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setOpacity(isEnabled() ? 1 : kDimmed);
        painter.drawImage(QRect(QPoint(0, 0), size_), image_);
    }
}

void CanvasWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        doubleClick_(event->position().toPoint().x(), event->position().toPoint().y());
    }
}

} // namespace folimark
