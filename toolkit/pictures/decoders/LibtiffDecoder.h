#pragma once

#include "Pixels.h"

namespace folimark {

/// What the samples of a TIFF file's first picture mean (PHOTOMETRIC_RGB and so on, tiff.h); nothing if its
/// head can't be read.
std::optional<int> PhotometricOfTiff(Bytes file);

/// Reads a TIFF file with libtiff's own way to red, green and blue, which alone knows all kinds of Y, Cb and
/// Cr.
std::optional<Pixels> DecodeTiffWithLibtiff(Bytes file, Size wanted);

} // namespace folimark
