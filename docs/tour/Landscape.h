#pragma once

#include <QImage>

namespace folimark::test {

/// What makes a painted landscape another one.
struct Scene {
    QColor sky;     // at the top
    QColor horizon; // and where it meets the land
    QColor far;     // the farthest hills; nearer ones go over to `near`
    QColor near;
    QPointF sun; // as a part of the picture's size
    double sunSize = 0.05;
    bool water = true;
    bool trees = true;
    unsigned seed = 1;
};

/// A "photograph".
QImage PaintLandscape(const Scene& scene, QSize size);

} // namespace folimark::test
