// What it costs to open an album: folimark-bench-album WHAT FOLDER FILES ROUNDS

#include "Application.h"
#include "GlobalData.h"
#include "Measure.h"
#include "SlowDisk.h"
#include "Start.h"
#include "Toolkit.h"
#include "Tree.h"
#include "Yield.h"
#include "aHilightWindow.h"
#include "aListWindow.h"

#include <QTimer>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace {

using namespace folimark;

constexpr std::int64_t kFewFiles = 1000;

std::string tree;
std::int64_t files = 0;
int rounds = 0;

/// An album's window, which goes with the object.
struct Album {
    Ref<aListWindow> window;

    Album() {
        GlobalData::CatalogFolder = FolderItem::FromNativePath(tree);
        window = New<aListWindow>();
    }
    Album(const Album&) = delete;
    Album& operator=(const Album&) = delete;
    ~Album() { window->Close(); }

    double Open() {
        const double seconds = SecondsOf([this] { window->Show(); });
        if (window->TheListBox()->LastIndex() + 1 != MediaIn(files)) {
            std::fprintf(stderr, "not all files were found\n");
            std::exit(1);
        }
        return seconds;
    }
};

double OpenAlbum() {
    Album album;
    return album.Open();
}

void DropCaches() {
    sync();
    std::ofstream("/proc/sys/vm/drop_caches") << 3 << std::flush;
}

std::string Count() {
    return std::to_string(files) + " files";
}

void Open() {
    Print("open " + Count() + ", against a bare walk",
          Least(rounds, OpenAlbum, [] { return SecondsOf([] { WalkBare(tree); }); }), 1.0);
}

/// What the window's own thread has left to do, on a machine that is busy with other things, too.
void OpenByProcessor() {
    Print("processor time of the window's thread, " + Count() + ", against a bare walk's",
          Least(
              rounds,
              [] {
                  Album album;
                  return ProcessorSecondsOf([&] { album.Open(); });
              },
              [] { return ProcessorSecondsOf([] { WalkBare(tree); }); }),
          1.0);
}

void OpenAgainstBfs() {
    const std::string command = "bfs '" + tree + "' -type f -printf '%p %s %t %Bs\\n' > /dev/null";
    Print("open " + Count() + ", against bfs",
          Least(rounds, OpenAlbum,
                [&] {
                    return SecondsOf([&] {
                        if (std::system(command.c_str()) != 0) {
                            std::exit(1);
                        }
                    });
                }),
          0.8);
}

void OpenCold() {
    Print("open " + Count() + " cold, against a bare walk",
          Least(
              rounds,
              [] {
                  DropCaches();
                  return OpenAlbum();
              },
              [] {
                  DropCaches();
                  return SecondsOf([] { WalkBare(tree); });
              }),
          0.6);
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

/// A value of /proc/self/status, in bytes.
double Memory(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return std::stod(line.substr(line.find(':') + 1)) * 1024;
        }
    }
    return 0;
}

void MemoryOfRows(const std::string& smallTree) {
    {
        // A window itself takes memory, too, and leaves some of it with the window system.
        const std::string large = std::exchange(tree, smallTree);
        const std::int64_t many = std::exchange(files, kFewFiles);
        OpenAlbum();
        tree = large;
        files = many;
    }
    const double before = Memory("VmRSS");
    Album album;
    album.Open();
    const double peak = Memory("VmHWM");
    malloc_trim(0);
    const auto rows = static_cast<double>(MediaIn(files));
    Print("memory of " + Count() + ", resting", (Memory("VmRSS") - before) / rows, 0, "bytes a row", 200);
    Print("memory of " + Count() + ", peak", (peak - before) / rows, 0, "bytes a row", 300);
}

/// Times what lies between two turns of the event loop, for as long as it lives.
class Gaps {
  public:
    Gaps()
        : serve_(SetYieldHandler([this] {
              Note();
              serve_();
              last_ = Clock::now();
          })) {}
    Gaps(const Gaps&) = delete;
    Gaps& operator=(const Gaps&) = delete;
    ~Gaps() { SetYieldHandler(serve_); }

    void Restart() {
        gaps_.clear();
        last_ = Clock::now();
    }
    void Note() { gaps_.push_back(std::chrono::duration<double>(Clock::now() - last_).count()); }
    /// In seconds; the longest is number 0.
    double Longest(std::size_t number) {
        std::sort(gaps_.rbegin(), gaps_.rend());
        return gaps_.at(number);
    }

  private:
    using Clock = std::chrono::steady_clock;

    std::vector<double> gaps_;
    Clock::time_point last_ = Clock::now();
    std::function<void()> serve_;
};

/// The longest gap of all is that of the sort at the end.
void Unserved() {
    double sort = 1e9;
    double scan = 1e9;
    double search = 1e9;
    for (int i = 0; i < rounds; ++i) {
        Album album;
        Gaps gaps;
        album.Open();
        sort = std::min(sort, gaps.Longest(0));
        scan = std::min(scan, gaps.Longest(1));
        GlobalData::HighlightPhrase1 = std::string("e");
        QTimer::singleShot(0, [&] {
            gaps.Restart();
            album.window->HighlightWindow.As<aHilightWindow>()->OKPushButton()->Push();
        });
        album.window->HighlightPushButton()->Push(); // shows the dialog, and then searches
        gaps.Note();
        search = std::min(search, gaps.Longest(0));
    }
    Print("longest time unserved, scan of " + Count(), scan * 1000, 0, "ms", 30);
    Print("longest time unserved, search in " + Count(), search * 1000, 0, "ms", 30);
    Print("longest time unserved, sort of " + Count(), sort * 1000, 0, "ms", 200);
}

void Growth() {
    const std::string large = tree;
    const std::int64_t many = files;
    const std::string small = MakeTree(FolderOf(tree), files / 10);
    const auto openOf = [](const std::string& root, std::int64_t count) {
        tree = root;
        files = count;
        return OpenAlbum();
    };
    const Least least(
        rounds, [&] { return openOf(large, many); }, [&] { return openOf(small, many / 10); });
    files = many;
    Print("open " + Count() + ", against a tenth of them", least, 10.5);
}

/// As on a disk across a network: how much sooner than one question after the other?
void OpenFarAway() {
    SetAnswerDelay(std::chrono::milliseconds(1));
    Print("open " + Count() + ", a millisecond an answer, against a bare walk",
          Least(1, OpenAlbum, [] { return SecondsOf([] { WalkBare(tree); }); }), 0.6);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 5) {
        return 2;
    }
    const std::string what = arguments[1];
    files = std::atoll(arguments[3]);
    rounds = std::atoi(arguments[4]);
    tree = MakeTree(std::filesystem::absolute(arguments[2]), files);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    StartToolkit(arguments, {});
    _EarlyStartup();
    GlobalData::SetupFileTypeStrings();
    const std::pair<std::string_view, void (*)()> kinds[] = {
        {"open", Open},
        {"processor", OpenByProcessor},
        {"bfs", OpenAgainstBfs},
        {"cold", OpenCold},
        {"memory", [] { MemoryOfRows(MakeTree(FolderOf(tree), kFewFiles)); }},
        {"unserved", Unserved},
        {"growth", Growth},
        {"far", OpenFarAway}};
    for (const auto& [name, measure] : kinds) {
        if (name == what) {
            measure();
            return 0;
        }
    }
    return 2;
}
