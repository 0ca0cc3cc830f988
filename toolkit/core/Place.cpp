#include "Place.h"

#include "ColonPath.h"
#include "FolderItem.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace folimark {
namespace {

constexpr int kOpenFolder = O_PATH | O_DIRECTORY | O_CLOEXEC;
/// The system takes paths of less than 4,096 bytes, and a longer one has to be gone along piece by piece. One
/// name has at most 255 bytes.
constexpr std::size_t kLongestPiece = 4000;

/// The folder that was asked last. Its names are kept when the descriptor is closed.
struct {
    std::shared_ptr<const Place> place;
    int descriptor = -1;
} lastFolder;

void SetLastFolder(const std::shared_ptr<const Place>& place, int descriptor) {
    DropFolderCache();
    lastFolder.place = place;
    lastFolder.descriptor = descriptor;
}

/// The open folder, which stays the cache's own. From its parent it is found by its name alone, so that a
/// deep tree isn't looked up from the root at each step downwards.
int OpenedFolder(const std::shared_ptr<const Place>& place) {
    if (lastFolder.descriptor >= 0 && lastFolder.place == place) {
        return lastFolder.descriptor;
    }
    const bool parentIsOpen =
        lastFolder.descriptor >= 0 && place->Parent() && lastFolder.place == place->Parent();
    const int descriptor = parentIsOpen ? openat(lastFolder.descriptor, place->Name().c_str(), kOpenFolder)
                                        : OpenFolderPath(place->NativePath());
    if (descriptor >= 0) {
        SetLastFolder(place, descriptor);
    }
    return descriptor;
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

int OpenFolderPath(std::string_view nativePath) {
    std::string path = nativePath.empty() ? "/" : std::string(nativePath);
    int folder = AT_FDCWD;
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
        const int next = openat(folder, path.c_str() + start, kOpenFolder);
        if (folder != AT_FDCWD) {
            const int error = errno;
            close(folder);
            errno = error;
        }
        if (next < 0) {
            return -1;
        }
        folder = next;
        start = end + 1;
    }
    return folder;
}

std::shared_ptr<const Place> PlaceOfColonPath(std::string_view colonPath) {
    if (lastFolder.place && lastFolder.place->ColonPath() == colonPath) {
        return lastFolder.place;
    }
    std::optional<std::string> path = NativePathOf(colonPath);
    if (!path) {
        return nullptr;
    }
    SetLastFolder(std::make_shared<const Place>(*std::move(path)), -1);
    return lastFolder.place;
}

int WithFolder(const std::shared_ptr<const Place>& place, const std::function<int(int descriptor)>& call) {
    const bool wasOpen = lastFolder.descriptor >= 0;
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
    if (lastFolder.descriptor >= 0) {
        close(lastFolder.descriptor);
        lastFolder.descriptor = -1;
    }
}

} // namespace folimark
