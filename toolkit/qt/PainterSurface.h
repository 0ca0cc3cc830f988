#pragma once

#include "Graphics.h"

#include <QRect>

class QPainter;

namespace folimark {

/// A rectangle of something that a QPainter paints, for the length of a paint.
class PainterSurface : public Graphics::Surface {
  public:
    PainterSurface(QPainter& painter, const QRect& room) : painter_(painter), room_(room) {}

    int Width() const override { return room_.width(); }
    int Height() const override { return room_.height(); }
    void FillRect(int x, int y, int width, int height, Color color) override;
    void ClearRect(int x, int y, int width, int height) override;
    void DrawPicture(const Picture& picture, int x, int y, int width, int height, int sourceX, int sourceY,
                     int sourceWidth, int sourceHeight) override;
    void DrawText(const std::string& text, int x, int y, int width, int height, Color color) override;

  private:
    QPainter& painter_;
    QRect room_;
};

} // namespace folimark
