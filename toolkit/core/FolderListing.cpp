#include "FolderListing.h"

#include "Descriptor.h"
#include "Place.h"
#include "Text.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace folimark {
namespace {

constexpr const char* kHiddenFile = ".hidden";
constexpr std::size_t kLargestHiddenFile = std::size_t{64} * 1024;

struct CloseStream {
    void operator()(DIR* stream) const { closedir(stream); }
};

/// Nothing if the system can't tell.
std::optional<EntryKind> KindOf(const dirent& entry, int folder) {
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Folder;
    case DT_LNK:
        return EntryKind::Link;
    case DT_UNKNOWN:
        break;
    default:
        return EntryKind::Other;
    }
    // Some file systems don't say it in the entry.
    struct stat status {};
    if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return errno == ENOENT ? std::optional(EntryKind::Other) : std::nullopt;
    }
    return S_ISREG(status.st_mode)   ? EntryKind::File
           : S_ISDIR(status.st_mode) ? EntryKind::Folder
           : S_ISLNK(status.st_mode) ? EntryKind::Link
                                     : EntryKind::Other;
}

} // namespace

std::unordered_set<std::string> HiddenNames(int folder) {
    std::unordered_set<std::string> names;
    struct stat status {};
    if (fstatat(folder, kHiddenFile, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode)) {
        return names;
    }
    const Descriptor file(
        openat(folder, kHiddenFile, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        return names;
    }
    std::string text(kLargestHiddenFile + 1, '\0');
    std::size_t size = 0;
    ssize_t got = 0;
    while (size < text.size() && (got = read(file.Get(), text.data() + size, text.size() - size)) > 0) {
        size += static_cast<std::size_t>(got);
    }
    if (got < 0 || size > kLargestHiddenFile) {
        return names;
    }
    for (std::size_t start = 0; start < size;) {
        const std::size_t end = std::min(text.find('\n', start), size);
        names.insert(text.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

FolderListing::FolderListing(const std::shared_ptr<const Place>& place) {
    Descriptor folder(WithFolder(
        place, [](int descriptor) { return openat(descriptor, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (folder) {
        Read(std::move(folder));
    } else {
        unreadable_ = errno != ENOENT && errno != ENOTDIR;
    }
}

void FolderListing::Read(Descriptor folder) {
    const std::unique_ptr<DIR, CloseStream> stream(fdopendir(folder.Get()));
    if (!stream) {
        unreadable_ = true;
        return;
    }
    const int descriptor = folder.Release(); // the stream's own now
    bool hasHiddenFile = false;
    for (;;) {
        errno = 0;
        const dirent* const entry = readdir(stream.get());
        if (entry == nullptr) {
            unreadable_ = unreadable_ || errno != 0;
            break;
        }
        const std::string_view name(entry->d_name);
        if (name == "." || name == "..") {
            continue;
        }
        hasHiddenFile = hasHiddenFile || name == kHiddenFile;
        const std::optional<EntryKind> kind = KindOf(*entry, descriptor);
        unreadable_ = unreadable_ || !kind;
        entries_.push_back(
            {entry->d_ino, names_.size(), kind.value_or(EntryKind::Other), name.starts_with('.')});
        names_.append(name) += '\0';
    }
    // Rotating disks give the files' status far faster in the order in which it lies on them.
    std::sort(entries_.begin(), entries_.end(),
              [](const Entry& left, const Entry& right) { return left.inode < right.inode; });
    if (hasHiddenFile) {
        HideNamed(HiddenNames(descriptor));
    }
}

void FolderListing::HideNamed(const std::unordered_set<std::string>& hiddenNames) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        entries_[i].hidden = entries_[i].hidden || hiddenNames.count(std::string(Name(i))) > 0;
    }
}

} // namespace folimark
