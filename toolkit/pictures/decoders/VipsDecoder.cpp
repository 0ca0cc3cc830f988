#include "Decoders.h"
#include "Vips.h"

namespace folimark {
namespace {

std::optional<Pixels> Thumbnail(Bytes file, Size picture, Size size, const char* profile) {
    VipsImage* image = nullptr;
    if (vips_thumbnail_buffer(const_cast<std::uint8_t*>(file.data()), file.size(), &image, size.width,
                              "height", size.height, "size", VIPS_SIZE_FORCE, "export_profile", profile,
                              "fail_on", VIPS_FAIL_ON_NONE, nullptr)
        != 0) {
        return std::nullopt;
    }
    const Vips upright(image);
    return PixelsOf(image, picture);
}

} // namespace

std::optional<Pixels> DecodeWithVips(Bytes file, Size wanted) {
    const Vips head = ReadHead(file);
    if (!head) {
        return std::nullopt;
    }
    const Size picture = UprightSize(head.get());
    const Size size = SizeFor(picture, wanted);
    const char* profile = ProfileFor(head.get());
    std::optional<Pixels> pixels = Thumbnail(file, picture, size, profile);
    // A profile that is broken itself doesn't cost the picture.
    return pixels || profile == nullptr ? std::move(pixels) : Thumbnail(file, picture, size, nullptr);
}

} // namespace folimark
