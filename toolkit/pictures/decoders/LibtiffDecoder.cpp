#include "LibtiffDecoder.h"

#include "Vips.h"

#include <algorithm>
#include <cstring>
#include <tiffio.h>

namespace folimark {
namespace {

// The whole picture is held in memory twice, at up to four bytes a pixel.
constexpr std::int64_t kMostPixelsRead = 100'000'000;

/// Where libtiff stands in the file.
struct Source {
    Bytes bytes;
    std::uint64_t position = 0;
};

tmsize_t Read(thandle_t handle, void* buffer, tmsize_t length) {
    auto* source = static_cast<Source*>(handle);
    if (source->position >= source->bytes.size()) {
        return 0;
    }
    const auto count = std::min(static_cast<std::size_t>(length), source->bytes.size() - source->position);
    std::memcpy(buffer, source->bytes.data() + source->position, count);
    source->position += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t RefuseToWrite(thandle_t /*handle*/, void* /*buffer*/, tmsize_t /*length*/) {
    return 0;
}

toff_t Seek(thandle_t handle, toff_t offset, int from) {
    auto* source = static_cast<Source*>(handle);
    const toff_t start = from == SEEK_CUR ? source->position : from == SEEK_END ? source->bytes.size() : 0;
    return source->position = start + offset;
}

int Close(thandle_t /*handle*/) {
    return 0;
}

toff_t SizeOf(thandle_t handle) {
    return static_cast<Source*>(handle)->bytes.size();
}

struct TiffRelease {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using Tiff = std::unique_ptr<TIFF, TiffRelease>;

/// `source` outlives the result.
Tiff Open(Source& source) {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    return Tiff(
        TIFFClientOpen("", "rm", &source, Read, RefuseToWrite, Seek, Close, SizeOf, nullptr, nullptr));
}

template <class Number>
Number Field(TIFF* tiff, std::uint32_t tag) {
    Number number{};
    TIFFGetFieldDefaulted(tiff, tag, &number);
    return number;
}

} // namespace

std::optional<int> PhotometricOfTiff(Bytes file) {
    Source source{file};
    const Tiff tiff = Open(source);
    std::uint16_t photometric = 0;
    return tiff && TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &photometric) != 0
               ? std::optional<int>(photometric)
               : std::nullopt;
}

std::optional<Pixels> DecodeTiffWithLibtiff(Bytes file, Size wanted) {
    Source source{file};
    const Tiff tiff = Open(source);
    if (!tiff) {
        return std::nullopt;
    }
    const auto width = Field<std::uint32_t>(tiff.get(), TIFFTAG_IMAGEWIDTH);
    const auto height = Field<std::uint32_t>(tiff.get(), TIFFTAG_IMAGELENGTH);
    if (width == 0 || height == 0 || std::int64_t{width} * height > kMostPixelsRead) {
        throw PictureTooLarge();
    }
    const int orientation = Field<std::uint16_t>(tiff.get(), TIFFTAG_ORIENTATION);
    std::vector<std::uint32_t> raster(std::size_t{width} * height);
    // As it lies in the file, and as far as it can be read: it is turned when it is scaled.
    if (TIFFReadRGBAImageOriented(tiff.get(), width, height, raster.data(), orientation, 0) == 0
        && std::ranges::all_of(raster, [](std::uint32_t pixel) { return pixel == 0; })) {
        return std::nullopt;
    }
    Size size{static_cast<int>(width), static_cast<int>(height)};
    Samples samples{size, size, 3, false, {}, {}, orientation};
    samples.bytes.reserve(raster.size() * 3);
    for (const std::uint32_t pixel : raster) {
        for (const int shift : {0, 8, 16}) {
            samples.bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
        }
    }
    return Scaled(samples, wanted);
}

} // namespace folimark
