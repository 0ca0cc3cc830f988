#pragma once

#include "Pixels.h"

#include <string_view>

namespace folimark {

/// The kinds of file that are read, each by exactly one decoder.
enum class PictureKind { Unknown, Jpeg, Gif, Png, Tiff, Pict, Jpeg2000, Bmp, MacPaint, QuickTimeImage, Pdf };

/// The kind that a name of the file type table stands for; Unknown for all but the image types and
/// "book/pdf".
PictureKind KindOfType(std::string_view type);

/// The kind that `bytes` begin as. Unknown too for the kinds that have no reliable mark: PICT, MacPaint and
/// QuickTime image.
PictureKind KindOfContent(Bytes bytes);

} // namespace folimark
