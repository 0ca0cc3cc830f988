#include "Decoders.h"
#include "Vips.h"

#include <algorithm>
#include <string_view>

namespace folimark {
namespace {

/// A picture that has to be decoded as a whole takes more than five seconds from here on, on any machine of
/// today. JPEG is decoded at a fraction of its size.
constexpr std::int64_t kMostPixelsWhole = std::int64_t{1} << 29;

bool IsJpeg(VipsImage* head) {
    const char* loader = "";
    vips_image_get_string(head, VIPS_META_LOADER, &loader);
    return std::string_view(loader) == "jpegload_buffer";
}

/// The picture to scale to `size`: JPEG at the fraction that is the fastest to decode.
Vips Reduced(Bytes file, Vips head, Size picture, Size size) {
    const int most = std::min(picture.width / size.width, picture.height / size.height);
    if (!IsJpeg(head.get()) || most < 2) {
        return head;
    }
    return ReadHead(file, most < 4 ? "shrink=2" : most < 8 ? "shrink=4" : "shrink=8");
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
    Vips head = ReadHead(file);
    if (!head) {
        return std::nullopt;
    }
    const Size picture = UprightSize(head.get());
    if (std::int64_t{picture.width} * picture.height > kMostPixelsWhole && !IsJpeg(head.get())) {
        throw PictureTooLarge();
    }
    const Size size = SizeFor(picture, wanted);
    const char* profile = ProfileFor(head.get());
    std::optional<Pixels> pixels;
    if (HasProfileOfInks(head.get())) {
        pixels = PixelsOf(ScaledByInks(Reduced(file, std::move(head), picture, size), size), picture);
    }
    if (!pixels) {
        pixels = Thumbnail(file, picture, size, profile);
    }
    // A profile that is broken itself doesn't cost the picture.
    return pixels || profile == nullptr ? pixels : Thumbnail(file, picture, size, nullptr);
}

} // namespace folimark
