#pragma once

#include <QKeyEvent>

#include <chrono>
#include <cstdint>
#include <optional>

namespace folimark {

/// Tells repeats of a held key that have waited in the queue, because each step took longer than the keyboard
/// repeats, from those that come in time. Steps for the late ones would go on after the key is released.
class KeyBacklog {
  public:
    /// Is this a repeat that is too late to act upon? Has to see every key event of its widget.
    bool IsLate(const QKeyEvent& event) {
        using std::chrono::milliseconds;
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return IsLate(static_cast<std::int64_t>(event.timestamp()), event.isAutoRepeat(),
                      std::chrono::duration_cast<milliseconds>(now).count());
    }

    /// The same, for an event of the time `stamp` on the window system's clock, at the time `now` on ours.
    /// Both in milliseconds.
    bool IsLate(std::int64_t stamp, bool isRepeat, std::int64_t now) {
        // The event's time comes from another clock. The smallest distance seen is that of an event which
        // didn't have to wait. It rises a little all the time, so that it follows clocks that drift apart,
        // and it starts anew when one of them has been set.
        const auto distance = static_cast<double>(now - stamp);
        if (promptDistance_) {
            *promptDistance_ += kMostDrift * static_cast<double>(now - seen_);
        }
        if (!promptDistance_ || distance < *promptDistance_ || distance > *promptDistance_ + kClockSet) {
            promptDistance_ = distance;
        }
        seen_ = now;
        return isRepeat && distance - *promptDistance_ > kLate;
    }

  private:
    /// Milliseconds; about two repeats of a keyboard.
    static constexpr double kLate = 70;
    /// Far more than clocks drift, and far less than a queue grows while it isn't emptied.
    static constexpr double kMostDrift = 0.01;
    /// Milliseconds; no event waits for an hour.
    static constexpr double kClockSet = 3'600'000;
    std::optional<double> promptDistance_;
    std::int64_t seen_ = 0;
};

} // namespace folimark
