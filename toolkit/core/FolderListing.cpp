#include "FolderListing.h"

#include "FileStatus.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace folimark {
namespace {

constexpr const char* kHiddenFile = ".hidden";
constexpr std::size_t kLargestHiddenFile = std::size_t{64} * 1024;
/// Bytes of entries that are asked for at once; those of some 500 files.
constexpr std::size_t kEntriesAtOnce = std::size_t{32} * 1024;

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

FolderListing::FolderListing(FolderPath path, const Descriptor& folder,
                             std::shared_ptr<const ExtensionTable> types)
    : path_(std::move(path)), types_(std::move(types)) {
    if (folder) {
        Read(folder.Get());
    } else {
        unreadable_ = !MeansGone(errno);
    }
}

void FolderListing::Read(int folder) {
    // Straight from the system: the C library's streams ask for the folder's status and for memory each time.
    alignas(dirent64) std::array<char, kEntriesAtOnce> buffer;
    bool hasHiddenFile = false;
    ssize_t size = 0;
    while ((size = getdents64(folder, buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto* const entry = reinterpret_cast<const dirent64*>(buffer.data() + at);
            at += entry->d_reclen;
            const std::string_view name(entry->d_name);
            if (name == "." || name == "..") {
                continue;
            }
            hasHiddenFile = hasHiddenFile || name == kHiddenFile;
            entries_.push_back({entry->d_ino, names_.size(), types_->Find(name),
                                KindOf(entry->d_type, entry->d_name, folder), name.starts_with('.')});
            names_.append(name) += '\0';
        }
    }
    unreadable_ = unreadable_ || size < 0;
    // Rotating disks give the files' status far faster in the order in which it lies on them.
    std::sort(entries_.begin(), entries_.end(),
              [](const Entry& left, const Entry& right) { return left.inode < right.inode; });
    if (hasHiddenFile) {
        HideNamed(HiddenNames(folder));
    }
}

EntryKind FolderListing::KindOf(unsigned char type, const char* name, int folder) {
    switch (type) {
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
    if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        unreadable_ = unreadable_ || !MeansGone(errno);
        return EntryKind::Other;
    }
    return S_ISREG(status.st_mode)   ? EntryKind::File
           : S_ISDIR(status.st_mode) ? EntryKind::Folder
           : S_ISLNK(status.st_mode) ? EntryKind::Link
                                     : EntryKind::Other;
}

void FolderListing::HideNamed(const std::unordered_set<std::string>& hiddenNames) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        entries_[i].hidden = entries_[i].hidden || hiddenNames.count(std::string(Name(i))) > 0;
    }
}

} // namespace folimark
