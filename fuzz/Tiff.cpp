#include "Fuzz.h"
#include "LibtiffDecoder.h"

// The way through libtiff, which reads through functions of ours.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    folimark::PhotometricOfTiff({data, size});
    folimark::test::TryDecoder(folimark::DecodeTiffWithLibtiff, {data, size});
    return 0;
}
