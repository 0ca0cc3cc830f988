#pragma once

#include "Pixels.h"

#include <array>
#include <span>
#include <string_view>

namespace folimark {

/// Reads a file of one format into the size for a box of the size `wanted` (see SizeFor). Gives nothing if it
/// can't, and what there is of a picture that is cut off or damaged further down. Raises PictureTooLarge.
using Decoder = std::optional<Pixels> (*)(Bytes file, Size wanted);

/// A format that is read: all that there is to say about it.
struct PictureFormat {
    /// Its name in the file type table.
    std::string_view type;
    /// What its files begin with, one of them; none for a format that can't be told by its content.
    std::array<std::string_view, 4> marks;
    /// What else has to hold of a file that begins so; null for nothing.
    bool (*isReally)(Bytes file);
    Decoder decoder;
    /// Asked for what the first one can't read, or reads as a single colour; null if there is none.
    Decoder second;
};

std::span<const PictureFormat> PictureFormats();

/// The format whose marks `file` begins with; null for what is none, or of a format without marks.
const PictureFormat* FormatOfContent(Bytes file);

/// Reads `file` as `format`.
std::optional<Pixels> DecodeAs(const PictureFormat& format, Bytes file, Size wanted);

/// Reads a file whose name says that it is of the type `type`, as what it really is.
std::optional<Pixels> DecodeFile(std::string_view type, Bytes file, Size wanted);

} // namespace folimark
