#pragma once

#include "PictureProcess.h"
#include "PictureRefusal.h"
#include "PictureWorker.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace folimark {

/// What is asked of a picture file; the members mean what they mean for ReadPicture.
struct PictureQuestion {
    std::string path;
    std::string type;
    int wantedWidth = 0;
    int wantedHeight = 0;

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

    /// Nothing if the system can't tell.
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

    /// After a reading that failed: is that no fault of the file, since the picture process can't be started,
    /// or ends at whatever it is asked?
    bool IsBroken();
    /// Ends the picture process, if it runs.
    void End() { worker_.End(); }
    /// See SetPictureProcessExecutable.
    void SetExecutable(std::string path) { worker_.SetExecutable(std::move(path)); }

  private:
    bool IsBrokenOff() const;
    PictureRefusal WhyNot(const PictureReading& reading, const std::optional<PictureAnswer>& answer,
                          PictureWorker::Clock::time_point end);

    PictureWorker worker_;
    Descriptor brokenOff_; ///< an event counter, readable when a reading is to end
};

} // namespace folimark
