// What a list of a million rows costs: sorting it, searching it for a phrase, and finding a typed beginning.

#include "ListRows.h"
#include "Text.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace folimark;

constexpr std::int64_t kRows = 1'000'000;

const ListRows& Million() {
    static ListRows rows = [] {
        ListRows made;
        for (std::int64_t i = 0; i < kRows; ++i) {
            const std::int64_t shuffled = i * 7919 % kRows;
            made.AddRow({"Year " + std::to_string(shuffled / 10000) + " → Ferien in der Süd-Bretagne → Bild "
                             + std::to_string(shuffled) + ".jpg",
                         "2026-11-" + std::to_string(10 + shuffled % 20), "", "MB  003.7", "Image"});
        }
        return made;
    }();
    return rows;
}

void Sort(benchmark::State& state) {
    ListRows rows;
    for (std::int64_t i = 0; i < kRows; ++i) {
        rows.AddRow({std::string(Million().Cell(i, 0)), std::string(Million().Cell(i, 1))});
    }
    bool ascending = true;
    for (auto _ : state) {
        benchmark::DoNotOptimize(rows.Sort(state.range(0), ascending));
        ascending = !ascending;
    }
}
BENCHMARK(Sort)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Search(benchmark::State& state) {
    const std::string phrase = state.range(0) == 0 ? "bild 99" : "BRETAGNÉ";
    for (auto _ : state) {
        std::int64_t found = 0;
        for (std::int64_t i = 0; i < kRows; ++i) {
            found += InStr(Million().Cell(i, 0), phrase) > 0 ? 1 : 0;
        }
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(Search)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void FindPrefix(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(Million().FindPrefix("no such entry", 0));
    }
}
BENCHMARK(FindPrefix)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
