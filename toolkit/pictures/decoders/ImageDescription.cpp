#include "ImageDescription.h"

#include "BigEndian.h"

namespace folimark {

std::optional<ImageDescription> ReadImageDescription(Bytes bytes) {
    BigEndianReader reader(bytes);
    ImageDescription description;
    reader.U32(); // the description's own size
    description.codec = reader.U32();
    reader.Take(8 + 8 + 8); // reserved, data reference; version, vendor; qualities in time and space
    description.size.width = reader.U16();
    description.size.height = reader.U16();
    reader.Take(8); // resolutions
    description.dataSize = reader.U32();
    reader.Take(2 + 32); // number of frames, codec's name
    description.depth = reader.U16();
    const std::uint16_t table = reader.U16();
    if (!reader.IsSound() || description.size.width == 0 || description.size.height == 0) {
        return std::nullopt;
    }
    if (table == 0) {       // the colours follow
        reader.Take(4 + 2); // seed, flags
        const int count = reader.U16() + 1;
        for (int i = 0; i < count && reader.IsSound(); ++i) {
            reader.U16(); // index
            const std::uint32_t red = reader.U16() >> 8;
            const std::uint32_t green = reader.U16() >> 8;
            const std::uint32_t blue = reader.U16() >> 8;
            description.colours.push_back(red << 16 | green << 8 | blue);
        }
    }
    return description;
}

} // namespace folimark
