#include "RegularFile.h"

#include "NativePath.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace folimark {
namespace {

/// Even to open a pipe or a device can have effects, so the kind is asked first, and once more of what was
/// opened then.
int OpenIn(int folder, const char* name) {
    struct stat status {};
    if (fstatat(folder, name, &status, 0) != 0) {
        return -1;
    }
    if (S_ISREG(status.st_mode)) {
        Descriptor file(openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        if (!file || (fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode))) {
            return file.Release();
        }
    }
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return -1;
}

} // namespace

Descriptor OpenRegularFile(const std::string& path) {
    return Descriptor(AtNativePath(path, OpenIn));
}

} // namespace folimark
