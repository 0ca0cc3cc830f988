#include "SlowDisk.h"

#include <atomic>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

std::atomic<std::chrono::microseconds> answerDelay{};

} // namespace

void SetAnswerDelay(std::chrono::microseconds delay) {
    answerDelay = delay;
}

/// Stands in for the C library's, in this program alone.
extern "C" int statx(int folder, const char* name, int flags, unsigned mask, struct statx* answer) noexcept {
    if (const std::chrono::microseconds delay = answerDelay;
        delay.count() > 0 && (flags & AT_STATX_DONT_SYNC) == 0) {
        std::this_thread::sleep_for(delay);
    }
    return static_cast<int>(syscall(SYS_statx, folder, name, flags, mask, answer));
}
