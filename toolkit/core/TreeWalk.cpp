#include "TreeWalk.h"

#include "ListedItem.h"
#include "ReadAhead.h"
#include "Yield.h"

namespace folimark {

TreeWalk::TreeWalk(const Ref<FolderItem>& folder) : ahead_(std::make_unique<ReadAhead>()) {
    const std::string path = folder->NativePath();
    ahead_->Enter(FolderPath(path == "/" ? "" : path));
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

void TreeWalk::Stand(Ref<ListedItem> item) {
    ListedItem::Walked(item.Get());
    item_ = std::move(item);
}

void TreeWalk::Enter() {
    if (!item_) {
        return;
    }
    if (at_ != At::FolderAhead) {
        ahead_->Enter(item_->Listing().Path().Listed(item_->Name()));
    }
    at_ = At::Entered;
}

bool TreeWalk::Next() {
    if (item_ && item_->Unknown()) { // Whoever looked at it could only skip it.
        NoteUnreadable(item_->Listing().Path());
    }
    Stand(nullptr);
    LeaveFinishedLevels();
    if (at_ == At::Entered && !Descend()) {
        return true;
    }
    if (at_ == At::FolderAhead) {
        ahead_->SkipFolder();
    }
    at_ = At::Entry;
    LeaveFinishedLevels(); // the folder that was entered may be empty
    return !levels_.empty() && Step(levels_.back());
}

void TreeWalk::LeaveFinishedLevels() {
    while (!levels_.empty() && levels_.back().next == levels_.back().folder->Listing()->Count()) {
        levels_.pop_back();
    }
}

/// \returns whether the folder was there.
bool TreeWalk::Descend() {
    std::shared_ptr<const OpenFolder> folder = ahead_->TakeFolder();
    if (!folder) {
        return false;
    }
    if (folder->Listing()->Unreadable()) {
        NoteUnreadable(folder->Listing()->Path());
    }
    levels_.emplace_back().folder = std::move(folder);
    return true;
}

/// Goes to the level's next entry, if what is known of it is there. \returns true.
bool TreeWalk::Step(Level& level) {
    const std::shared_ptr<const FolderListing>& listing = level.folder->Listing();
    if (level.folder->IsWayOn(level.next)) {
        at_ = At::FolderAhead;
        Stand(New<ListedItem>(listing, level.next++));
        return true;
    }
    if (!level.answers || level.answered != EventsLetIn()) {
        level.answers = ahead_->Answers();
        level.answered = EventsLetIn();
    }
    if (level.answers) {
        const std::size_t entry = level.next++;
        const std::optional<FileStatus>& status = level.answers->statuses[entry - level.answers->first];
        Stand(status ? New<ListedItem>(listing, entry, *status) : New<ListedItem>(listing, entry));
        if (level.next == level.answers->End()) {
            ahead_->DropAnswers();
            level.answers = nullptr;
        }
    }
    return true;
}

} // namespace folimark
