#include "PictureStore.h"

#include <utility>

namespace folimark {
namespace {

/// With about what the entry itself takes.
std::size_t BytesOf(const PictureReading& reading) {
    constexpr std::size_t kEntry = 1024;
    const auto& picture = reading.picture;
    return kEntry
           + (picture ? std::size_t(picture->width) * std::size_t(picture->height) * sizeof(std::uint32_t)
                      : 0);
}

} // namespace

void PictureStore::Keep(const PictureQuestion& question, PictureReading reading) {
    Forget(question);
    const std::size_t bytes = BytesOf(reading);
    if (!reading.file || reading.refusal == PictureRefusal::ReaderIsBroken || bytes > mostBytes_ / 4) {
        return;
    }
    entries_.emplace_front(question, std::move(reading));
    byQuestion_[question] = entries_.begin();
    bytes_ += bytes;
    while (bytes_ > mostBytes_) {
        Forget(PictureQuestion(entries_.back().first));
    }
}

const PictureReading* PictureStore::Find(const PictureQuestion& question) {
    const auto found = byQuestion_.find(question);
    if (found == byQuestion_.end()) {
        return nullptr;
    }
    if (found->second->second.file != FileState::Of(question.path)) {
        Forget(question);
        return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->second;
}

void PictureStore::Forget(const PictureQuestion& question) {
    if (const auto found = byQuestion_.find(question); found != byQuestion_.end()) {
        bytes_ -= BytesOf(found->second->second);
        entries_.erase(found->second);
        byQuestion_.erase(found);
    }
}

} // namespace folimark
