#include "PictureQueue.h"

#include "PictureProcess.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <sys/eventfd.h>
#include <thread>

namespace folimark {
namespace {

/// More would take the processor from the one that is wanted.
constexpr int kThreads = 2;

/// A thread that takes longer to leave waits for a file on a mount that doesn't answer.
constexpr std::chrono::milliseconds kFarewell{500};

} // namespace

/// Nobody waits with the lock held but for a condition, which lets go of it.
struct PictureQueue::State {
    struct Desk {
        PictureReader reader;
        std::optional<PictureQuestion> question; ///< that is being read
        bool isAhead = false;                    ///< and that nobody wants so far
    };

    std::mutex lock;
    std::condition_variable work;
    std::deque<PictureQuestion> wanted; ///< the newest last
    std::deque<PictureQuestion> ahead;  ///< the likeliest first
    std::array<Desk, kThreads> desks;
    std::vector<Answer> answers;
    bool ending = false;
    int serving = kThreads;       ///< threads that haven't left
    std::condition_variable left; ///< one of them has
    Descriptor answered{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};

    bool IsIdle() const {
        return wanted.empty()
               && std::ranges::none_of(desks, [](const Desk& desk) { return desk.question.has_value(); });
    }

    /// Chooses what a desk reads next; the lock is held. \returns whether there is anything.
    bool Choose(Desk& desk) {
        if (!wanted.empty()) {
            desk.question = std::move(wanted.back());
            desk.isAhead = false;
            wanted.pop_back();
        } else if (!ahead.empty() && IsIdle()) {
            desk.question = std::move(ahead.front());
            desk.isAhead = true;
            ahead.pop_front();
        }
        return desk.question.has_value();
    }

    void Serve(Desk& desk) {
        std::unique_lock held(lock);
        for (;;) {
            work.wait(held, [&] { return ending || Choose(desk); });
            if (ending) {
                break;
            }
            const PictureQuestion question = *desk.question;
            desk.reader.GoOn();
            held.unlock();
            PictureReading reading = desk.reader.Read(question);
            held.lock();
            desk.question.reset();
            if (reading.refusal != PictureRefusal::BrokenOff) {
                answers.emplace_back(question, std::move(reading));
                eventfd_write(answered.Get(), 1);
            } else if (!desk.isAhead) { // Somebody has wanted it since.
                wanted.push_front(question);
            }
            work.notify_all(); // What may be read ahead has waited for this.
        }
        desk.reader.End();
        --serving;
        left.notify_all();
    }
};

PictureQueue::PictureQueue() : state_(std::make_shared<State>()) {
    for (State::Desk& desk : state_->desks) {
        desk.reader.SetExecutable(PictureProcessExecutable());
        std::thread([state = state_, &desk] { state->Serve(desk); }).detach();
    }
}

PictureQueue::~PictureQueue() {
    std::unique_lock held(state_->lock);
    state_->ending = true;
    for (State::Desk& desk : state_->desks) {
        desk.reader.BreakOff();
    }
    state_->work.notify_all();
    // So that no picture process outlives ours, which may be about to end.
    state_->left.wait_for(held, kFarewell, [this] { return state_->serving == 0; });
}

void PictureQueue::Want(const PictureQuestion& question) {
    const std::lock_guard held(state_->lock);
    for (State::Desk& desk : state_->desks) {
        if (desk.question == question) {
            desk.isAhead = false;
            return;
        }
    }
    state_->wanted.push_back(question);
    const auto isBusy = [](const State::Desk& desk) { return desk.question.has_value(); };
    if (std::ranges::all_of(state_->desks, isBusy)) {
        const auto found = std::ranges::find_if(state_->desks, &State::Desk::isAhead);
        if (found != state_->desks.end()) {
            found->reader.BreakOff();
        }
    }
    state_->work.notify_all();
}

void PictureQueue::Forget(const PictureQuestion& question) {
    const std::lock_guard held(state_->lock);
    std::erase(state_->wanted, question);
}

void PictureQueue::ReadAhead(std::vector<PictureQuestion> questions) {
    const std::lock_guard held(state_->lock);
    const auto isBeingRead = [this](const PictureQuestion& question) {
        return std::ranges::any_of(state_->desks,
                                   [&](const State::Desk& desk) { return desk.question == question; });
    };
    std::erase_if(questions, isBeingRead);
    state_->ahead.assign(questions.begin(), questions.end());
    state_->work.notify_all();
}

std::vector<PictureQueue::Answer> PictureQueue::TakeAnswers() {
    const std::lock_guard held(state_->lock);
    eventfd_t count = 0;
    eventfd_read(state_->answered.Get(), &count);
    return std::exchange(state_->answers, {});
}

int PictureQueue::AnswersDescriptor() const {
    return state_->answered.Get();
}

} // namespace folimark
