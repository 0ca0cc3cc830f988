#include "Place.h"

#include "ColonPath.h"
#include "FolderItem.h"

#include <cerrno>
#include <fcntl.h>
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
    Descriptor opened =
        parentIsOpen ? Descriptor(openat(lastFolder.descriptor.Get(), place->Name().c_str(), kOpenFolder))
                     : OpenFolderPath(place->NativePath());
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

Descriptor OpenFolderPath(std::string_view nativePath) {
    std::string path = nativePath.empty() ? "/" : std::string(nativePath);
    Descriptor folder;
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
        folder = Descriptor(openat(folder ? folder.Get() : AT_FDCWD, path.c_str() + start, kOpenFolder));
        if (!folder) {
            break;
        }
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
