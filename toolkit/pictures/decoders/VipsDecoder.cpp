#include "Decoders.h"
#include "Vips.h"

namespace folimark {
namespace {

/// Reads no more than the head of the file.
Vips ReadHead(PictureKind kind, Bytes file) {
    auto* data = const_cast<std::uint8_t*>(file.data()); // libvips only reads
    VipsImage* image = nullptr;
    switch (kind) {
    case PictureKind::Jpeg:
        vips_jpegload_buffer(data, file.size(), &image, nullptr);
        break;
    case PictureKind::Gif:
        vips_gifload_buffer(data, file.size(), &image, nullptr);
        break;
    case PictureKind::Png:
        vips_pngload_buffer(data, file.size(), &image, nullptr);
        break;
    case PictureKind::Tiff:
        vips_tiffload_buffer(data, file.size(), &image, nullptr);
        break;
    default:
        break;
    }
    return Vips(image);
}

} // namespace

std::optional<Pixels> DecodeWithVips(PictureKind kind, Bytes file, Size wanted) {
    if (!StartVips()) {
        return std::nullopt;
    }
    const Vips head = ReadHead(kind, file);
    if (!head) {
        return std::nullopt;
    }
    Size picture{vips_image_get_width(head.get()), vips_image_get_height(head.get())};
    if (vips_image_get_orientation_swap(head.get())) {
        std::swap(picture.width, picture.height);
    }
    const Size size = SizeFor(picture, wanted);
    VipsImage* image = nullptr;
    if (vips_thumbnail_buffer(const_cast<std::uint8_t*>(file.data()), file.size(), &image, size.width,
                              "height", size.height, "size", VIPS_SIZE_FORCE, "export_profile",
                              ProfileFor(head.get()), "fail_on", VIPS_FAIL_ON_NONE, nullptr)
        != 0) {
        return std::nullopt;
    }
    const Vips upright(image);
    return PixelsOf(image, picture);
}

} // namespace folimark
