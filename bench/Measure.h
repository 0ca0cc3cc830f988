#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>

/// Seconds on the wall's clock.
inline double SecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Seconds that this thread had the processor, which nothing else on the machine lengthens by much.
inline double ProcessorSecondsOf(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double start = now();
    work();
    return now() - start;
}

/// The least that each of two things took, in several rounds in turn: what else goes on in the machine only
/// adds.
struct Least {
    double ours = 1e9;
    double yardstick = 1e9;

    Least(int rounds, const std::function<double()>& measureOurs,
          const std::function<double()>& measureYardstick) {
        for (int i = 0; i < rounds; ++i) {
            yardstick = std::min(yardstick, measureYardstick());
            ours = std::min(ours, measureOurs());
        }
    }
};

/// A row of the table, with tabs between: what, ours, the yardstick, the unit, and the goal. The goal is for
/// the ratio of the two, or for ours alone where there is no yardstick (0).
inline void Print(const std::string& what, double ours, double yardstick, const char* unit, double goal) {
    std::printf("%s\t%.4g\t%.4g\t%s\t%g\n", what.c_str(), ours, yardstick, unit, goal);
    std::fflush(stdout);
}

inline void Print(const std::string& what, const Least& least, double goal) {
    Print(what, least.ours * 1000, least.yardstick * 1000, "ms", goal);
}
