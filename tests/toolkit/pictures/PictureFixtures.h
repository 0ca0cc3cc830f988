#pragma once

#include "Descriptor.h"
#include "PictureProcess.h"

#include <string>

namespace folimark::test {

/// Most of the pictures in the folder of test files show the same: 48 by 32 points, the quarters red, green
/// (above), blue and white (below).
std::string PictureFile(const std::string& name);

/// An open, regular file that holds `content`.
Descriptor FileWith(const std::string& content);

std::optional<DecodedPicture> Read(const std::string& content, std::string_view type, int width = 0,
                                   int height = 0);

/// The pixel in the middle of each quarter, in reading order, as a letter: R, G, B, W, K for black and so on,
/// small if it is partly and '.' if it is wholly transparent. "nothing" if there is no picture.
std::string Quarters(const std::optional<DecodedPicture>& picture);

/// "48x32 as 12x8": the picture's own size and that of its pixels. "nothing" if there is no picture.
std::string Sizes(const std::optional<DecodedPicture>& picture);

/// `value` as big-endian bytes.
std::string Big(std::size_t length, std::uint64_t value);

/// The same, the lowest byte first.
std::string Little(std::size_t length, std::uint64_t value);

} // namespace folimark::test
