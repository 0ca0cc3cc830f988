#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace folimark {

/// Sees to it that a user has one application at a time for a folder, so that no two of them write its files.
///
/// The claim is a socket of a name that is made from the user and the folder. It lives in no file system: the
/// system lets one process have it and takes it back when that process ends, however it ends, so that nothing
/// stale can stay behind. It is seen on this machine alone. A name that another user has taken is passed
/// over.
class SingleInstance {
  public:
    enum class Claim : std::uint8_t {
        Granted,   ///< this process is the one, for as long as the object lives
        Forwarded, ///< another one is, and has come forward
        Unanswered ///< another one is, but hasn't answered
    };

    SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Claims the folder (native path; it needn't exist). Once granted, `comeForward` is called as an event
    /// each time that another process claims the same folder. Otherwise this waits no longer than `patience`
    /// for the other one's answer. Raises IOException if the system gives no socket.
    Claim Take(const std::string& folder, std::function<void()> comeForward,
               std::chrono::milliseconds patience = kPatience);

  private:
    /// Longer than an application that is well can go without looking at its events.
    static constexpr std::chrono::milliseconds kPatience{8000};

    class Listener;
    std::unique_ptr<Listener> listener_;
};

} // namespace folimark
