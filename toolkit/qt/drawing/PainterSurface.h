#pragma once

#include "Graphics.h"

#include <QColor>
#include <QRect>

class QPainter;

namespace folimark {

/// A rectangle of something that a QPainter paints, for the length of a paint.
class PainterSurface : public Graphics::Surface {
  public:
    /// `ground` is what ClearRect leaves.
    PainterSurface(QPainter& painter, const QRect& room, const QColor& ground)
        : painter_(painter), room_(room), ground_(ground) {}

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
    QColor ground_;
};

} // namespace folimark
