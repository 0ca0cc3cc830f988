#pragma once

#include "Descriptor.h"
#include "FileStatus.h"
#include "FolderListing.h"

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace folimark {

/// A folder that has been read, open for questions about its entries. Nothing in it changes any more.
class OpenFolder {
  public:
    /// Keeps the descriptor, unless there are too many: then it is closed, and all goes by the path.
    OpenFolder(std::shared_ptr<const FolderListing> listing, Descriptor folder);
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;
    ~OpenFolder();

    const std::shared_ptr<const FolderListing>& Listing() const { return listing_; }
    /// May be none.
    const Descriptor& Folder() const { return folder_; }
    /// Will a walk probably enter this entry?
    bool IsWayOn(std::size_t entry) const {
        return listing_->Kind(entry) == EntryKind::Folder && !listing_->Hidden(entry);
    }

  private:
    std::shared_ptr<const FolderListing> listing_;
    Descriptor folder_;
};

/// What the system said about some entries in a row; nothing about those that nobody is going to ask for.
struct EntryAnswers {
    std::size_t first = 0; // the entry that statuses[0] is about
    std::vector<std::optional<FileStatus>> statuses;

    std::size_t End() const { return first + statuses.size(); }
};

/// One thing to do ahead of a walk.
struct WalkStep {
    enum class Kind : std::uint8_t { Folder, Entries, Rest };
    enum class State : std::uint8_t { Waiting, Running, Done };

    Kind kind = Kind::Folder;
    State state = State::Waiting;
    bool dropped = false;    // The walk went another way while the step was being done.
    std::size_t depth = 0;   // of what it is about; more is deeper
    std::uint64_t asked = 0; // EventsLetIn when it was begun
    ChangeTime changed;      // of the folder that was read, or that holds the entries, when it was begun

    // What it is about: the entries from `first` to before `last` of a folder, or a folder that has only a
    // way.
    std::shared_ptr<const OpenFolder> in;
    std::size_t first = 0;
    std::size_t last = 0;
    std::optional<FolderPath> way;

    // What came of it.
    std::shared_ptr<const OpenFolder> folder;
    std::shared_ptr<const EntryAnswers> answers;

    /// A measure of what it keeps in memory, in entries.
    std::size_t Size() const;
};

/// What is to be done ahead of a walk, in the order in which the walk is going to need it: depth first, each
/// folder's entries in their order. The plan goes as far as has been asked for; what is left of a folder is a
/// step of its own (Rest), which is cut into others when its turn comes.
class WalkPlan {
  public:
    using Step = std::shared_ptr<WalkStep>;

    /// What the walk needs next. There is always something while the walk is in the tree.
    const Step& First();
    void DropFirst();
    /// The first step, a folder, goes with all that lies below it.
    void DropTree();
    void Clear();
    /// Puts a folder before all else.
    void Insert(FolderPath way);

    /// The next one that nobody has begun; null if enough has been done for the time being. The first of the
    /// plan is always wanted.
    Step NextToDo();
    /// Notes what came of a step: what it has found is planned behind it.
    void Finish(const Step& step);
    /// Has a finished step done again.
    void Repeat(const Step& step);

    /// Is so little done ahead that a reader should be woken?
    bool RunsLow() const { return ahead_ < kMostAhead / 2; }

  private:
    /// Entries that are known ahead of the walk. Enough to bridge the event loop's turns, little enough to
    /// stay in the processor's cache.
    static constexpr std::size_t kMostAhead = 16384;
    using Position = std::list<Step>::iterator;

    Position Cut(Position rest);
    Position Erase(Position position);
    void EraseBelow(Position position);
    Position PositionOf(const Step& step);

    std::list<Step> steps_;
    std::size_t ahead_ = 0;
};

} // namespace folimark
