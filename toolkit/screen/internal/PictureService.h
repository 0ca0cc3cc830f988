#pragma once

#include "PictureQueue.h"
#include "PictureStore.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace folimark {

/// Gives canvases the pictures that they ask for, from what has been read already or, later, as an event.
/// There is one, for as long as the process lives.
class PictureService {
  public:
    using Answered = std::function<void(const PictureReading&)>;

    static PictureService& The();

    /// The reading of the very file that is there now, if there has been one already; null if not. Valid
    /// until the next call.
    const PictureReading* Find(const PictureQuestion& question) { return store_.Find(question); }
    /// Has the picture read anew, and calls `answered` once. Replaces what the asker has asked for before.
    void Ask(const void* asker, const PictureQuestion& question, Answered answered);
    /// The asker doesn't want its answer any more.
    void Forget(const void* asker);
    /// Replaces what is to be read while nothing is asked for.
    void ReadAhead(std::vector<PictureQuestion> questions);

    /// Does an asker wait?
    bool IsAwaited() const { return !askers_.empty(); }
    /// Lets go of all threads, processes, askers and pictures. The next question begins anew.
    void End();

  private:
    struct Asker {
        PictureQuestion question;
        Answered answered;
    };

    PictureService();
    PictureQueue& Queue();
    void Deliver();

    std::unique_ptr<PictureQueue> queue_;
    std::shared_ptr<void> watch_;
    PictureStore store_;
    std::map<const void*, Asker> askers_;
};

} // namespace folimark
