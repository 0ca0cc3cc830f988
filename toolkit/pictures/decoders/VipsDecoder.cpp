#include "Decoders.h"
#include "Vips.h"

#include <string_view>

namespace folimark {
namespace {

/// A picture that has to be decoded as a whole takes more than five seconds from here on, on any machine of
/// today. JPEG is decoded at a fraction of its size.
constexpr std::int64_t kMostPixelsWhole = std::int64_t{1} << 29;

bool IsTooLarge(VipsImage* head, Size picture) {
    const char* loader = "";
    vips_image_get_string(head, VIPS_META_LOADER, &loader);
    return std::int64_t{picture.width} * picture.height > kMostPixelsWhole
           && std::string_view(loader) != "jpegload_buffer";
}

std::optional<Pixels> Thumbnail(Bytes file, Size picture, Size size, const char* profile) {
    VipsImage* image = nullptr;
    if (vips_thumbnail_buffer(const_cast<std::uint8_t*>(file.data()), file.size(), &image, size.width,
                              "height", size.height, "size", VIPS_SIZE_FORCE, "export_profile", profile,
                              "fail_on", VIPS_FAIL_ON_NONE, nullptr)
        != 0) {
        return std::nullopt;
    }
    return PixelsOf(Vips(image), picture);
}

} // namespace

std::optional<Pixels> DecodeWithVips(Bytes file, Size wanted) {
    const Vips head = ReadHead(file);
    if (!head) {
        return std::nullopt;
    }
    const Size picture = UprightSize(head.get());
    if (IsTooLarge(head.get(), picture)) {
        throw PictureTooLarge();
    }
    const Size size = SizeFor(picture, wanted);
    const char* profile = ProfileFor(head.get());
    std::optional<Pixels> pixels = Thumbnail(file, picture, size, profile);
    // A profile that is broken itself doesn't cost the picture.
    return pixels || profile == nullptr ? std::move(pixels) : Thumbnail(file, picture, size, nullptr);
}

} // namespace folimark
