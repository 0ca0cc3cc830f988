#include "FileStatus.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace folimark {

bool MeansGone(int error) {
    return error == ENOENT || error == ENOTDIR;
}

FileStatus AskStatus(int folder, const char* name) {
    struct statx answer {};
    FileStatus status;
    if (statx(folder, name, AT_STATX_SYNC_AS_STAT,
              STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_BTIME, &answer)
        == 0) {
        status.exists = true;
        status.createdIsKnown = (answer.stx_mask & STATX_BTIME) != 0;
        status.mode = answer.stx_mode;
        status.size = answer.stx_size;
        status.modified = answer.stx_mtime.tv_sec;
        status.created = answer.stx_btime.tv_sec;
    } else {
        status.gone = MeansGone(errno);
    }
    return status;
}

ChangeTime ChangeTime::Of(int folder) {
    struct statx answer {};
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (statx(folder, "", AT_EMPTY_PATH | AT_STATX_DONT_SYNC, STATX_MTIME, &answer) != 0) {
        return {};
    }
    // What has changed within the clock's latest ticks could change again and show the same time.
    const auto& then = answer.stx_mtime;
    const bool isRecent = then.tv_sec >= now.tv_sec - 1 && then.tv_sec <= now.tv_sec;
    return {.known = !isRecent, .seconds = then.tv_sec, .nanoseconds = then.tv_nsec};
}

} // namespace folimark
