#pragma once

#include <cstdint>

namespace folimark {

/// 0xAARRGGBB. The alpha part is the transparency: 0 is opaque, 255 can't be seen.
using Color = std::uint32_t;

/// Each part is 0 to 255.
constexpr Color RGB(int red, int green, int blue, int alpha = 0) {
    return static_cast<Color>(alpha) << 24U | static_cast<Color>(red) << 16U | static_cast<Color>(green) << 8U
           | static_cast<Color>(blue);
}

} // namespace folimark
