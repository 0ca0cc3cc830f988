#include "PictureSurface.h"

#include "NativePicture.h"
#include "PainterSurface.h"

#include <QGuiApplication>
#include <QPainter>

#include <cmath>

namespace folimark {
namespace {

/// Holds the painter for as long as somebody draws.
struct PainterHolder {
    QPainter painter;
};

class PictureSurface : private PainterHolder, public PainterSurface {
  public:
    explicit PictureSurface(NativePicture& native)
        : PainterHolder{QPainter(&native.image)},
          PainterSurface(painter, QRect(0, 0, native.width, native.height)) {
        painter.scale(static_cast<double>(native.image.width()) / native.width,
                      static_cast<double>(native.image.height()) / native.height);
    }
};

/// The surface of a picture without any points.
class NoSurface : public Graphics::Surface {
  public:
    int Width() const override { return 0; }
    int Height() const override { return 0; }
    void FillRect(int, int, int, int, Color) override {}
    void ClearRect(int, int, int, int) override {}
    void DrawPicture(const Picture&, int, int, int, int, int, int, int, int) override {}
    void DrawText(const std::string&, int, int, int, int, Color) override {}
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

std::unique_ptr<Graphics::Surface> SurfaceOf(NativePicture& picture) {
    if (picture.image.isNull()) {
        return std::make_unique<NoSurface>();
    }
    return std::make_unique<PictureSurface>(picture);
}

} // namespace folimark
