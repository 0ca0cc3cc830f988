#include "NativePath.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace folimark {
namespace {

constexpr int kFolder = O_DIRECTORY | O_CLOEXEC;
/// A longer path has to be gone along piece by piece. One name has at most 255 bytes.
constexpr std::size_t kLongestPiece = PATH_MAX - 96;

using OpenPiece = Descriptor(int folder, const char* path, int flags);

Descriptor FollowLinks(int folder, const char* path, int flags) {
    return Descriptor(openat(folder, path, kFolder | flags));
}

/// A link on the way counts as what it is, no folder (ENOTDIR).
Descriptor RefuseLinks(int folder, const char* path, int flags) {
    open_how how{};
    how.flags = static_cast<unsigned>(kFolder | O_NOFOLLOW | flags);
    how.resolve = RESOLVE_NO_SYMLINKS;
    Descriptor opened(static_cast<int>(syscall(SYS_openat2, folder, path, &how, sizeof how)));
    if (!opened && (errno == ENOSYS || errno == EPERM)) { // an old system, or a sandbox that doesn't know it
        const char* end = path;
        do {
            end = strchrnul(path, '/');
            opened = OpenListedFolder(opened ? opened.Get() : folder, std::string(path, end).c_str(),
                                      *end == '\0' ? flags : O_PATH);
            path = end + 1;
        } while (opened && *end != '\0');
    }
    if (!opened && errno == ELOOP) {
        errno = ENOTDIR;
    }
    return opened;
}

/// Goes along a path from a folder, or from the root if there is none, in pieces that the system takes.
Descriptor GoAlong(Descriptor folder, std::string path, int flags, OpenPiece& open) {
    for (std::size_t start = 0; start < path.size();) {
        std::size_t end = path.size();
        if (end - start > kLongestPiece) {
            end = path.rfind('/', start + kLongestPiece);
            if (end == std::string::npos || end <= start) {
                end = path.size(); // a name too long for any file: the system says so
            } else {
                path[end] = '\0';
            }
        }
        folder =
            open(folder ? folder.Get() : AT_FDCWD, path.c_str() + start, end == path.size() ? flags : O_PATH);
        if (!folder) {
            break;
        }
        start = end + 1;
    }
    return folder;
}

} // namespace

std::string FolderOfPath(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

std::string_view NameOfPath(const std::string& path) {
    return std::string_view(path).substr(path.rfind('/') + 1);
}

Descriptor OpenFolderPath(std::string_view path, int flags, std::size_t listed) {
    const std::string_view named = path.substr(0, path.size() - listed);
    Descriptor folder = GoAlong(Descriptor(), named.empty() ? "/" : std::string(named),
                                listed > 0 ? O_PATH : flags, FollowLinks);
    if (folder && listed > 0) {
        folder = GoAlong(std::move(folder), std::string(path.substr(named.size() + 1)), flags, RefuseLinks);
    }
    return folder;
}

Descriptor OpenListedFolder(int folder, const char* name, int flags) {
    return Descriptor(openat(folder, name, kFolder | O_NOFOLLOW | flags));
}

int AtNativePath(const std::string& path, const std::function<int(int folder, const char* name)>& call) {
    if (path.size() <= kLongestPiece) {
        return call(AT_FDCWD, path.empty() ? "/" : path.c_str());
    }
    const Descriptor folder = OpenFolderPath(FolderOfPath(path), O_PATH);
    return folder ? call(folder.Get(), path.c_str() + path.rfind('/') + 1) : -1;
}

} // namespace folimark
