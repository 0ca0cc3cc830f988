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
        const std::int64_t now =
            std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
                .count();
        // The event's time comes from another clock. The smallest distance seen is that of an event which
        // didn't have to wait.
        const std::int64_t distance = now - static_cast<std::int64_t>(event.timestamp());
        if (!smallestDistance_ || distance < *smallestDistance_) {
            smallestDistance_ = distance;
        }
        return event.isAutoRepeat() && distance - *smallestDistance_ > kLate;
    }

  private:
    /// Milliseconds; about two repeats of a keyboard.
    static constexpr std::int64_t kLate = 70;
    std::optional<std::int64_t> smallestDistance_;
};

} // namespace folimark
