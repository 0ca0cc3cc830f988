#pragma once

#include "FolderItem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace folimark {

class ListedItem;
class OpenFolder;
class ReadAhead;
struct EntryAnswers;

/// Steps through the entries of a folder tree, depth first, each folder's in the order in which the file
/// system gave them. It keeps the way back itself, so a tree may be as deep as it likes.
///
///     for (TreeWalk walk(folder); walk.Next();) { ... walk.Item() ... walk.Enter() ... }
///
/// Folders are read ahead, on threads of their own (ReadAhead). Where the walk would have to wait for them,
/// for a slow disk or a server, it makes a step without an item, so that its user can let events in
/// meanwhile.
///
/// A file of a registered type exists for a walk if it is still there when its turn comes. A change that
/// isn't older than the latest events may go unnoticed.
class TreeWalk {
  public:
    /// Raises NilObjectException for a nil folder.
    explicit TreeWalk(const Ref<FolderItem>& folder);
    TreeWalk(const TreeWalk&) = delete;
    TreeWalk& operator=(const TreeWalk&) = delete;
    ~TreeWalk();

    /// Goes to the next entry, or waits for it for a few milliseconds. False at the end of the tree.
    bool Next();
    /// The entry; nil before the first Next, behind the last, and while it is being waited for. It may have
    /// vanished since its folder was read.
    Ref<FolderItem> Item() const;
    /// Steps through the entry's own entries before its siblings.
    void Enter();

    /// The native path of the first folder that could not be read, or that holds an entry of which the system
    /// couldn't tell, when asked, whether it is there; "" if all could.
    const std::string& Unreadable() const { return unreadable_; }

  private:
    struct Level {
        std::shared_ptr<const OpenFolder> folder;
        std::size_t next = 0;
        std::shared_ptr<const EntryAnswers> answers; // null if those for `next` aren't there
        std::uint64_t answered = 0;                  // EventsLetIn at that time
    };
    /// Where the walk stands.
    enum class At : std::uint8_t {
        Entry,       // at an entry, or between two
        FolderAhead, // at a folder that is being read ahead
        Entered      // at a folder that is to be entered
    };

    void LeaveFinishedLevels();
    bool Descend();
    bool Step(Level& level);
    void Stand(Ref<ListedItem> item);
    void NoteUnreadable(const FolderPath& folder);

    std::unique_ptr<ReadAhead> ahead_;
    std::vector<Level> levels_;
    Ref<ListedItem> item_;
    At at_ = At::Entered;
    std::string unreadable_;
};

} // namespace folimark
