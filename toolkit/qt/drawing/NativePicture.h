#pragma once

#include <QImage>

namespace folimark {

/// A picture as Qt holds it. The image may have more points than the picture (for sharp screens) or fewer
/// (read for a small room).
struct NativePicture {
    QImage image;
    int width = 0;
    int height = 0;
};

} // namespace folimark
