#pragma once

#include "Pixels.h"

namespace folimark {

/// QuickTime's description of a still picture, the content of the atom 'idsc'. It stands before the picture's
/// data in PICT files too.
struct ImageDescription {
    std::uint32_t codec = 0; // four letters, see FourCC
    Size size;
    std::uint32_t dataSize = 0; // in bytes; 0 if unknown
    /// Bits a pixel; from 33 on, grey with 32 bits less.
    int depth = 0;
    /// The colours of the description's own table, as 0xRRGGBB; empty if it has none.
    std::vector<std::uint32_t> colours;
};

/// Nothing if `bytes` are too short for a description.
std::optional<ImageDescription> ReadImageDescription(Bytes bytes);

/// Reads the samples of the codec 'raw ': plain rows of 1, 2, 4, 8, 16, 24 or 32 bits a pixel. Rows that are
/// cut off are left black.
std::optional<Samples> ReadRawPicture(const ImageDescription& description, Bytes data);

} // namespace folimark
