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
void Draw(NativePicture* picture, const Drawing& draw) {
    if (picture == nullptr || picture->image.isNull()) {
        return;
    }
    QPainter painter(&picture->image);
    painter.scale(static_cast<double>(picture->image.width()) / picture->width,
                  static_cast<double>(picture->image.height()) / picture->height);
    PainterSurface surface(painter, QRect(0, 0, picture->width, picture->height), Qt::transparent);
    draw(surface);
}

/// The surface of a picture of the application's.
class OwnedPictureSurface : public PictureSurface {
  public:
    explicit OwnedPictureSurface(std::shared_ptr<NativePicture> picture) : picture_(std::move(picture)) {}

  protected:
    NativePicture* Target() const override { return picture_.get(); }

  private:
    std::shared_ptr<NativePicture> picture_;
};

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
    const NativePicture* target = Target();
    return target == nullptr ? 0 : target->width;
}

int PictureSurface::Height() const {
    const NativePicture* target = Target();
    return target == nullptr ? 0 : target->height;
}

void PictureSurface::FillRect(int x, int y, int width, int height, Color color) {
    Draw(Target(), [&](Surface& surface) { surface.FillRect(x, y, width, height, color); });
}

void PictureSurface::ClearRect(int x, int y, int width, int height) {
    Draw(Target(), [&](Surface& surface) { surface.ClearRect(x, y, width, height); });
}

void PictureSurface::DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                                 int sourceY, int sourceWidth, int sourceHeight) {
    Draw(Target(), [&](Surface& surface) {
        surface.DrawPicture(picture, x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight);
    });
}

void PictureSurface::DrawText(const std::string& text, int x, int y, int width, int height, Color color) {
    Draw(Target(), [&](Surface& surface) { surface.DrawText(text, x, y, width, height, color); });
}

std::unique_ptr<Graphics::Surface> SurfaceOf(std::shared_ptr<NativePicture> picture) {
    return std::make_unique<OwnedPictureSurface>(std::move(picture));
}

} // namespace folimark
