#pragma once

#include "Descriptor.h"
#include "PictureReader.h"

#include <memory>
#include <utility>
#include <vector>

namespace folimark {

/// Reads pictures on two threads, each with a picture process, so that nobody has to wait for one. What is
/// wanted comes first, the newest of it before all else; what may be wanted next is read while nothing is, by
/// one of the threads, and broken off when both are needed. The threads begin with the first question. They
/// know nothing but what is passed here, and one that hangs is left behind.
class PictureQueue {
  public:
    using Answer = std::pair<PictureQuestion, PictureReading>;

    PictureQueue();
    PictureQueue(const PictureQueue&) = delete;
    PictureQueue& operator=(const PictureQueue&) = delete;
    /// Ends the picture processes.
    ~PictureQueue();

    void Want(const PictureQuestion& question);
    /// Takes a question back. If its reading has begun it goes on, and gives an answer.
    void Forget(const PictureQuestion& question);
    /// Replaces what was to be read ahead and hasn't been begun.
    void ReadAhead(std::vector<PictureQuestion> questions);

    /// The answers since the last call.
    std::vector<Answer> TakeAnswers();
    /// Readable when there are answers.
    int AnswersDescriptor() const;

  private:
    struct State;
    std::shared_ptr<State> state_; // the threads' too
};

} // namespace folimark
