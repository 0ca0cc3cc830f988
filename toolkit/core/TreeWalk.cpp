#include "TreeWalk.h"

#include "FileTypeRegistry.h"
#include "ListedItem.h"
#include "NativePath.h"

#include <fcntl.h>

namespace folimark {
namespace {

/// Levels whose folders stay open, of some 1,000 descriptors that a process may have.
constexpr std::size_t kOpenLevels = 64;

} // namespace

TreeWalk::TreeWalk(const Ref<FolderItem>& folder) {
    const std::string path = folder->NativePath();
    FolderPath way(path == "/" ? "" : path);
    Descriptor opened = way.Open(O_RDONLY);
    Descend(std::move(way), std::move(opened));
}

TreeWalk::~TreeWalk() {
    Stand(nullptr);
}

Ref<FolderItem> TreeWalk::Item() const {
    return item_;
}

void TreeWalk::NoteUnreadable(const FolderPath& folder) {
    if (unreadable_.empty()) {
        unreadable_ = folder.Native();
    }
}

void TreeWalk::Descend(FolderPath way, Descriptor folder) {
    auto listing = std::make_shared<const FolderListing>(std::move(way), folder);
    if (listing->Unreadable()) {
        NoteUnreadable(listing->Path());
    }
    while (!levels_.empty() && levels_.back().next == levels_.back().listing->Count()) {
        levels_.pop_back(); // so that a chain of folders takes one level
    }
    levels_.push_back({std::move(listing), levels_.size() < kOpenLevels ? std::move(folder) : Descriptor()});
}

void TreeWalk::Enter() {
    const Level& level = levels_.back();
    const std::string_view name = level.listing->Name(level.next - 1);
    FolderPath way = level.listing->Path().Listed(name);
    Descriptor opened =
        level.folder ? OpenListedFolder(level.folder.Get(), name.data(), O_RDONLY) : way.Open(O_RDONLY);
    Descend(std::move(way), std::move(opened));
}

Ref<ListedItem> TreeWalk::NextOf(Level& level) const {
    const std::size_t entry = level.next++;
    const FolderListing& listing = *level.listing;
    const bool isWanted = !listing.Hidden(entry) && listing.Kind(entry) == EntryKind::File
                          && !FileTypeOf(listing.Name(entry)).empty();
    if (!isWanted || !level.folder) {
        return New<ListedItem>(level.listing, entry);
    }
    return New<ListedItem>(level.listing, entry, AskStatus(level.folder.Get(), listing.Name(entry).data()));
}

void TreeWalk::Stand(Ref<ListedItem> item) {
    ListedItem::Walked(item.Get());
    item_ = std::move(item);
}

bool TreeWalk::Next() {
    if (item_ && item_->Unknown()) { // Whoever looked at it could only skip it.
        NoteUnreadable(item_->Listing().Path());
    }
    while (!levels_.empty() && levels_.back().next == levels_.back().listing->Count()) {
        levels_.pop_back();
    }
    Stand(levels_.empty() ? nullptr : NextOf(levels_.back()));
    return static_cast<bool>(item_);
}

} // namespace folimark
