#pragma once

#include <chrono>
#include <future>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace folimark {

/// Puts a question to the system that may last for ever on a mount that doesn't answer any more, and gives up
/// after a few seconds: a disk that stands still takes less. Then nothing is returned, and a thread alone is
/// left behind. So the question must own what it needs.
template <class Question>
auto AskPatiently(Question question) -> std::optional<std::invoke_result_t<Question>> {
    constexpr std::chrono::seconds kPatience{5};
    std::packaged_task<std::invoke_result_t<Question>()> task(question);
    auto answer = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) { // The system gives no thread.
        return question();
    }
    return answer.wait_for(kPatience) == std::future_status::ready ? std::optional(answer.get())
                                                                   : std::nullopt;
}

} // namespace folimark
