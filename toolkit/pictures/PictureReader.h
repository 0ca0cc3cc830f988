#pragma once

#include "PictureRefusal.h"
#include "PictureWorker.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

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

/// What is asked of a picture file.
struct PictureQuestion {
    /// Native and absolute, of a regular file.
    std::string path;
    /// A name of the file type table, such as "image/jpeg" or "book/pdf". A file that holds another of these
    /// types than its name says is read as what it is.
    std::string type;
    /// In device pixels, the size of the box in which the picture will be drawn: its longer side (the height,
    /// if it is a square) is made as long as that side of the box. An image is never enlarged, a page is. 0
    /// asks for the own size. In each case a picture has 2^26 pixels at most, and is made smaller if it would
    /// have more.
    int wantedWidth = 0;
    int wantedHeight = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check means what the compiler makes of this
    auto operator<=>(const PictureQuestion&) const = default;
};

/// One state of one file: as soon as anything is written to it, or another file takes its place, this
/// differs.
struct FileState {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds, as is `changed`
    std::int64_t changed = 0;

    bool operator==(const FileState&) const = default;

    /// Nothing if the system can't tell, or doesn't answer for some seconds.
    static std::optional<FileState> Of(const std::string& path);
    static std::optional<FileState> Of(int descriptor);
};

struct PictureReading {
    /// The file that was read; nothing if it couldn't be opened.
    std::optional<FileState> file;
    /// Nothing if it can't be shown.
    std::optional<DecodedPicture> picture;
    PictureRefusal refusal = PictureRefusal::Unreadable;
};

/// Reads one picture after the other, in a picture process of its own. One thread reads; any may break off.
class PictureReader {
  public:
    PictureReader();

    PictureReading Read(const PictureQuestion& question);
    /// Makes a reading under way, or else the next one, end at once, with nothing.
    void BreakOff();
    /// Takes back a breaking off that came too late for what it was meant for.
    void GoOn();

    /// Ends the picture process, if it runs.
    void End() { worker_.End(); }
    /// See SetPictureProcessExecutable.
    void SetExecutable(std::string path) { worker_.SetExecutable(std::move(path)); }

  private:
    bool IsBrokenOff() const;
    /// After a reading that failed: is that no fault of the file, since the picture process can't be started,
    /// or ends at whatever it is asked?
    bool IsBroken();
    PictureRefusal WhyNot(const PictureReading& reading, const std::optional<PictureAnswer>& answer,
                          PictureWorker::Clock::time_point end);

    PictureWorker worker_;
    Descriptor brokenOff_; ///< an event counter, readable when a reading is to end
};

} // namespace folimark
