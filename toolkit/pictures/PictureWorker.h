#pragma once

#include "ChildProcess.h"
#include "PictureProtocol.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>

namespace folimark {

/// The picture process as the application sees it: a child that is started when a question comes up, answers
/// one question after the other, and is ended, for a new one to take its place, as soon as it fails at one,
/// has grown, or has answered many.
class PictureWorker {
  public:
    using Clock = std::chrono::steady_clock;

    PictureWorker() = default;
    PictureWorker(const PictureWorker&) = delete;
    PictureWorker& operator=(const PictureWorker&) = delete;
    ~PictureWorker() { End(); }

    /// See SetPictureProcessExecutable.
    void SetExecutable(std::string path) { executable_ = std::move(path); }

    /// Puts one question. Nothing if there is no answer at `end`, or when the descriptor `brokenOff` becomes
    /// readable.
    std::optional<PictureAnswer> Ask(PictureRequest request,
                                     const std::array<int, kRequestDescriptors>& descriptors,
                                     Clock::time_point end, int brokenOff = -1);

    /// Did the last question fail since no process could be started, or since a fresh one ended by itself?
    /// The file may be to blame for the latter.
    bool IsSuspect() const { return isSuspect_; }

    /// Ends the process, which holds nothing that would be lost, and doesn't wait until it has gone: one that
    /// reads from a mount that doesn't answer can't be killed before that does.
    void End();

  private:
    bool Start();
    bool IsQuiet() const;
    bool IsWorn() const;

    std::string executable_;
    std::optional<ChildProcess> process_;
    Descriptor socket_;
    int answers_ = 0; // of this process
    bool isSuspect_ = false;
    std::uint32_t questions_ = 0;
};

} // namespace folimark
