#include "Fuzz.h"
#include "Jpeg2000Samples.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

using namespace folimark;

// What OpenJPEG might hand over: components of any size, depth and kind, with their data in place.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHead = 8;
    constexpr std::size_t kMostComponents = 6;
    if (size < 2 + kHead) {
        return 0;
    }
    std::array<opj_image_comp_t, kMostComponents> components{};
    std::array<std::vector<OPJ_INT32>, kMostComponents> values;
    opj_image_t image{};
    image.color_space = static_cast<OPJ_COLOR_SPACE>(data[0] % 6);
    image.numcomps = std::min<OPJ_UINT32>(data[1] % (kMostComponents + 1), OPJ_UINT32((size - 2) / kHead));
    image.comps = components.data();
    for (std::size_t i = 0; i < image.numcomps; ++i) {
        const std::uint8_t* head = data + 2 + i * kHead;
        opj_image_comp_t& component = components.at(i);
        component.w = head[0];
        component.h = head[1];
        component.dx = head[2];
        component.prec = head[3] % 40;
        component.sgnd = head[4] % 2;
        component.alpha = head[5] % 3;
        values.at(i).assign(std::size_t{component.w} * component.h,
                            static_cast<OPJ_INT32>(std::uint32_t{head[6]} << 24 | head[7]));
        component.data = head[5] == 255 ? nullptr : values.at(i).data();
    }
    std::vector<OPJ_BYTE> profile(data, data + size);
    image.icc_profile_buf = profile.data();
    image.icc_profile_len = static_cast<OPJ_UINT32>(profile.size());
    const auto samples = SamplesOf(image, {1, 1});
    if (samples) {
        test::Require(samples->bytes.size()
                      == std::size_t(samples->size.width) * std::size_t(samples->size.height)
                             * std::size_t(samples->samplesPerPixel));
    }
    return 0;
}
