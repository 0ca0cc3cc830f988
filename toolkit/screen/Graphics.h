#pragma once

#include "Color.h"
#include "Object.h"

#include <memory>
#include <string>

namespace folimark {

class NativeSurface;
class Picture;

/// A surface to draw on. The origin is its top left corner, all is told in units, y grows downwards.
class Graphics : public Object {
  public:
    explicit Graphics(std::unique_ptr<NativeSurface> surface);
    ~Graphics() override;

    Color ForeColor() const { return foreColor_; }
    /// The colour for the next fills and texts.
    void ForeColor(Color color) { foreColor_ = color; }
    int Width() const;
    int Height() const;

    void FillRect(int x, int y, int width, int height);
    /// Clears a rectangle to the surface's background.
    void ClearRect(int x, int y, int width, int height);

    /// A width or height of this much stands for the picture's own.
    static constexpr int kOwnSize = -10000;
    /// Draws the source rectangle of the picture, scaled to the destination. What lies beyond the surface is
    /// cut off. Raises NilObjectException for a nil picture.
    void DrawPicture(const Ref<Picture>& picture, int x, int y, int width = kOwnSize, int height = kOwnSize,
                     int sourceX = 0, int sourceY = 0, int sourceWidth = kOwnSize,
                     int sourceHeight = kOwnSize);
    /// Draws a text centred in a rectangle, wrapped at words, in the system's font.
    void DrawText(const std::string& text, int x, int y, int width, int height);

  private:
    std::unique_ptr<NativeSurface> surface_;
    Color foreColor_ = 0x000000;
};

} // namespace folimark
