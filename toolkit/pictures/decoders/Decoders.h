#pragma once

#include "PictureKind.h"
#include "Pixels.h"

namespace folimark {

/// Each decoder reads a file of its kind into the size for a box of the size `wanted` (see SizeFor). It gives
/// nothing if it can't, and what there is of a picture that is cut off or damaged further down.

std::optional<Pixels> DecodeWithVips(PictureKind kind, Bytes file, Size wanted); // JPEG, GIF, PNG, TIFF
std::optional<Pixels> DecodeJpeg2000(Bytes file, Size wanted);
std::optional<Pixels> DecodeBmp(Bytes file, Size wanted);
std::optional<Pixels> DecodePict(Bytes file, Size wanted);
std::optional<Pixels> DecodeMacPaint(Bytes file, Size wanted);
std::optional<Pixels> DecodeQuickTimeImage(Bytes file, Size wanted);
std::optional<Pixels> DecodePdf(Bytes file, Size wanted);

/// Reads `file` with the decoder for `kind`.
std::optional<Pixels> DecodeAs(PictureKind kind, Bytes file, Size wanted);

/// Reads a file whose name says that it is of the type `type`, with the decoder for what it really is.
std::optional<Pixels> DecodeFile(std::string_view type, Bytes file, Size wanted);

} // namespace folimark
