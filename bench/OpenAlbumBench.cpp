// How long it takes to open an album, against a bare walk of the same tree: its directory entries, and one
// status call a file. Both run in turn, so that the ratio ("times the walk") holds on a noisy machine, too.

#include "GlobalData.h"
#include "Start.h"
#include "Toolkit.h"
#include "Tree.h"
#include "aListWindow.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <time.h>

namespace {

using namespace folimark;
/// Seconds of the clock on the wall, or of this process's share of the processor, which other processes on
/// the machine don't lengthen.
double Seconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// What something took, on both clocks.
struct Duration {
    double wall = 0;
    double processor = 0;

    template <class Work>
    void Add(const Work& work) {
        const double wallStart = Seconds(CLOCK_MONOTONIC);
        const double processorStart = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        work();
        wall += Seconds(CLOCK_MONOTONIC) - wallStart;
        processor += Seconds(CLOCK_PROCESS_CPUTIME_ID) - processorStart;
    }
};

std::int64_t WalkBare(int folder) {
    std::int64_t files = 0;
    DIR* entries = fdopendir(folder);
    while (const dirent* entry = readdir(entries)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") {
            continue;
        }
        if (entry->d_type == DT_DIR) {
            files += WalkBare(openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        } else {
            struct statx status {};
            if (statx(folder, entry->d_name, 0, STATX_BASIC_STATS | STATX_BTIME, &status) == 0) {
                ++files;
            }
        }
    }
    closedir(entries);
    return files;
}

void OpenAlbum(benchmark::State& state) {
    const Tree tree(state.range(0));
    Duration walked;
    Duration opened;
    for (auto _ : state) {
        std::int64_t files = 0;
        walked.Add([&] { files = WalkBare(open(tree.Root().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); });

        GlobalData::CatalogFolder = FolderItem::FromNativePath(tree.Root().native());
        const Ref<aListWindow> window = New<aListWindow>();
        const double before = opened.wall;
        opened.Add([&] { window->Show(); });
        state.SetIterationTime(opened.wall - before);
        if (files != state.range(0) || window->TheListBox()->LastIndex() + 1 != files) {
            state.SkipWithError("not all files were found");
        }
        window->Close();
    }
    state.counters["times the walk"] = opened.wall / walked.wall;
    state.counters["times its processor time"] = opened.processor / walked.processor;
    state.counters["walk in ms"] = walked.wall * 1000 / static_cast<double>(state.iterations());
}

// The iterations are few, since closed windows go only when the event loop runs.
BENCHMARK(OpenAlbum)->Arg(1000)->Iterations(20)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenAlbum)->Arg(100'000)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    StartToolkit(arguments, {});
    _EarlyStartup();
    GlobalData::SetupFileTypeStrings();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
