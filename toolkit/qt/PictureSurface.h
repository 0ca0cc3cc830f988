#pragma once

#include "Graphics.h"

#include <memory>

namespace folimark {

struct NativePicture;

/// Logical pixels as points of the sharpest screen, rounded up.
int InDevicePixels(int logical);

/// Makes `picture` a transparent one of that size, as sharp as the sharpest screen.
void MakeBlank(NativePicture& picture, int width, int height);

/// A surface for drawing into a picture, which has to outlive it.
std::unique_ptr<Graphics::Surface> SurfaceOf(NativePicture& picture);

} // namespace folimark
