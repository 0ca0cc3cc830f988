#include "Pixels.h"

#include "PictureProtocol.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace folimark {

bool IsPlain(const Pixels& pixels) {
    return pixels.argb.size() > 1
           && std::ranges::adjacent_find(pixels.argb, std::not_equal_to()) == pixels.argb.end();
}

Size SizeFor(Size picture, Size wanted, bool mayEnlarge) {
    const double width = picture.width;
    const double height = picture.height;
    double scale = 1;
    if (wanted.width > 0 && wanted.height > 0) {
        scale = width > height ? wanted.width / width : wanted.height / height;
    }
    if (!mayEnlarge) {
        scale = std::min(scale, 1.0);
    }
    const auto most = static_cast<double>(kMostPixels);
    if (width * scale * height * scale > most) {
        // Both sides are rounded down below, but for a side that would vanish.
        scale = std::min(std::sqrt(most / width / height), most / std::max(width, height));
        return {std::max(1, static_cast<int>(width * scale)), std::max(1, static_cast<int>(height * scale))};
    }
    const auto scaled = [scale](double length) {
        return std::max(1, static_cast<int>(std::lround(length * scale)));
    };
    return {scaled(width), scaled(height)};
}

std::uint32_t Premultiplied(std::uint32_t red, std::uint32_t green, std::uint32_t blue, std::uint32_t alpha) {
    const auto times = [alpha](std::uint32_t value) { return (value * alpha + 127) / 255; };
    return alpha << 24 | times(red) << 16 | times(green) << 8 | times(blue);
}

} // namespace folimark
