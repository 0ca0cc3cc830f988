#include "TreeWalk.h"

namespace folimark {

void TreeWalk::NoteUnreadable(const FolderItem& folder) {
    if (unreadable_.empty()) {
        unreadable_ = folder.NativePath();
    }
}

void TreeWalk::Descend(const Ref<FolderItem>& folder) {
    const std::int64_t count = folder->Count();
    if (folder->Unreadable()) {
        NoteUnreadable(*folder);
    }
    if (count > 0) {
        levels_.push_back({folder, count});
    }
}

bool TreeWalk::Next() {
    if (item_ && item_->Unknown()) { // Whoever looked at it could only skip it.
        NoteUnreadable(*item_->Parent());
    }
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.index < level.count) {
            item_ = level.folder->Item(++level.index);
            return true;
        }
        levels_.pop_back();
    }
    item_ = {};
    return false;
}

} // namespace folimark
