#pragma once

#include "PictureProtocol.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>

namespace folimark {

/// The picture process as the application sees it: a child that is started when a question comes up, answers
/// one question after the other, and is ended, for a new one to take its place, as soon as it fails at one.
class PictureWorker {
  public:
    PictureWorker() = default;
    PictureWorker(const PictureWorker&) = delete;
    PictureWorker& operator=(const PictureWorker&) = delete;
    ~PictureWorker() { End(); }

    /// See SetPictureProcessExecutable.
    void SetExecutable(std::string path) { executable_ = std::move(path); }

    /// Puts one question. Nothing if there is no answer within `patience`.
    std::optional<PictureAnswer> Ask(const PictureRequest& request,
                                     const std::array<int, kRequestDescriptors>& descriptors,
                                     std::chrono::milliseconds patience);

    /// Ends the process and waits until it is gone. It holds nothing that would be lost.
    void End();

  private:
    bool Start();
    bool IsQuiet() const;

    std::string executable_;
    pid_t process_ = -1;
    Descriptor socket_;
};

} // namespace folimark
