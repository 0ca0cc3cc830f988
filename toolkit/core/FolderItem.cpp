#include "FolderItem.h"

#include "ColonPath.h"
#include "Descriptor.h"
#include "FileTypeRegistry.h"
#include "FolderListing.h"
#include "Place.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unordered_set>

namespace folimark {

/// What the system last said about an item. All is 0 for what doesn't exist.
struct FolderItem::Status {
    bool exists = false;
    bool gone = false;
    mode_t mode = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;
    std::int64_t created = 0;
    bool createdIsKnown = false;
};

namespace {

/// Callers ask for the same entry several times in a row, so the latest one is kept, and with it what the
/// system said about it. One for all folders: kept in each, they would form chains as long as a tree is deep.
struct LastListed {
    const FolderItem* folder = nullptr;
    std::int64_t index = 0;
    Ref<FolderItem> item;
};

/// Never destroyed: items that others hold until the process ends look here when they go.
LastListed& lastListed = *new LastListed;

void ForgetLastListed() {
    lastListed.folder = nullptr;
    const Ref<FolderItem> last = std::exchange(lastListed.item, nullptr);
}

} // namespace

FolderItem::FolderItem(std::shared_ptr<const Place> folder, std::string name, EntryKind kind)
    : folder_(std::move(folder)), name_(std::move(name)), kind_(kind) {}

FolderItem::~FolderItem() {
    if (lastListed.folder == this) {
        ForgetLastListed();
    }
}

Ref<FolderItem> GetFolderItem(std::string_view path, int pathType) {
    if (pathType != 0) {
        return nullptr;
    }
    const bool endsInColon = path.ends_with(':');
    if (endsInColon) {
        path.remove_suffix(1);
    }
    const std::size_t colon = path.rfind(':');
    if (colon == std::string_view::npos) {
        return path == kVolumeName ? Ref<FolderItem>(new FolderItem(nullptr, "", EntryKind::Named)) : nullptr;
    }
    std::optional<std::string> name = NameOfField(path.substr(colon + 1));
    std::shared_ptr<const Place> folder = name ? PlaceOfColonPath(path.substr(0, colon + 1)) : nullptr;
    if (!folder) {
        return nullptr;
    }
    Ref<FolderItem> item(new FolderItem(std::move(folder), *std::move(name), EntryKind::Named));
    item->namedFolder_ = endsInColon;
    return item;
}

Ref<FolderItem> FolderItem::FromNativePath(std::string_view bytes) {
    if (!bytes.starts_with('/') || bytes.find('\0') != std::string_view::npos) {
        return nullptr;
    }
    std::string path;
    bool goesUp = false;
    for (std::size_t start = 1; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find('/', start), bytes.size());
        const std::string_view name = bytes.substr(start, end - start);
        goesUp = goesUp || name == "..";
        if (!name.empty() && name != ".") {
            path.append("/").append(name);
        }
        start = end + 1;
    }
    if (goesUp) {
        // Where ".." leads depends on the links before it, so only the system can say it.
        const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
        return real ? FromNativePath(real.get()) : nullptr;
    }
    if (path.empty()) {
        return GetFolderItem(kVolumeName);
    }
    const std::size_t slash = path.rfind('/');
    auto folder = std::make_shared<const Place>(path.substr(0, slash));
    return Ref<FolderItem>(new FolderItem(std::move(folder), path.substr(slash + 1), EntryKind::Named));
}

const std::shared_ptr<const Place>& FolderItem::OwnPlace() const {
    if (!place_) {
        place_ = folder_ ? std::make_shared<const Place>(folder_, name_, kind_ != EntryKind::Named)
                         : std::make_shared<const Place>("");
    }
    return place_;
}

Ref<FolderItem> FolderItem::Child(std::string_view name) const {
    std::optional<std::string> bytes = NameOfField(name);
    if (!bytes) {
        return nullptr;
    }
    return Ref<FolderItem>(new FolderItem(OwnPlace(), *std::move(bytes), EntryKind::Named));
}

Ref<FolderItem> FolderItem::Parent() const {
    return folder_ ? GetFolderItem(folder_->ColonPath()) : nullptr;
}

const FolderListing& FolderItem::Listing() const {
    if (!listing_) {
        listing_ = std::make_unique<FolderListing>(OwnPlace());
    }
    return *listing_;
}

std::int64_t FolderItem::Count() const {
    return static_cast<std::int64_t>(Listing().Count());
}

bool FolderItem::Unreadable() const {
    return Listing().Unreadable();
}

