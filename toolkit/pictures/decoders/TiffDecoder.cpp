#include "Decoders.h"
#include "LibtiffDecoder.h"
#include "Vips.h"

#include <algorithm>
#include <tiff.h>

namespace folimark {
namespace {

// The whole picture is held in memory, in its own samples and in bytes.
constexpr std::int64_t kMostStretched = 100'000'000; // pixels

/// What stands for black and for white.
struct Range {
    double least = 0;
    double most = 0;
};

/// Samples of more than 8 bits needn't use all of them, and floating point numbers have no range by
/// themselves: what a camera, a scanner or a microscope has written is brought to the range that it has.
Range RangeOf(VipsBandFormat format, double least, double most) {
    if (vips_band_format_isfloat(format) != 0) {
        constexpr double kDark = 0.1;
        return least >= 0 && most <= 1 && most > kDark ? Range{0, 1} : Range{least, most};
    }
    if (vips_band_format_isuint(format) == 0) {
        return {least, most};
    }
    for (const int bits : {8, 10, 12, 16, 24}) {
        if (most <= static_cast<double>(1 << bits)) { // one more comes of rounding
            return {0, static_cast<double>((1 << bits) - 1)};
        }
    }
    return {0, 4294967295.0};
}

/// The whole of the picture, decoded and brought to 8 bits.
std::optional<Pixels> DecodeStretched(Vips image, Size wanted) {
    const Size picture = UprightSize(image.get());
    if (std::int64_t{picture.width} * picture.height > kMostStretched) {
        throw PictureTooLarge();
    }
    const int bands = vips_image_get_bands(image.get());
    const bool isCmyk = vips_image_get_interpretation(image.get()) == VIPS_INTERPRETATION_CMYK && bands >= 4;
    const int colours = isCmyk ? 4 : bands >= 3 ? 3 : 1;
    image = Then(image, vips_autorot);
    image = Then(image, vips_extract_band, 0, "n", colours);
    const Vips statistics = Then(image, vips_stats); // the first row is about all bands: minimum, maximum
    if (!statistics) {
        return std::nullopt;
    }
    const auto [least, most] =
        RangeOf(vips_image_get_format(image.get()), *VIPS_MATRIX(statistics.get(), 0, 0),
                *VIPS_MATRIX(statistics.get(), 1, 0));
    if (!(most > least)) {
        return std::nullopt;
    }
    const double scale = 255 / (most - least);
    image = Then(image, vips_linear1, scale, -least * scale, "uchar", TRUE);
    const auto [samples, length] = MemoryOf(image);
    if (!samples) {
        return std::nullopt;
    }
    return Scaled({picture, picture, colours, isCmyk, {}, {samples.get(), samples.get() + length}, 1},
                  wanted);
}

/// Whether a picture of 16 bits a sample uses an eighth of its brightness at most, as one of 12 bits does.
bool IsNearlyBlack(const Pixels& pixels) {
    constexpr std::uint32_t kMost = 32;
    return std::ranges::all_of(pixels.argb, [](std::uint32_t pixel) {
        return (pixel >> 16 & 255) < kMost && (pixel >> 8 & 255) < kMost && (pixel & 255) < kMost;
    });
}

} // namespace

std::optional<Pixels> DecodeTiff(Bytes file, Size wanted) {
    const int photometric = PhotometricOfTiff(file).value_or(PHOTOMETRIC_RGB);
    // Libvips takes some kinds of these for red, green and blue.
    if (photometric == PHOTOMETRIC_YCBCR) {
        return DecodeTiffWithLibtiff(file, wanted);
    }
    if (photometric == PHOTOMETRIC_CIELAB || photometric == PHOTOMETRIC_ICCLAB) {
        return DecodeTiffWithMagick(file, wanted);
    }
    Vips head = ReadHead(file);
    if (!head) {
        return std::nullopt;
    }
    const VipsBandFormat format = vips_image_get_format(head.get());
    if (format != VIPS_FORMAT_UCHAR && format != VIPS_FORMAT_USHORT) {
        return DecodeStretched(std::move(head), wanted);
    }
    std::optional<Pixels> pixels = DecodeWithVips(file, wanted);
    return pixels && format == VIPS_FORMAT_USHORT && IsNearlyBlack(*pixels)
               ? DecodeStretched(std::move(head), wanted)
               : std::move(pixels);
}

} // namespace folimark
