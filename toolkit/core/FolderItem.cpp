#include "FolderItem.h"

#include "FileTypeRegistry.h"
#include "FolderListing.h"
#include "ListedItem.h"
#include "NamedItem.h"
#include "NativePath.h"
#include "Patience.h"
#include "RegularFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace folimark {
namespace {

FileStatus AskStatusAt(const std::string& path) {
    FileStatus status;
    const int asked = AtNativePath(path, [&status](int folder, const char* name) {
        status = AskStatus(folder, name);
        return 0;
    });
    if (asked < 0) {
        status.gone = MeansGone(errno);
    }
    return status;
}

} // namespace

FolderItem::FolderItem() = default;
FolderItem::FolderItem(const FileStatus& status) : status_(status) {}
FolderItem::~FolderItem() = default;

Ref<FolderItem> FolderItem::Child(std::string_view name) const {
    return NamedItem::In(Path(), name);
}

Ref<FolderItem> FolderItem::Parent() const {
    const std::string path = Path();
    return path.empty() ? nullptr : Ref<FolderItem>(New<NamedItem>(FolderOfPath(path)));
}

const FolderListing& FolderItem::Entries() const {
    if (!entries_) {
        FolderPath way = WayInside();
        const Descriptor folder = way.Open(O_RDONLY);
        entries_ = std::make_shared<const FolderListing>(std::move(way), folder, KnownExtensions());
    }
    return *entries_;
}

std::int64_t FolderItem::Count() const {
    return static_cast<std::int64_t>(Entries().Count());
}

bool FolderItem::Unreadable() const {
    return Entries().Unreadable();
}

Ref<FolderItem> FolderItem::Item(std::int64_t index) const {
    if (index < 1 || index > Count()) {
        return nullptr;
    }
    return New<ListedItem>(entries_, static_cast<std::size_t>(index - 1));
}

const FileStatus& FolderItem::AskAgain() const {
    status_ = AskPatiently([path = Path()] { return AskStatusAt(path); }).value_or(FileStatus());
    return *status_;
}

const FileStatus& FolderItem::LastStatus() const {
    return status_ ? *status_ : AskAgain();
}

bool FolderItem::Gone() const {
    return AskAgain().gone;
}

bool FolderItem::Unknown() const {
    return status_ && status_->Failed();
}

bool FolderItem::MayBeFile() const {
    return S_ISREG(LastStatus().mode) || LastStatus().Failed();
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

std::string FolderItem::NativePath() const {
    std::string path = Path();
    return path.empty() ? "/" : path;
}

Descriptor FolderItem::OpenForReading() const {
    return OpenRegularFile(Path());
}

} // namespace folimark
