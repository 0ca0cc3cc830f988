#include "Decoders.h"
#include "Vips.h"

#include <algorithm>
#include <array>

namespace folimark {
namespace {

// Every MacPaint picture has one size, and is black on white with one bit a pixel.
constexpr Size kSize{576, 720};
constexpr std::size_t kRowLength = 576 / 8;
constexpr std::size_t kBitmapLength = kRowLength * 720;
constexpr std::size_t kHeadLength = 512; // the version, 38 patterns of 8 bytes, and blanks

/// In front of the picture there may be another head that carried a file's type between systems (MacBinary):
/// 128 bytes, with a 0, the length of the file's name, and at byte 65 the type "PNTG".
Bytes WithoutMacBinary(Bytes file) {
    constexpr std::size_t kMacBinaryLength = 128;
    constexpr std::array<std::uint8_t, 4> kType{'P', 'N', 'T', 'G'};
    const bool isWrapped = file.size() > kMacBinaryLength && file[0] == 0 && file[1] > 0 && file[1] < 64
                           && std::ranges::equal(file.subspan(65, 4), kType);
    return isWrapped ? file.subspan(kMacBinaryLength) : file;
}

/// Unpacks runs (PackBits): a count below 128 is followed by that many bytes and one more, a count above by
/// one byte, which stands for 257 less the count. Stops when `data` ends.
std::vector<std::uint8_t> Unpack(Bytes data) {
    std::vector<std::uint8_t> bitmap;
    while (data.size() > 1 && bitmap.size() < kBitmapLength) {
        const std::size_t count = data[0];
        data = data.subspan(1);
        if (count < 128) {
            const Bytes copied = data.first(std::min(count + 1, data.size()));
            bitmap.insert(bitmap.end(), copied.begin(), copied.end());
            data = data.subspan(copied.size());
        } else if (count > 128) {
            bitmap.insert(bitmap.end(), 257 - count, data[0]);
            data = data.subspan(1);
        }
    }
    return bitmap;
}

} // namespace

std::optional<Pixels> DecodeMacPaint(Bytes file, Size wanted) {
    file = WithoutMacBinary(file);
    // The version is 0 or 2, or 3 in some files.
    if (file.size() <= kHeadLength || file[0] != 0 || file[1] != 0 || file[2] != 0 || file[3] > 3) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bitmap = Unpack(file.subspan(kHeadLength));
    bitmap.resize(kBitmapLength); // what is cut off stays white
    Samples samples{kSize, kSize, 1, false, {}, {}, 1};
    samples.bytes.reserve(kBitmapLength * 8);
    for (const std::uint8_t byte : bitmap) {
        for (int bit = 7; bit >= 0; --bit) {
            samples.bytes.push_back((byte >> bit & 1) != 0 ? 0 : 255);
        }
    }
    return Scaled(samples, wanted);
}

} // namespace folimark
