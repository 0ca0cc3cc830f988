#pragma once

#include "FolderItem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace folimark {

/// Steps through the entries of a folder tree, depth first, each folder's in the order in which the file
/// system gave them. It keeps the way back itself, so a tree may be as deep as it likes.
///
///     for (TreeWalk walk(folder); walk.Next();) { ... walk.Item() ... walk.Enter() ... }
class TreeWalk {
  public:
    /// Raises NilObjectException for a nil folder.
    explicit TreeWalk(const Ref<FolderItem>& folder) { Descend(folder); }

    /// Goes to the next entry. False at the end of the tree.
    bool Next();
    /// The entry; nil before the first Next and behind the last. It may have vanished since its folder was
    /// read.
    const Ref<FolderItem>& Item() const { return item_; }
    /// Steps through the entry's own entries before its siblings.
    void Enter() { Descend(item_); }

    /// The native path of the first folder that could not be read, or that holds an entry of which the system
    /// couldn't tell, when asked, whether it is there; "" if all could.
    const std::string& Unreadable() const { return unreadable_; }

  private:
    struct Level {
        Ref<FolderItem> folder;
        std::int64_t count = 0;
        std::int64_t index = 0;
    };
    void Descend(const Ref<FolderItem>& folder);
    void NoteUnreadable(const FolderItem& folder);

    std::vector<Level> levels_;
    Ref<FolderItem> item_;
    std::string unreadable_;
};

} // namespace folimark
