#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

namespace folimark {

/// How long somebody waits, and who is told meanwhile that it takes its time.
class Patience {
  public:
    using Clock = std::chrono::steady_clock;
    /// Called once after kMoment, with false, and once after kLong, with true.
    using Teller = std::function<void(bool isLong)>;
    static constexpr std::chrono::milliseconds kMoment{40};
    static constexpr std::chrono::milliseconds kLong{200};

    explicit Patience(Clock::duration most, Teller teller = {})
        : start_(Clock::now()), end_(start_ + most), teller_(std::move(teller)) {}

    /// Waits with `ready`, which returns at the given time at the latest and says whether what is awaited has
    /// come.
    template <class Ready>
    bool Wait(const Ready& ready) {
        for (; teller_ && told_ < 2; ++told_) {
            const Clock::time_point next = std::min(start_ + (told_ == 0 ? kMoment : kLong), end_);
            if (ready(next)) {
                return true;
            }
            teller_(told_ > 0);
        }
        return ready(end_);
    }

    bool IsOver() const { return Clock::now() >= end_; }

  private:
    Clock::time_point start_;
    Clock::time_point end_;
    Teller teller_;
    int told_ = 0;
};

} // namespace folimark
