#include "PictureSurface.h"

#include "NativePicture.h"
#include "PainterSurface.h"

#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <utility>

namespace folimark {
namespace {

/// Calls `draw` with a surface of the picture, if that has any points.
template <class Drawing>
void Draw(NativePicture& picture, const Drawing& draw) {
    if (picture.image.isNull()) {
        return;
    }
    QPainter painter(&picture.image);
    painter.scale(static_cast<double>(picture.image.width()) / picture.width,
                  static_cast<double>(picture.image.height()) / picture.height);
    PainterSurface surface(painter, QRect(0, 0, picture.width, picture.height), Qt::transparent);
    draw(surface);
}

} // namespace

int InDevicePixels(int logical) {
    return static_cast<int>(std::ceil(logical * qGuiApp->devicePixelRatio()));
}

void MakeBlank(NativePicture& picture, int width, int height) {
    picture.width = width;
    picture.height = height;
    picture.image =
        QImage(InDevicePixels(width), InDevicePixels(height), QImage::Format_ARGB32_Premultiplied);
    picture.image.fill(Qt::transparent);
}

int PictureSurface::Width() const {
    return picture_->width;
}

int PictureSurface::Height() const {
    return picture_->height;
}

void PictureSurface::FillRect(int x, int y, int width, int height, Color color) {
    Draw(*picture_, [&](Surface& surface) { surface.FillRect(x, y, width, height, color); });
}

void PictureSurface::ClearRect(int x, int y, int width, int height) {
    Draw(*picture_, [&](Surface& surface) { surface.ClearRect(x, y, width, height); });
}

void PictureSurface::DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                                 int sourceY, int sourceWidth, int sourceHeight) {
    Draw(*picture_, [&](Surface& surface) {
        surface.DrawPicture(picture, x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight);
    });
}

void PictureSurface::DrawText(const std::string& text, int x, int y, int width, int height, Color color) {
    Draw(*picture_, [&](Surface& surface) { surface.DrawText(text, x, y, width, height, color); });
}

} // namespace folimark
