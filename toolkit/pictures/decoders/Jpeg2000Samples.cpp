#include "Jpeg2000Samples.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace folimark {
namespace {

/// One component, stretched to the picture's size and brought to 8 bits.
class Component {
  public:
    Component(const opj_image_comp_t& component, Size size)
        : component_(component), size_(size),
          offset_(component.sgnd != 0 ? std::int64_t{1} << (component.prec - 1) : 0),
          largest_((std::int64_t{1} << component.prec) - 1) {}

    std::uint8_t At(int x, int y) const {
        const std::int64_t column = std::int64_t{x} * component_.w / size_.width;
        const std::int64_t row = std::int64_t{y} * component_.h / size_.height;
        const std::int64_t value = component_.data[row * component_.w + column] + offset_;
        return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, largest_) * 255 / largest_);
    }

  private:
    const opj_image_comp_t& component_;
    Size size_;
    std::int64_t offset_;
    std::int64_t largest_;
};

/// Which components make a pixel, and what they are.
struct Layout {
    std::vector<OPJ_UINT32> order; // the opacity last
    bool isCmyk = false;
    bool isYcc = false;
};

bool IsUsable(const opj_image_comp_t& component) {
    return component.data != nullptr && component.w > 0 && component.h > 0 && component.prec > 0
           && component.prec <= 32;
}

Layout LayoutOf(const opj_image_t& image, std::string_view profileSpace) {
    const OPJ_UINT32 count = image.numcomps;
    Layout layout;
    layout.isCmyk = count >= 4 && (image.color_space == OPJ_CLRSPC_CMYK || profileSpace == "CMYK");
    const OPJ_UINT32 colours = layout.isCmyk ? 4 : count >= 3 ? 3 : 1;
    for (OPJ_UINT32 i = 0; i < colours; ++i) {
        layout.order.push_back(i);
    }
    // Colours in less detail than the brightness are how Y, Cb and Cr are kept, whatever the header says.
    layout.isYcc = colours == 3
                   && (image.color_space == OPJ_CLRSPC_SYCC || image.color_space == OPJ_CLRSPC_EYCC
                       || (image.comps[0].dx == 1 && image.comps[1].dx > 1 && image.comps[2].dx > 1));
    OPJ_UINT32 alpha = colours;
    while (alpha < count && image.comps[alpha].alpha == 0) {
        ++alpha;
    }
    // Where none is marked, a single further component is taken for the opacity.
    if (alpha == count && count == colours + 1) {
        alpha = colours;
    }
    if (alpha < count && !layout.isCmyk) {
        layout.order.push_back(alpha);
    }
    return layout;
}

/// Full-range Y, Cb, Cr to red, green, blue (ITU-R BT.601), as sYCC has it.
void YccToRgb(std::uint8_t* pixel) {
    const double y = pixel[0];
    const double cb = pixel[1] - 128.0;
    const double cr = pixel[2] - 128.0;
    const auto clamped = [](double value) {
        return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
    };
    pixel[0] = clamped(y + 1.402 * cr);
    pixel[1] = clamped(y - 0.344136 * cb - 0.714136 * cr);
    pixel[2] = clamped(y + 1.772 * cb);
}

} // namespace

std::optional<Samples> SamplesOf(const opj_image_t& image, Size picture) {
    const Bytes profile(image.icc_profile_buf, image.icc_profile_buf != nullptr ? image.icc_profile_len : 0);
    // An ICC profile names the colour space of its data at byte 16.
    const std::string_view space =
        profile.size() > 128 ? std::string_view(reinterpret_cast<const char*>(profile.data()) + 16, 4) : "";
    if (image.numcomps == 0 || !std::all_of(image.comps, image.comps + image.numcomps, IsUsable)) {
        return std::nullopt;
    }
    const Layout layout = LayoutOf(image, space);
    Samples samples{picture, {}, static_cast<int>(layout.order.size()), layout.isCmyk, {}, {}, 1};
    samples.size = {static_cast<int>(image.comps[0].w), static_cast<int>(image.comps[0].h)};
    std::vector<Component> components;
    for (const OPJ_UINT32 i : layout.order) {
        components.emplace_back(image.comps[i], samples.size);
    }
    const std::size_t colours = layout.order.size() >= 3 ? 3 : 1;
    if (space == (layout.isCmyk ? "CMYK" : colours == 3 ? "RGB " : "GRAY")) {
        samples.profile = profile;
    }
    samples.bytes.resize(std::size_t(samples.size.width) * std::size_t(samples.size.height)
                         * components.size());
    std::uint8_t* pixel = samples.bytes.data();
    for (int y = 0; y < samples.size.height; ++y) {
        for (int x = 0; x < samples.size.width; ++x) {
            std::ranges::transform(components, pixel,
                                   [x, y](const Component& component) { return component.At(x, y); });
            if (layout.isYcc) {
                YccToRgb(pixel);
            }
            pixel += components.size();
        }
    }
    return samples;
}

} // namespace folimark
