#pragma once

#include "Pixels.h"

/// The decoders of the table of formats; see Decoder for what each of them does.
namespace folimark {

std::optional<Pixels> DecodeWithVips(Bytes file, Size wanted); // JPEG, GIF, PNG
std::optional<Pixels> DecodeTiff(Bytes file, Size wanted);
std::optional<Pixels> DecodeJpeg2000(Bytes file, Size wanted);
std::optional<Pixels> DecodeBmp(Bytes file, Size wanted);
std::optional<Pixels> DecodeMacPaint(Bytes file, Size wanted);
std::optional<Pixels> DecodeQuickTimeImage(Bytes file, Size wanted);
std::optional<Pixels> DecodePdf(Bytes file, Size wanted);

std::optional<Pixels> DecodePict(Bytes file, Size wanted);
std::optional<Pixels> DecodeJpegWithMagick(Bytes file, Size wanted);
std::optional<Pixels> DecodeTiffWithMagick(Bytes file, Size wanted);
std::optional<Pixels> DecodeBmpWithMagick(Bytes file, Size wanted);

} // namespace folimark
