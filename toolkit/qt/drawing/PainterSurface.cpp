#include "PainterSurface.h"

#include "NativePicture.h"
#include "Picture.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

#include <QPainter>

namespace folimark {
namespace {

QColor AsColor(Color color) {
    return QColor::fromRgb(static_cast<QRgb>(color));
}

} // namespace

void PainterSurface::FillRect(int x, int y, int width, int height, Color color) {
    painter_.fillRect(QRect(x, y, width, height).translated(room_.topLeft()) & room_, AsColor(color));
}

void PainterSurface::ClearRect(int x, int y, int width, int height) {
    const QPainter::CompositionMode mode = painter_.compositionMode();
    painter_.setCompositionMode(QPainter::CompositionMode_Source);
    painter_.fillRect(QRect(x, y, width, height).translated(room_.topLeft()) & room_, ground_);
    painter_.setCompositionMode(mode);
}

void PainterSurface::DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                                 int sourceY, int sourceWidth, int sourceHeight) {
    const NativePicture& native = picture.Native(kToolkit);
    if (native.width == 0 || native.height == 0) {
        return;
    }
    // The source is told in the picture's points, of which the image may have more or fewer.
    const double across = static_cast<double>(native.image.width()) / native.width;
    const double down = static_cast<double>(native.image.height()) / native.height;
    painter_.save();
    painter_.setClipRect(room_, Qt::IntersectClip);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.drawImage(QRectF(room_.left() + x, room_.top() + y, width, height), native.image,
                       QRectF(sourceX * across, sourceY * down, sourceWidth * across, sourceHeight * down));
    painter_.restore();
}

void PainterSurface::DrawText(const std::string& text, int x, int y, int width, int height, Color color) {
    painter_.setPen(AsColor(color));
    painter_.drawText(QRect(x, y, width, height).translated(room_.topLeft()),
                      static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap),
                      AsDisplayed(text));
}

} // namespace folimark
