#include "Decoders.h"
#include "Fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    folimark::test::TryDecoder(folimark::DecodeMacPaint, {data, size});
    return 0;
}
