#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

namespace folimark {

/// A file's content, or a part of it.
using Bytes = std::span<const std::uint8_t>;

struct Size {
    int width = 0;
    int height = 0;
};

/// What a decoder gives: see DecodedPicture for the meaning of the sizes and of `argb`.
struct Pixels {
    Size picture;
    Size size;
    std::vector<std::uint32_t> argb;
};

/// Whether one colour covers all of it, if there is more than one pixel.
bool IsPlain(const Pixels& pixels);

/// A picture as the simpler formats hold it: 8-bit samples, row by row without gaps. One sample a pixel is
/// grey, three are red, green and blue, four CMYK if `isCmyk`; two and otherwise four end with the opacity.
struct Samples {
    Size picture; // the own size as it lies in the file, of which `size` may be a reduction
    Size size;
    int samplesPerPixel = 0;
    bool isCmyk = false;
    Bytes profile; // an ICC profile; empty for sRGB
    std::vector<std::uint8_t> bytes;
    int orientation = 1; // as Exif and TIFF number them; 1 is upright
};

/// The header shows that reading the picture would take too long: no other decoder needs to try.
class PictureTooLarge : public std::runtime_error {
  public:
    PictureTooLarge() : std::runtime_error("the picture is too large") {}
};

/// The size in which to decode a picture for a box of the size `wanted`, as PictureQuestion promises it.
Size SizeFor(Size picture, Size wanted, bool mayEnlarge = false);

/// A pixel of Pixels::argb.
std::uint32_t Premultiplied(std::uint32_t red, std::uint32_t green, std::uint32_t blue, std::uint32_t alpha);

} // namespace folimark
