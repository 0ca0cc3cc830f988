#pragma once

#include "PictureRefusal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace folimark {

/// A picture as the picture process gave it back: turned upright as its metadata says, its colours in sRGB,
/// what is transparent in it left transparent.
struct DecodedPicture {
    /// The picture's own size: pixels of an image file, points (1/72 inch) of a PDF file's first page.
    int pictureWidth = 0;
    int pictureHeight = 0;
    /// The size of `pixels`: the picture's own aspect, and no larger than was wanted.
    int width = 0;
    int height = 0;
    /// Premultiplied ARGB in native byte order (QImage::Format_ARGB32_Premultiplied), row by row from the
    /// top, without gaps between the rows. Lives in shared memory that nobody can write to any more.
    std::shared_ptr<const std::uint32_t> pixels;
};

/// Reads an image or a PDF file's first page in a process of its own, which is started at the first call and
/// again when it has died; a decoder that crashes takes nothing else with it.
///
/// `path` is the native, absolute path of a regular file. `type` is a name of the file type table, such as
/// "image/jpeg" or "book/pdf"; a file that holds another of these types than its
/// name says is read as what it is. The wanted size, in device pixels, is that of the box in which the
/// picture will be drawn: its longer side (the height, if it is a square) is made as long as that side of the
/// box. An image is never enlarged, a page is. A wanted width or height of 0 asks for the own size. In each
/// case a picture has 2^26 pixels at most, and is made smaller if it would have more.
///
/// Gives nothing if the file can't be read, or opening and reading it take more than five seconds or more
/// than 1.5 GiB, and never waits longer, whatever the file lies on. Waits for the answer; the caller's thread
/// is the only one that may use the picture process.
std::optional<DecodedPicture> ReadPicture(const std::string& path, std::string_view type, int wantedWidth,
                                          int wantedHeight);

/// Why the last call of ReadPicture gave nothing; None if it gave a picture.
PictureRefusal LastRefusal();

/// After ReadPicture has given nothing: is that no fault of the file, since the picture process can't be
/// started, or ends at whatever it is asked?
bool PictureProcessIsBroken();

/// Ends the picture process, if it runs. Pictures that were read stay valid.
void EndPictureProcess();

/// The path of the executable to start, from the next start on. By default it is `folimark-pictures`, in the
/// folder of this program's own executable. "" stands for that default.
void SetPictureProcessExecutable(std::string path);
/// What was set last.
const std::string& PictureProcessExecutable();

} // namespace folimark
