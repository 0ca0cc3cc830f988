#include "ReadAhead.h"

#include "FileTypeRegistry.h"
#include "NativePath.h"
#include "Yield.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <system_error>
#include <thread>

namespace folimark {
namespace {

using Clock = std::chrono::steady_clock;

/// How long the walk waits for an answer before its thread sees to the event loop.
constexpr std::chrono::milliseconds kPatience{10};
/// How long it has to wait before another reader is started.
constexpr std::chrono::microseconds kHunger{500};

/// Readers wait more than they compute, so there may be more of them than processors.
unsigned MostReaders() {
    return std::clamp(2 * std::thread::hardware_concurrency(), 4U, 16U);
}

ChangeTime ChangeOf(const Descriptor& folder) {
    return folder ? ChangeTime::Of(folder.Get()) : ChangeTime();
}

void ReadFolder(WalkStep& step, const std::shared_ptr<const ExtensionTable>& types) {
    FolderPath way =
        step.way ? *step.way : step.in->Listing()->Path().Listed(step.in->Listing()->Name(step.first));
    const bool byName = step.in && step.in->Folder();
    Descriptor folder = byName ? OpenListedFolder(step.in->Folder().Get(),
                                                  step.in->Listing()->Name(step.first).data(), O_RDONLY)
                               : way.Open(O_RDONLY);
    auto listing = [&] {
        if (folder) {
            step.changed = ChangeOf(folder);
        }
        return std::make_shared<const FolderListing>(std::move(way), folder, types);
    }();
    step.folder = std::make_shared<const OpenFolder>(std::move(listing), std::move(folder));
}

/// What a walk's user is likely to want to know more of: where links lead, and files of a known type.
bool IsWanted(const FolderListing& listing, std::size_t entry) {
    const EntryKind kind = listing.Kind(entry);
    return !listing.Hidden(entry)
           && (kind == EntryKind::Link || (kind == EntryKind::File && !listing.Type(entry).empty()));
}

void AskAboutEntries(WalkStep& step) {
    const FolderListing& listing = *step.in->Listing();
    Descriptor opened;
    if (!step.in->Folder()) {
        opened = listing.Path().Open(O_PATH);
    }
    const Descriptor& folder = opened ? opened : step.in->Folder();
    const bool gone = !folder && MeansGone(errno);
    step.changed = ChangeOf(folder);
    auto answers = std::make_shared<EntryAnswers>();
    answers->first = step.first;
    answers->statuses.resize(step.last - step.first);
    for (std::size_t entry = step.first; entry < step.last; ++entry) {
        if (IsWanted(listing, entry)) {
            answers->statuses[entry - step.first] =
                folder ? AskStatus(folder.Get(), listing.Name(entry).data()) : FileStatus{.gone = gone};
        }
    }
    step.answers = std::move(answers);
}

} // namespace

/// What the walk and its readers have in common. It lives as long as any of them.
struct ReadAhead::Shared {
    std::mutex mutex; // for all but `types`, and for what a step is about, which stay the same
    std::condition_variable work;
    std::condition_variable done;
    WalkPlan plan;
    std::uint64_t now = EventsLetIn();
    unsigned readers = 0;
    unsigned idle = 0;
    bool ended = false;
    const std::shared_ptr<const ExtensionTable> types = KnownExtensions();

    /// One round of a reader. False if there is nothing to do for now.
    bool DoNext(std::unique_lock<std::mutex>& lock) {
        const WalkPlan::Step step = plan.NextToDo();
        if (!step) {
            return false;
        }
        step->state = WalkStep::State::Running;
        step->asked = now;
        WalkStep copy = *step; // so that the step itself is touched under the lock only
        lock.unlock();
        copy.kind == WalkStep::Kind::Folder ? ReadFolder(copy, types) : AskAboutEntries(copy);
        lock.lock();
        step->changed = copy.changed;
        step->folder = std::move(copy.folder);
        step->answers = std::move(copy.answers);
        plan.Finish(step);
        done.notify_one();
        return true;
    }

    void Read() {
        std::unique_lock lock(mutex);
        while (!ended) {
            if (!DoNext(lock)) {
                ++idle;
                work.wait(lock);
                --idle;
            }
        }
    }

    /// False if the system has no thread to give.
    static bool StartReader(const std::shared_ptr<Shared>& shared) {
        // Signals are the other threads' business.
        sigset_t all{};
        sigset_t usual{};
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &usual);
        bool started = true;
        try {
            // Nobody waits for it: it may hang in the system for as long as a disk doesn't answer.
            std::jthread([shared] { shared->Read(); }).detach();
            ++shared->readers;
        } catch (const std::system_error&) {
            started = false;
        }
        pthread_sigmask(SIG_SETMASK, &usual, nullptr);
        return started;
    }
};

ReadAhead::ReadAhead() : shared_(std::make_shared<Shared>()) {}

ReadAhead::~ReadAhead() {
    const std::lock_guard lock(shared_->mutex);
    shared_->ended = true;
    shared_->plan.Clear();
    shared_->work.notify_all();
}

void ReadAhead::Enter(FolderPath way) {
    const std::lock_guard lock(shared_->mutex);
    shared_->plan.Insert(std::move(way));
}

WalkPlan::Step ReadAhead::AwaitFirst() {
    Shared& shared = *shared_;
    std::unique_lock lock(shared.mutex);
    shared.now = EventsLetIn();
    WalkPlan::Step first = shared.plan.First();
    std::optional<Clock::time_point> end;
    for (;;) {
        if (first->state == WalkStep::State::Done) {
            if (first->asked == shared.now) {
                return first;
            }
            // Readers leave alone what is done, so this needs no lock.
            lock.unlock();
            const bool holds =
                first->changed == ChangeOf((first->folder ? first->folder : first->in)->Folder());
            lock.lock();
            if (holds) {
                first->asked = shared.now;
                return first;
            }
            shared.plan.Repeat(first);
        }
        shared.work.notify_all();
        if (shared.readers == 0 && !Shared::StartReader(shared_)) {
            shared.DoNext(lock);
            continue;
        }
        const Clock::time_point now = Clock::now();
        end = end.value_or(now + kPatience);
        if (now >= *end) {
            return nullptr;
        }
        if (shared.done.wait_for(lock, kHunger) == std::cv_status::timeout
            && shared.readers < MostReaders()) {
            Shared::StartReader(shared_);
        }
    }
}

void ReadAhead::WakeReader() {
    if (shared_->idle > 0 && shared_->plan.RunsLow()) {
        shared_->work.notify_one();
    }
}

std::shared_ptr<const OpenFolder> ReadAhead::TakeFolder() {
    const WalkPlan::Step first = AwaitFirst();
    if (!first) {
        return nullptr;
    }
    const std::lock_guard lock(shared_->mutex);
    shared_->plan.DropFirst();
    WakeReader();
    return first->folder;
}

void ReadAhead::SkipFolder() {
    const std::lock_guard lock(shared_->mutex);
    shared_->plan.DropTree();
    WakeReader();
}

std::shared_ptr<const EntryAnswers> ReadAhead::Answers() {
    const WalkPlan::Step first = AwaitFirst();
    return first ? first->answers : nullptr;
}

void ReadAhead::DropAnswers() {
    const std::lock_guard lock(shared_->mutex);
    shared_->plan.DropFirst();
    WakeReader();
}

} // namespace folimark
