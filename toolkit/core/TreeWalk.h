#pragma once

#include "Descriptor.h"
#include "FolderItem.h"

#include <memory>
#include <string>
#include <vector>

namespace folimark {

class ListedItem;

/// Steps through the entries of a folder tree, depth first, each folder's in the order in which the file
/// system gave them. It keeps the way back itself, so a tree may be as deep as it likes.
///
///     for (TreeWalk walk(folder); walk.Next();) { ... walk.Item() ... walk.Enter() ... }
///
/// A file of a registered type exists for a walk if it is still there when its turn comes.
class TreeWalk {
  public:
    /// Raises NilObjectException for a nil folder.
    explicit TreeWalk(const Ref<FolderItem>& folder);
    TreeWalk(const TreeWalk&) = delete;
    TreeWalk& operator=(const TreeWalk&) = delete;
    ~TreeWalk();

    /// Goes to the next entry. False at the end of the tree.
    bool Next();
    /// The entry; nil before the first Next and behind the last. It may have vanished since its folder was
    /// read.
    Ref<FolderItem> Item() const;
    /// Steps through the entry's own entries before its siblings.
    void Enter();

    /// The native path of the first folder that could not be read, or that holds an entry of which the system
    /// couldn't tell, when asked, whether it is there; "" if all could.
    const std::string& Unreadable() const { return unreadable_; }

  private:
    struct Level {
        std::shared_ptr<const FolderListing> listing;
        Descriptor folder; // none in a deep tree, and then all goes by paths
        std::size_t next = 0;
    };
    void Descend(FolderPath way, Descriptor folder);
    Ref<ListedItem> NextOf(Level& level) const;
    void Stand(Ref<ListedItem> item);
    void NoteUnreadable(const FolderPath& folder);

    std::vector<Level> levels_;
    Ref<ListedItem> item_;
    std::string unreadable_;
};

} // namespace folimark
