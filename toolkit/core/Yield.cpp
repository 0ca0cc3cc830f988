#include "Yield.h"

#include "Finally.h"
#include "ListedItem.h"

#include <chrono>
#include <ctime>
#include <utility>

namespace folimark {
namespace {

/// Exact to a few milliseconds, for a fifth of what an exact one costs: loops look at it once for each file.
struct Clock {
    using duration = std::chrono::nanoseconds;
    using rep = duration::rep;
    using period = duration::period;
    using time_point = std::chrono::time_point<Clock>;
    [[maybe_unused]] static constexpr bool is_steady = true;

    static time_point now() {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
        return time_point(std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec));
    }
};

/// Short enough for pointer and keys to feel served at once, long enough for the loops to get their work
/// done.
constexpr std::chrono::milliseconds kBetweenYields{10};

std::function<void()>& Handler() {
    static std::function<void()> handler;
    return handler;
}

Clock::time_point lastYield;
bool due = true;
std::uint64_t eventsLetIn = 0;

} // namespace

std::function<void()> SetYieldHandler(std::function<void()> handler) {
    due = true;
    return std::exchange(Handler(), std::move(handler));
}

void RuntimeBackgroundTask() {
    if (!Handler() || (!due && Clock::now() - lastYield < kBetweenYields)) {
        return;
    }
    due = false;
    ++eventsLetIn;
    ListedItem::Walked(nullptr);
    const Finally noteEnd([] { lastYield = Clock::now(); });
    const std::function<void()> handler = Handler(); // it may be replaced while it runs
    handler();
}

std::uint64_t EventsLetIn() {
    return eventsLetIn;
}

} // namespace folimark
