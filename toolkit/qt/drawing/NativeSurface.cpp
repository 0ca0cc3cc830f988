#include "NativeSurface.h"

#include "ContentFit.h"
#include "FontMeasure.h"
#include "NativePicture.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace folimark {

void PaintedSurface::Paint(const std::function<void(QPainter&)>& drawing) {
    painter_.save();
    painter_.translate(room_.topLeft());
    drawing(painter_);
    painter_.restore();
}

QSize PictureSurface::Size() const {
    return {picture_->width, picture_->height};
}

void PictureSurface::Paint(const std::function<void(QPainter&)>& drawing) {
    if (picture_->image.isNull()) {
        return;
    }
    QPainter painter(&picture_->image);
    painter.scale(static_cast<double>(picture_->image.width()) / picture_->width,
                  static_cast<double>(picture_->image.height()) / picture_->height);
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, UnitsOf(QFontInfo(font).pixelSize(), RowHeight())));
    painter.setFont(font);
    drawing(painter);
}

} // namespace folimark
