#pragma once

#include <cstdint>
#include <sys/types.h>

namespace folimark {

/// What the system said about a place, at the end of its links. All is 0 for what doesn't exist.
struct FileStatus {
    bool exists = false;
    bool gone = false; // Nothing is there. Of a place that the system can't reach neither is true.
    bool createdIsKnown = false;
    mode_t mode = 0;
    std::uint64_t size = 0;    // in bytes
    std::int64_t modified = 0; // in seconds since 1970-01-01 00:00 UTC
    std::int64_t created = 0;  // likewise

    /// Neither there nor gone: the question failed (no permission, a broken disk, a lost connection).
    bool Failed() const { return !exists && !gone; }
};

/// Does an error of the system's say that nothing is there, rather than that it can't tell?
bool MeansGone(int error);

/// Asks about a name in an open folder, or about an absolute path.
FileStatus AskStatus(int folder, const char* name);

/// When the content of a folder last changed, as far as the system knows without asking the disk or a server.
struct ChangeTime {
    bool known = false; // not if that was just now, when another change would show the same time
    std::int64_t seconds = 0;
    std::uint32_t nanoseconds = 0;

    static ChangeTime Of(int folder);
    /// True only if both are known.
    bool operator==(const ChangeTime& other) const {
        return known && other.known && seconds == other.seconds && nanoseconds == other.nanoseconds;
    }
};

} // namespace folimark
