#include "Confinement.h"

#include "CallFilter.h"
#include "Landlock.h"

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>

namespace folimark {

void ConfineThisProcess(std::span<const std::string> readable, const Walls& walls) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);       // also in the middle of a file, when the socket's end isn't seen
    prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);     // nor looked into by others
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0); // the others ask for it
    if (walls.files) {
        AllowReadingOnly(readable, std::min(LandlockVersion(), walls.newestFiles));
    }
    if (walls.calls) {
        AllowDecodingOnly();
    }
}

} // namespace folimark
