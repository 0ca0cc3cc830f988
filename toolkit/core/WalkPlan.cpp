#include "WalkPlan.h"

#include <algorithm>
#include <atomic>

namespace folimark {
namespace {

/// Of some 1,000 descriptors that a process may have.
constexpr int kMostOpen = 300;
/// How many there are. It needs no destruction: readers that were left behind may outlive all else.
std::atomic<int> openFolders = 0;

/// Entries of a folder that are asked about in one go.
constexpr std::size_t kEntriesAtOnce = 128;
/// What a folder takes beside its entries, in entries.
constexpr std::size_t kFolderSize = 16;

} // namespace

OpenFolder::OpenFolder(std::shared_ptr<const FolderListing> listing, Descriptor folder)
    : listing_(std::move(listing)) {
    if (folder && listing_->Count() > 0 && openFolders < kMostOpen) {
        folder_ = std::move(folder);
        ++openFolders;
    }
}

OpenFolder::~OpenFolder() {
    if (folder_) {
        --openFolders;
    }
}

std::size_t WalkStep::Size() const {
    return state != State::Done    ? 0
           : kind == Kind::Entries ? last - first
                                   : kFolderSize + folder->Listing()->Count();
}

WalkPlan::Position WalkPlan::Cut(Position rest) {
    WalkStep& left = **rest;
    const OpenFolder& folder = *left.in;
    auto step = std::make_shared<WalkStep>();
    step->in = left.in;
    step->depth = left.depth;
    step->first = left.first;
    step->last = left.first + 1;
    if (!folder.IsWayOn(step->first)) {
        step->kind = WalkStep::Kind::Entries;
        const std::size_t end = std::min(left.last, step->first + kEntriesAtOnce);
        while (step->last < end && !folder.IsWayOn(step->last)) {
            ++step->last;
        }
    }
    left.first = step->last;
    const Position position = steps_.insert(rest, std::move(step));
    if (left.first == left.last) {
        steps_.erase(rest);
    }
    return position;
}

WalkPlan::Position WalkPlan::Erase(Position position) {
    ahead_ -= (*position)->Size();
    (*position)->dropped = true;
    return steps_.erase(position);
}

void WalkPlan::EraseBelow(Position position) {
    for (Position below = std::next(position);
         below != steps_.end() && (*below)->depth > (*position)->depth;) {
        below = Erase(below);
    }
}

WalkPlan::Position WalkPlan::PositionOf(const Step& step) {
    return std::find(steps_.begin(), steps_.end(), step);
}

const WalkPlan::Step& WalkPlan::First() {
    if (steps_.front()->kind == WalkStep::Kind::Rest) {
        Cut(steps_.begin());
    }
    return steps_.front();
}

void WalkPlan::DropFirst() {
    Erase(steps_.begin());
}

void WalkPlan::DropTree() {
    First();
    EraseBelow(steps_.begin());
    DropFirst();
}

void WalkPlan::Clear() {
    while (!steps_.empty()) {
        DropFirst();
    }
}

void WalkPlan::Insert(FolderPath way) {
    auto step = std::make_shared<WalkStep>();
    step->way = std::move(way);
    step->depth = steps_.empty() ? 0 : steps_.front()->depth + 1;
    steps_.push_front(std::move(step));
}

WalkPlan::Step WalkPlan::NextToDo() {
    for (Position position = steps_.begin(); position != steps_.end(); ++position) {
        if (position != steps_.begin() && ahead_ >= kMostAhead) {
            break;
        }
        if ((*position)->kind == WalkStep::Kind::Rest) {
            position = Cut(position);
        }
        if ((*position)->state == WalkStep::State::Waiting) {
            return *position;
        }
    }
    return nullptr;
}

void WalkPlan::Finish(const Step& step) {
    step->state = WalkStep::State::Done;
    if (step->dropped) {
        return;
    }
    ahead_ += step->Size();
    if (step->kind == WalkStep::Kind::Folder && step->folder->Listing()->Count() > 0) {
        auto rest = std::make_shared<WalkStep>();
        rest->kind = WalkStep::Kind::Rest;
        rest->depth = step->depth + 1;
        rest->in = step->folder;
        rest->last = step->folder->Listing()->Count();
        steps_.insert(std::next(PositionOf(step)), std::move(rest));
    }
}

void WalkPlan::Repeat(const Step& step) {
    EraseBelow(PositionOf(step));
    ahead_ -= step->Size();
    step->state = WalkStep::State::Waiting;
}

} // namespace folimark
