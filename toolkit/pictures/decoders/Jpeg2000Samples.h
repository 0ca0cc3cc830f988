#pragma once

#include "Pixels.h"

#include <openjpeg.h>

namespace folimark {

/// Puts the components of a decoded JPEG 2000 picture, which may differ in size and depth, together to
/// samples. `picture` is the own size, of which `image` may be a reduction. The result borrows the profile
/// from `image`. Nothing if a component is missing.
std::optional<Samples> SamplesOf(const opj_image_t& image, Size picture);

} // namespace folimark
