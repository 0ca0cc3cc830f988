#pragma once

#include "Color.h"
#include "Object.h"

#include <memory>
#include <string>

namespace folimark {

class Picture;

/// A surface to draw on. The origin is its top left corner, units are logical pixels, y grows downwards.
class Graphics : public Object {
  public:
    /// What a surface has to offer; each kind of surface brings its own.
    class Surface {
      public:
        virtual ~Surface() = default;
        virtual int Width() const = 0;
        virtual int Height() const = 0;
        virtual void FillRect(int x, int y, int width, int height, Color color) = 0;
        virtual void ClearRect(int x, int y, int width, int height) = 0;
        virtual void DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX,
                                 int sourceY, int sourceWidth, int sourceHeight) = 0;
        virtual void DrawText(const std::string& text, int x, int y, int width, int height, Color color) = 0;
    };

    explicit Graphics(std::unique_ptr<Surface> surface) : surface_(std::move(surface)) {}

    Color ForeColor() const { return foreColor_; }
    /// The colour for the next fills and texts.
    void ForeColor(Color color) { foreColor_ = color; }
    int Width() const { return surface_->Width(); }
    int Height() const { return surface_->Height(); }

    void FillRect(int x, int y, int width, int height) {
        surface_->FillRect(x, y, width, height, foreColor_);
    }
    /// Clears a rectangle to the surface's background.
    void ClearRect(int x, int y, int width, int height) { surface_->ClearRect(x, y, width, height); }

    /// A width or height of this much stands for the picture's own.
    static constexpr int kOwnSize = -10000;
    /// Draws the source rectangle of the picture, scaled to the destination. What lies beyond the surface is
    /// cut off. Raises NilObjectException for a nil picture.
    void DrawPicture(const Ref<Picture>& picture, int x, int y, int width = kOwnSize, int height = kOwnSize,
                     int sourceX = 0, int sourceY = 0, int sourceWidth = kOwnSize,
                     int sourceHeight = kOwnSize);
    /// Draws a text centred in a rectangle, wrapped at words, in the system's font.
    void DrawText(const std::string& text, int x, int y, int width, int height) {
        surface_->DrawText(text, x, y, width, height, foreColor_);
    }

  private:
    std::unique_ptr<Surface> surface_;
    Color foreColor_ = 0x000000;
};

} // namespace folimark
