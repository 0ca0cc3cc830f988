#pragma once

#include "Pixels.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What libFuzzer calls with each input; what it finds is a death of the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace folimark::test {

/// Dies of a promise that doesn't hold.
inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Reads a file for a small room, and dies of pixels that aren't there.
inline void TryDecoder(std::optional<Pixels> (*decoder)(Bytes file, Size wanted), Bytes file) {
    try {
        if (const auto pixels = decoder(file, {8, 8})) {
            Require(pixels->size.width > 0 && pixels->size.width <= 8 && pixels->size.height > 0);
            Require(pixels->argb.size()
                    == std::size_t(pixels->size.width) * std::size_t(pixels->size.height));
        }
    } catch (const std::exception&) { // a lie about sizes
    }
}

} // namespace folimark::test
