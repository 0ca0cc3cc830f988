#include "Yield.h"

#include "Exceptions.h"

#include <chrono>
#include <gtest/gtest.h>

namespace folimark {
namespace {

TEST(Yield, RunsTheHandlerNowAndThen) {
    RuntimeBackgroundTask(); // without a handler nothing happens
    std::int64_t calls = 0;
    std::int64_t yields = 0;
    SetYieldHandler([&yields] { ++yields; });
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (yields < 3 && std::chrono::steady_clock::now() < limit) {
        RuntimeBackgroundTask();
        ++calls;
    }
    EXPECT_EQ(yields, 3);
    EXPECT_GT(calls, 3);
    SetYieldHandler([] {
        SetYieldHandler(nullptr);
        throw EndException();
    });
    EXPECT_THROW(RuntimeBackgroundTask(), EndException);
    RuntimeBackgroundTask();
}

} // namespace
} // namespace folimark
