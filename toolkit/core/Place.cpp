#include "Place.h"

#include "ColonPath.h"
#include "FolderItem.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace folimark {
namespace {

constexpr int kOpenFolder = O_PATH | O_DIRECTORY | O_CLOEXEC;
constexpr int kOpenListed = kOpenFolder | O_NOFOLLOW;
/// The system takes paths of less than 4,096 bytes, and a longer one has to be gone along piece by piece. One
/// name has at most 255 bytes.
constexpr std::size_t kLongestPiece = 4000;

using OpenPiece = Descriptor(int folder, const char* path);

Descriptor FollowLinks(int folder, const char* path) {
    return Descriptor(openat(folder, path, kOpenFolder));
}

/// A link on the way counts as what it is, no folder (ENOTDIR).
Descriptor RefuseLinks(int folder, const char* path) {
    open_how how{};
    how.flags = kOpenListed;
    how.resolve = RESOLVE_NO_SYMLINKS;
    Descriptor opened(static_cast<int>(syscall(SYS_openat2, folder, path, &how, sizeof how)));
    if (!opened && (errno == ENOSYS || errno == EPERM)) { // an old system, or a sandbox that doesn't know it
        const char* end = path;
        do {
            end = strchrnul(path, '/');
            opened = Descriptor(
                openat(opened ? opened.Get() : folder, std::string(path, end).c_str(), kOpenListed));
            path = end + 1;
        } while (opened && *end != '\0');
    }
    if (!opened && errno == ELOOP) {
        errno = ENOTDIR;
    }
    return opened;
}

/// Goes along a path from a folder, or from the root if there is none, in pieces that the system takes.
Descriptor GoAlong(Descriptor folder, std::string path, OpenPiece& open) {
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
        folder = open(folder ? folder.Get() : AT_FDCWD, path.c_str() + start);
        if (!folder) {
            break;
        }
        start = end + 1;
    }
    return folder;
}

/// The folder that was asked last. Its names are kept when the descriptor is closed.
struct {
    std::shared_ptr<const Place> place;
    Descriptor descriptor;
} lastFolder;

/// The open folder, which stays the cache's own. From its parent it is found by its name alone, so that a
/// deep tree isn't looked up from the root at each step downwards. -1 on failure, which leaves the cache
/// alone.
int OpenedFolder(const std::shared_ptr<const Place>& place) {
    if (lastFolder.descriptor && lastFolder.place == place) {
        return lastFolder.descriptor.Get();
    }
    const bool parentIsOpen = lastFolder.descriptor && place->Parent() && lastFolder.place == place->Parent();
    Descriptor opened = parentIsOpen ? place->OpenIn(lastFolder.descriptor.Get()) : place->Open();
    if (!opened) {
        return -1;
    }
    lastFolder.place = place;
    lastFolder.descriptor = std::move(opened);
    return lastFolder.descriptor.Get();
}

} // namespace

Place::~Place() {
    // One after the other: a chain of thousands would overflow the stack if each destroyed the next.
    std::shared_ptr<const Place> next = std::move(parent_);
    while (next && next.use_count() == 1) {
        next = std::shared_ptr<const Place>(std::move(next->parent_));
    }
}

std::string Place::NativePath() const {
    std::vector<const Place*> chain;
    for (const Place* place = this; place != nullptr; place = place->parent_.get()) {
        chain.push_back(place);
    }
    std::string path = chain.back()->name_;
    for (auto place = chain.rbegin() + 1; place != chain.rend(); ++place) {
        path.append("/").append((*place)->name_);
    }
    return path;
}

const std::string& Place::ColonPath() const {
    if (colonPath_.empty()) {
        colonPath_ = ColonPathOfFolder(NativePath());
    }
    return colonPath_;
}

Descriptor Place::Open() const {
    std::vector<const Place*> listed;
    const Place* found = this;
    for (; found->listed_; found = found->parent_.get()) {
        listed.push_back(found);
    }
    std::string below;
    for (auto place = listed.rbegin(); place != listed.rend(); ++place) {
        below.append(below.empty() ? "" : "/").append((*place)->name_);
    }
    Descriptor folder = OpenFolderPath(found->NativePath());
    return folder && !below.empty() ? GoAlong(std::move(folder), std::move(below), RefuseLinks)
                                    : std::move(folder);
}

Descriptor Place::OpenIn(int parent) const {
    return Descriptor(openat(parent, name_.c_str(), listed_ ? kOpenListed : kOpenFolder));
}

Descriptor OpenFolderPath(std::string_view nativePath) {
    return GoAlong(Descriptor(), nativePath.empty() ? "/" : std::string(nativePath), FollowLinks);
}

std::shared_ptr<const Place> PlaceOfColonPath(std::string_view colonPath) {
    if (lastFolder.place && lastFolder.place->ColonPath() == colonPath) {
        return lastFolder.place;
    }
    std::optional<std::string> path = NativePathOf(colonPath);
    if (!path) {
        return nullptr;
    }
    DropFolderCache();
    lastFolder.place = std::make_shared<const Place>(*std::move(path));
    return lastFolder.place;
}

int WithFolder(const std::shared_ptr<const Place>& place, const std::function<int(int descriptor)>& call) {
    const bool wasOpen = static_cast<bool>(lastFolder.descriptor);
    int folder = OpenedFolder(place);
    int result = folder < 0 ? -1 : call(folder);
    if (result < 0 && wasOpen && (errno == ENOENT || errno == ENOTDIR)) {
        DropFolderCache();
        folder = OpenedFolder(place);
        result = folder < 0 ? -1 : call(folder);
    }
    return result;
}

void DropFolderCache() {
    lastFolder.descriptor.Close();
}

} // namespace folimark
