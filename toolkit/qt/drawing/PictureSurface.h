#pragma once

#include "Graphics.h"

#include <memory>

namespace folimark {

struct NativePicture;

/// Logical pixels as points of the sharpest screen, rounded up.
int InDevicePixels(int logical);

/// Makes `picture` a transparent one of that size, as sharp as the sharpest screen.
void MakeBlank(NativePicture& picture, int width, int height);

/// Draws into a picture, which is opened for each call anew: however many surfaces a picture has, and however
/// long they are kept, none is in another's way.
class PictureSurface : public Graphics::Surface {
  public:
    explicit PictureSurface(std::shared_ptr<NativePicture> picture) : picture_(std::move(picture)) {}

    int Width() const override;
    int Height() const override;
    void FillRect(int x, int y, int width, int height, Color color) override;
    void ClearRect(int x, int y, int width, int height) override;
    void DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX, int sourceY,
                     int sourceWidth, int sourceHeight) override;
    void DrawText(const std::string& text, int x, int y, int width, int height, Color color) override;

  private:
    std::shared_ptr<NativePicture> picture_;
};

} // namespace folimark
