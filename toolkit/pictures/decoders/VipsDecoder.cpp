#include "Decoders.h"
#include "Vips.h"

namespace folimark {
namespace {

/// Libvips only reads from it.
void* DataOf(Bytes file) {
    return const_cast<std::uint8_t*>(file.data());
}

std::optional<Pixels> Thumbnail(Bytes file, Size picture, Size size, const char* profile) {
    VipsImage* image = nullptr;
    if (vips_thumbnail_buffer(DataOf(file), file.size(), &image, size.width, "height", size.height, "size",
                              VIPS_SIZE_FORCE, "export_profile", profile, "fail_on", VIPS_FAIL_ON_NONE,
                              nullptr)
        != 0) {
        return std::nullopt;
    }
    const Vips upright(image);
    return PixelsOf(image, picture);
}

} // namespace

std::optional<Pixels> DecodeWithVips(Bytes file, Size wanted) {
    if (!StartVips()) {
        return std::nullopt;
    }
    // Reads no more than the head of the file.
    const Vips head(vips_image_new_from_buffer(DataOf(file), file.size(), "", nullptr));
    if (!head) {
        return std::nullopt;
    }
    Size picture{vips_image_get_width(head.get()), vips_image_get_height(head.get())};
    if (vips_image_get_orientation_swap(head.get())) {
        std::swap(picture.width, picture.height);
    }
    const Size size = SizeFor(picture, wanted);
    const char* profile = ProfileFor(head.get());
    std::optional<Pixels> pixels = Thumbnail(file, picture, size, profile);
    // A profile that is broken itself doesn't cost the picture.
    return pixels || profile == nullptr ? std::move(pixels) : Thumbnail(file, picture, size, nullptr);
}

std::optional<Pixels> DecodeTiff(Bytes file, Size wanted) {
    return DecodeWithVips(file, wanted);
}

} // namespace folimark
