#include "Decoders.h"
#include "Fuzz.h"
#include "ImageDescription.h"

// What it holds as a file of another format is for that one's decoder.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const folimark::Bytes file(data, size);
    if (const auto description = folimark::ReadImageDescription(file)) {
        folimark::ReadRawPicture(*description, file);
    }
    folimark::test::TryDecoder(folimark::DecodeQuickTimeImage, file);
    return 0;
}