Ref<FolderItem> FolderItem::Item(std::int64_t index) const {
    if (lastListed.folder == this && lastListed.index == index) {
        return lastListed.item;
    }
    if (index < 1 || index > Count()) {
        return nullptr;
    }
    const auto entry = static_cast<std::size_t>(index - 1);
    Ref<FolderItem> item(
        new FolderItem(OwnPlace(), std::string(Listing().Name(entry)), Listing().Kind(entry)));
    item->hidden_ = Listing().Hidden(entry);
    ForgetLastListed();
    lastListed.folder = this;
    lastListed.index = index;
    lastListed.item = item;
    return item;
}

void FolderItem::AskStatus() const {
    struct statx answer {};
    const auto ask = [this, &answer](int folder) {
        return statx(folder, folder_ ? name_.c_str() : "/", AT_STATX_SYNC_AS_STAT,
                     STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_BTIME, &answer);
    };
    if (!status_) {
        status_ = std::make_unique<Status>();
    }
    *status_ = {};
    if ((folder_ ? WithFolder(folder_, ask) : ask(AT_FDCWD)) == 0) {
        *status_ = {.exists = true,
                    .mode = answer.stx_mode,
                    .size = answer.stx_size,
                    .modified = answer.stx_mtime.tv_sec,
                    .created = answer.stx_btime.tv_sec,
                    .createdIsKnown = (answer.stx_mask & STATX_BTIME) != 0};
    } else {
        status_->gone = errno == ENOENT || errno == ENOTDIR;
    }
}

const FolderItem::Status& FolderItem::LastStatus() const {
    if (!status_) {
        AskStatus();
    }
    return *status_;
}

bool FolderItem::Exists() const {
    if (kind_ == EntryKind::Named) {
        AskStatus();
    }
    return kind_ == EntryKind::Named || kind_ == EntryKind::Link ? LastStatus().exists : true;
}

bool FolderItem::Gone() const {
    AskStatus();
    return status_->gone;
}

bool FolderItem::Unknown() const {
    return status_ && !status_->exists && !status_->gone;
}

bool FolderItem::Visible() const {
    if (kind_ != EntryKind::Named || !folder_) {
        return !hidden_;
    }
    bool hidden = name_.starts_with('.');
    WithFolder(folder_, [this, &hidden](int folder) {
        hidden = hidden || HiddenNames(folder).count(name_) > 0;
        return 0;
    });
    return !hidden;
}

bool FolderItem::Directory() const {
    return kind_ == EntryKind::Named ? S_ISDIR(LastStatus().mode) : kind_ == EntryKind::Folder;
}

std::string FolderItem::Type() const {
    const bool asks = kind_ == EntryKind::Named || kind_ == EntryKind::Link;
    const bool regular = asks ? S_ISREG(LastStatus().mode) || Unknown() : kind_ == EntryKind::File;
    return regular ? FileTypeOf(name_) : "";
}

std::uint64_t FolderItem::Length() const {
    return S_ISREG(LastStatus().mode) ? LastStatus().size : 0;
}

Ref<Date> FolderItem::CreationDate() const {
    return LastStatus().createdIsKnown ? New<Date>(LastStatus().created) : nullptr;
}

Ref<Date> FolderItem::ModificationDate() const {
    return LastStatus().exists ? New<Date>(LastStatus().modified) : nullptr;
}

std::string FolderItem::AbsolutePath() const {
    if (!folder_) {
        return ColonPathOfFolder("");
    }
    std::string path = folder_->ColonPath() + FieldOfName(name_);
    const bool keepsEnd = kind_ == EntryKind::Named && !LastStatus().exists;
    if (keepsEnd ? namedFolder_ : Directory()) {
        path += ':';
    }
    return path;
}

std::string FolderItem::NativePath() const {
    return folder_ ? folder_->NativePath() + "/" + name_ : "/";
}

Descriptor FolderItem::OpenForReading() const {
    if (!folder_) {
        errno = EISDIR;
        return Descriptor();
    }
    return Descriptor(WithFolder(folder_, [this](int folder) {
        // Even to open a pipe or a device can have effects, so the kind is asked first, and once more of what
        // was opened then.
        struct stat status {};
        if (fstatat(folder, name_.c_str(), &status, 0) != 0) {
            return -1;
        }
        if (S_ISREG(status.st_mode)) {
            Descriptor file(openat(folder, name_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
            if (!file || (fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode))) {
                return file.Release();
            }
        }
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return -1;
    }));
}

} // namespace folimark
