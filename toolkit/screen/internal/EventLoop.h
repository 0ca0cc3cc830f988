#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace folimark {

/// Runs the event loop, with `first` as its first event, until EndEventLoop is called.
void RunEventLoop(std::function<void()> first);
/// Ends the event loop and all that run inside it.
void EndEventLoop(int exitCode);

/// Calls `ready` each time that the descriptor can be read, for as long as the result lives.
std::shared_ptr<void> WatchDescriptor(int descriptor, std::function<void()> ready);
/// Calls `due` once, when so much time has passed, unless the result has gone by then.
std::shared_ptr<void> CallAfter(std::chrono::milliseconds pause, std::function<void()> due);

} // namespace folimark
