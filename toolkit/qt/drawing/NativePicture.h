#pragma once

#include "Picture.h"

#include <QImage>

namespace folimark {

struct DecodedPicture;

/// A picture as Qt holds it. The image may have more points than the picture (for sharp screens) or fewer
/// (read for a small room).
struct NativePicture {
    QImage image;
    int width = 0;
    int height = 0;
};

/// Units as points of the sharpest screen, rounded up.
int InDevicePixels(int units);

/// A picture that was read, which shares its pixels; nil if there is no memory for it.
Ref<Picture> MakePicture(const DecodedPicture& decoded);

} // namespace folimark
