#include "TreeWalk.h"

namespace folimark {

void TreeWalk::Descend(const Ref<FolderItem>& folder) {
    const std::int64_t count = folder->Count();
    if (unreadable_.empty() && folder->Unreadable()) {
        unreadable_ = folder->NativePath();
    }
    if (count > 0) {
        levels_.push_back({folder, count});
    }
}

bool TreeWalk::Next() {
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
