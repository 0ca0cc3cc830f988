#pragma once

#include "WalkPlan.h"

#include <memory>

namespace folimark {

/// Reads the folders of a tree, and asks for their files' status, ahead of a walk, on threads of its own:
/// while the walk's thread deals with what is there, the system isn't idle.
///
/// The readers share nothing with the walk but a plan, under a lock that nobody holds while anything waits,
/// and hand over results that don't change any more. They are started at need: one at first, more each time
/// that the walk has to wait, since disks and servers answer several questions at once faster than one after
/// the other. The end of this object leaves them behind: each ends when the system has answered it, and one
/// that hangs delays nobody.
///
/// An answer that is older than the latest events (EventsLetIn) holds only if its folder hasn't changed
/// since, as far as the system knows without asking the disk. Otherwise the question is asked again.
class ReadAhead {
  public:
    ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    ~ReadAhead();

    /// Has a folder read before all else.
    void Enter(FolderPath way);
    /// Takes the folder that the plan begins with; null if it isn't there in a few milliseconds.
    std::shared_ptr<const OpenFolder> TakeFolder();
    /// Passes by the folder that the plan begins with.
    void SkipFolder();
    /// The answers that the plan begins with, which stay there; null if they aren't there in a few
    /// milliseconds.
    std::shared_ptr<const EntryAnswers> Answers();
    /// Is done with them.
    void DropAnswers();

  private:
    struct Shared;
    WalkPlan::Step AwaitFirst();
    void WakeReader();

    std::shared_ptr<Shared> shared_;
};

} // namespace folimark
