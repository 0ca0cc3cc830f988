#include "Graphics.h"

#include "NativePicture.h"
#include "NativeSurface.h"
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

Graphics::Graphics(std::unique_ptr<NativeSurface> surface) : surface_(std::move(surface)) {}

Graphics::~Graphics() = default;

int Graphics::Width() const {
    return surface_->Size().width();
}

int Graphics::Height() const {
    return surface_->Size().height();
}

void Graphics::FillRect(int x, int y, int width, int height) {
    const QRect filled = QRect(x, y, width, height) & QRect(QPoint(0, 0), surface_->Size());
    surface_->Paint([&](QPainter& painter) { painter.fillRect(filled, AsColor(foreColor_)); });
}

void Graphics::ClearRect(int x, int y, int width, int height) {
    const QRect cleared = QRect(x, y, width, height) & QRect(QPoint(0, 0), surface_->Size());
    surface_->Paint([&](QPainter& painter) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(cleared, surface_->Ground());
    });
}

void Graphics::DrawPicture(const Ref<Picture>& picture, int x, int y, int width, int height, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight) {
    const NativePicture& native = picture->Native(kToolkit);
    if (native.width == 0 || native.height == 0) {
        return;
    }
    const auto orOwn = [](int size, int own) { return size == kOwnSize ? own : size; };
    // The source is told in the picture's points, of which the image may have more or fewer.
    const double across = static_cast<double>(native.image.width()) / native.width;
    const double down = static_cast<double>(native.image.height()) / native.height;
    const QRectF source(sourceX * across, sourceY * down, orOwn(sourceWidth, native.width) * across,
                        orOwn(sourceHeight, native.height) * down);
    surface_->Paint([&](QPainter& painter) {
        painter.setClipRect(QRect(QPoint(0, 0), surface_->Size()), Qt::IntersectClip);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(x, y, orOwn(width, native.width), orOwn(height, native.height)),
                          native.image, source);
    });
}

void Graphics::DrawText(const std::string& text, int x, int y, int width, int height) {
    surface_->Paint([&](QPainter& painter) {
        painter.setPen(AsColor(foreColor_));
        painter.drawText(QRect(x, y, width, height),
                         static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap),
                         AsDisplayed(text));
    });
}

} // namespace folimark
