#include "Fuzz.h"
#include "PictureFormat.h"

using namespace folimark;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const PictureFormat* format = FormatOfContent({data, size});
    test::Require(format == nullptr || format->decoder != nullptr);
    // Sizes out of the input: no answer is too large for the memory that is made for it.
    if (size >= 16) {
        const auto side = [data](int place, int most) {
            return 1 + (data[place] | data[place + 1] << 8 | data[place + 2] << 16) % most;
        };
        const Size wanted{side(0, 40'000), side(3, 40'000)};
        const Size found = SizeFor({side(6, 1 << 24), side(9, 1 << 24)}, wanted, data[12] % 2 == 0);
        const std::int64_t longer = std::max(wanted.width, wanted.height);
        test::Require(found.width > 0 && found.height > 0);
        test::Require(std::int64_t{found.width} * found.height <= longer * longer);
    }
    return 0;
}
