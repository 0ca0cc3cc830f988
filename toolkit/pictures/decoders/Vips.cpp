#include "Vips.h"

#include <cstdlib>

namespace folimark {
namespace {

bool ReallyStartVips() {
    // Its plug-ins are looked for below this folder: with none there, they needn't be loaded, nor trusted.
    setenv("VIPSHOME", "/nonexistent", 1);
    if (VIPS_INIT("folimark-pictures") != 0) {
        return false;
    }
    vips_concurrency_set(2);
    vips_cache_set_max(0);
    vips_operation_block_set("VipsForeignLoad", TRUE);
    for (const char* loader :
         {"VipsForeignLoadJpeg", "VipsForeignLoadPng", "VipsForeignLoadNsgif", "VipsForeignLoadTiff"}) {
        vips_operation_block_set(loader, FALSE);
    }
    return true;
}

/// A size of what `image` stands for, when it is turned as its metadata says.
Size Upright(Size size, VipsImage* image) {
    return vips_image_get_orientation_swap(image) != 0 ? Size{size.height, size.width} : size;
}

std::uint32_t PixelAt(const std::uint8_t* sample, int bands) {
    return Premultiplied(sample[0], sample[1], sample[2], bands > 3 ? sample[3] : 255);
}

} // namespace

bool StartVips() {
    static const bool started = ReallyStartVips();
    return started;
}

Vips ReadHead(Bytes file, const char* options) {
    auto* data = const_cast<std::uint8_t*>(file.data()); // libvips only reads
    return Vips(StartVips() ? vips_image_new_from_buffer(data, file.size(), options, nullptr) : nullptr);
}

Size UprightSize(VipsImage* image) {
    return Upright({vips_image_get_width(image), vips_image_get_height(image)}, image);
}

std::pair<std::unique_ptr<std::uint8_t[], GlibRelease>, std::size_t> MemoryOf(const Vips& image) {
    std::size_t length = 0;
    void* memory = image ? vips_image_write_to_memory(image.get(), &length) : nullptr;
    return {std::unique_ptr<std::uint8_t[], GlibRelease>(static_cast<std::uint8_t*>(memory)), length};
}

std::optional<Pixels> PixelsOf(const Vips& image, Size picture) {
    const Vips bytes = Then(Then(image, vips_colourspace, VIPS_INTERPRETATION_sRGB), vips_cast_uchar);
    const auto [samples, length] = MemoryOf(bytes);
    const int bands = samples ? vips_image_get_bands(bytes.get()) : 0;
    if (bands < 3) {
        return std::nullopt;
    }
    Pixels pixels{picture, {vips_image_get_width(bytes.get()), vips_image_get_height(bytes.get())}, {}};
    pixels.argb.resize(length / static_cast<std::size_t>(bands));
    const std::uint8_t* sample = samples.get();
    for (std::uint32_t& pixel : pixels.argb) {
        pixel = PixelAt(sample, bands);
        sample += bands;
    }
    return pixels;
}

const char* ProfileFor(VipsImage* image) {
    return vips_image_get_typeof(image, VIPS_META_ICC_NAME) != 0 ? "srgb" : nullptr;
}

bool HasProfileOfInks(VipsImage* image) {
    return ProfileFor(image) != nullptr && vips_image_get_interpretation(image) == VIPS_INTERPRETATION_CMYK;
}

Vips ScaledByInks(const Vips& image, Size upright) {
    const Size size = Upright(upright, image.get());
    const double across = double(size.width) / vips_image_get_width(image.get());
    const double down = double(size.height) / vips_image_get_height(image.get());
    const Vips scaled = Then(image, vips_resize, across, "vscale", down);
    return Then(Then(scaled, vips_icc_transform, "srgb", "embedded", TRUE), vips_autorot);
}

std::optional<Pixels> Scaled(const Samples& samples, Size wanted) {
    if (!StartVips()) {
        return std::nullopt;
    }
    const Vips borrowed(vips_image_new_from_memory(samples.bytes.data(), samples.bytes.size(),
                                                   samples.size.width, samples.size.height,
                                                   samples.samplesPerPixel, VIPS_FORMAT_UCHAR));
    const VipsInterpretation colours = samples.isCmyk                ? VIPS_INTERPRETATION_CMYK
                                       : samples.samplesPerPixel < 3 ? VIPS_INTERPRETATION_B_W
                                                                     : VIPS_INTERPRETATION_sRGB;
    const Vips input = Then(borrowed, vips_copy, "interpretation", colours);
    if (!input) {
        return std::nullopt;
    }
    VipsImage* described = input.get();
    // Read from the top to the bottom; any other way gets slower with the square of the height.
    vips_image_set_int(described, VIPS_META_SEQUENTIAL, 1);
    if (!samples.profile.empty()) {
        vips_image_set_blob_copy(described, VIPS_META_ICC_NAME, samples.profile.data(),
                                 samples.profile.size());
    }
    vips_image_set_int(described, VIPS_META_ORIENTATION, samples.orientation);
    const Size picture = Upright(samples.picture, described);
    const Size size = SizeFor(picture, wanted);
    Vips scaled = HasProfileOfInks(described) ? ScaledByInks(input, size) : nullptr;
    if (!scaled) {
        scaled = Then(input, vips_thumbnail_image, size.width, "height", size.height, "size", VIPS_SIZE_FORCE,
                      "export_profile", ProfileFor(described));
    }
    return PixelsOf(scaled, picture);
}

} // namespace folimark
