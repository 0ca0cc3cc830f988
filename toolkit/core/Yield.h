#pragma once

#include <cstdint>
#include <functional>

namespace folimark {

/// Lets the event loop run for a moment, if some milliseconds have passed since it last did; otherwise this
/// costs a glance at the clock. Each pass of a loop over a list, a folder or a file calls it. So anything may
/// happen in it that events can do: a window may be gone afterwards, and EndException may pass through.
void RuntimeBackgroundTask();

/// How many calls have let events in so far: if that number has grown, anything may have happened since.
std::uint64_t EventsLetIn();

/// What a yield runs: the event loop's part. With none a yield does nothing. The next call of
/// RuntimeBackgroundTask yields. \returns the former one.
std::function<void()> SetYieldHandler(std::function<void()> handler);

} // namespace folimark
