#include "PictureService.h"

#include "EventLoop.h"

#include <algorithm>
#include <utility>

namespace folimark {
namespace {

/// Bytes of pixels. A picture for a preview has a third of a megabyte, on the sharpest screens nine times
/// that.
constexpr std::size_t kMostBytes = std::size_t{64} << 20;

} // namespace

PictureService& PictureService::The() {
    static auto* const service = new PictureService; // Threads may outlive all that ends with the process.
    return *service;
}

PictureService::PictureService() : store_(kMostBytes) {}

PictureQueue& PictureService::Queue() {
    if (!queue_) {
        queue_ = std::make_unique<PictureQueue>();
        watch_ = WatchDescriptor(queue_->AnswersDescriptor(), [this] { Deliver(); });
    }
    return *queue_;
}

void PictureService::Ask(const void* asker, const PictureQuestion& question, Answered answered) {
    Forget(asker);
    askers_[asker] = {question, std::move(answered)};
    Queue().ReadAhead({});
    Queue().Want(question);
}

void PictureService::Forget(const void* asker) {
    const auto found = askers_.find(asker);
    if (found == askers_.end()) {
        return;
    }
    const PictureQuestion question = found->second.question;
    askers_.erase(found);
    if (std::ranges::none_of(askers_, [&](const auto& other) { return other.second.question == question; })) {
        Queue().Forget(question);
    }
}

void PictureService::ReadAhead(std::vector<PictureQuestion> questions) {
    std::erase_if(questions, [this](const PictureQuestion& question) { return store_.Has(question); });
    Queue().ReadAhead(std::move(questions));
}

void PictureService::Deliver() {
    for (const auto& [question, reading] : queue_->TakeAnswers()) {
        store_.Keep(question, reading);
        std::vector<const void*> waiting;
        for (const auto& [asker, asked] : askers_) {
            if (asked.question == question) {
                waiting.push_back(asker);
            }
        }
        for (const void* asker : waiting) {
            // What the one before did with its answer may have been the end of this one.
            if (const auto found = askers_.find(asker);
                found != askers_.end() && found->second.question == question) {
                const Answered answered = std::move(found->second.answered);
                askers_.erase(found);
                answered(reading);
            }
        }
    }
}

void PictureService::End() {
    askers_.clear();
    watch_.reset();
    queue_.reset();
    store_ = PictureStore(kMostBytes);
}

} // namespace folimark
