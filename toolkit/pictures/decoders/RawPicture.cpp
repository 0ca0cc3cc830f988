#include "ImageDescription.h"
#include "PictureProtocol.h"

#include <algorithm>
#include <array>

namespace folimark {
namespace {

/// The standard colours for 8 bits: a cube of 6 by 6 by 6 from white downwards, of which black is left for
/// the end, and ramps of red, green, blue and grey with the values that the cube doesn't have.
std::vector<std::uint32_t> StandardColours() {
    std::vector<std::uint32_t> colours;
    for (std::uint32_t i = 0; i < 215; ++i) {
        colours.push_back((5 - i / 36) * 0x330000 + (5 - i / 6 % 6) * 0x3300 + (5 - i % 6) * 0x33);
    }
    for (const std::uint32_t ramp : {0x010000U, 0x000100U, 0x000001U, 0x010101U}) {
        for (const std::uint32_t value :
             {0xEEU, 0xDDU, 0xBBU, 0xAAU, 0x88U, 0x77U, 0x55U, 0x44U, 0x22U, 0x11U}) {
            colours.push_back(ramp * value);
        }
    }
    colours.push_back(0);
    return colours;
}

/// What the indices of `bits` bits mean. Grey runs from white to black.
std::vector<std::uint32_t> ColoursOf(const ImageDescription& description, int bits) {
    std::vector<std::uint32_t> colours = description.colours;
    const auto count = std::size_t{1} << bits;
    if (colours.empty() && description.depth == 8) {
        colours = StandardColours();
    } else if (colours.empty()) {
        for (std::size_t i = 0; i < count; ++i) {
            colours.push_back(static_cast<std::uint32_t>(255 - 255 * i / (count - 1)) * 0x010101);
        }
    }
    colours.resize(count);
    return colours;
}

/// Takes pixels out of one row, as 0xAARRGGBB.
class Row {
  public:
    Row(Bytes bytes, int bits, const std::vector<std::uint32_t>& colours)
        : bytes_(bytes), bits_(static_cast<std::size_t>(bits)), colours_(colours) {}

    std::uint32_t Pixel(std::size_t x) const {
        if (bits_ <= 8) {
            const std::size_t shift = 8 - bits_ - x * bits_ % 8;
            return 0xFF000000 | colours_[bytes_[x * bits_ / 8] >> shift & ((1U << bits_) - 1)];
        }
        std::uint32_t value = 0;
        for (const std::uint8_t byte : bytes_.subspan(x * bits_ / 8, bits_ / 8)) {
            value = value << 8 | byte;
        }
        if (bits_ == 16) { // 5 bits each
            const auto wide = [value](int shift) { return (value >> shift & 31) * 255 / 31; };
            return 0xFF000000 | wide(10) << 16 | wide(5) << 8 | wide(0);
        }
        return bits_ == 24 ? 0xFF000000 | value : value;
    }

  private:
    Bytes bytes_;
    std::size_t bits_;
    const std::vector<std::uint32_t>& colours_;
};

} // namespace

std::optional<Samples> ReadRawPicture(const ImageDescription& description, Bytes data) {
    const int bits = description.depth > 32 ? description.depth - 32 : description.depth;
    constexpr std::array kDepths{1, 2, 4, 8, 16, 24, 32};
    if (std::ranges::find(kDepths, bits) == kDepths.end() || (description.depth > 32 && bits > 8)
        || std::int64_t{description.size.width} * description.size.height > kMostPixels) {
        return std::nullopt;
    }
    const std::vector<std::uint32_t> colours =
        bits <= 8 ? ColoursOf(description, bits) : std::vector<std::uint32_t>();
    const auto width = static_cast<std::size_t>(description.size.width);
    const auto height = static_cast<std::size_t>(description.size.height);
    // Rows may be padded, and nothing but the size of the whole says how far.
    const std::size_t packed = (width * static_cast<std::size_t>(bits) + 7) / 8;
    const std::size_t rowLength = std::max(packed, description.dataSize / height);

    Samples samples{description.size, description.size, 4, false, {}, {}, 1};
    samples.bytes.reserve(width * height * 4);
    std::uint32_t anyAlpha = 0;
    for (std::size_t y = 0; y < height && (y + 1) * rowLength <= data.size(); ++y) {
        const Row row(data.subspan(y * rowLength, packed), bits, colours);
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint32_t pixel = row.Pixel(x);
            anyAlpha |= pixel >> 24;
            for (const int shift : {16, 8, 0, 24}) {
                samples.bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
        }
    }
    if (samples.bytes.empty()) {
        return std::nullopt;
    }
    samples.bytes.resize(width * height * 4);
    if (anyAlpha == 0) { // nobody stores an invisible picture: the fourth byte was never meant
        for (std::size_t i = 3; i < samples.bytes.size(); i += 4) {
            samples.bytes[i] = 255;
        }
    }
    return samples;
}

} // namespace folimark
