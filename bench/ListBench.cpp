// What a list of a million rows costs: folimark-bench-list WHAT FOLDER ROUNDS

#include "ListRows.h"
#include "Measure.h"
#include "Phrase.h"
#include "Text.h"

#include <cstdlib>
#include <fstream>
#include <string_view>
#include <vector>

namespace {

using namespace folimark;

constexpr std::int64_t kRows = 1'000'000;

std::string folder;
int rounds = 0;

/// Names of files in folders of a hundred, all shuffled, or folder by folder as a walk finds them.
std::vector<std::string> Names(bool shuffled = true) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < kRows; ++i) {
        const std::int64_t file = i * 7919 % kRows;
        const std::int64_t folder = (shuffled ? file : i) / 100;
        names.push_back("Year " + std::to_string(folder / 100) + " → Ferien in der Süd-Bretagne "
                        + std::to_string(folder) + " → Bild " + std::to_string(file) + ".jpg");
    }
    return names;
}

ListRows Rows(bool shuffled = true) {
    ListRows rows;
    for (const std::string& name : Names(shuffled)) {
        rows.AddRow({name, "2026-11-10", "", "MB  003.7", "Image"});
    }
    return rows;
}

void Sort() {
    for (const bool shuffled : {true, false}) {
        const std::string what = shuffled ? "shuffled names" : "names folder by folder";
        Print("sort 1,000,000 " + what + ", against std::sort by bytes",
              Least(
                  rounds,
                  [&] {
                      ListRows rows = Rows(shuffled);
                      return SecondsOf([&] { rows.Sort(0, true); });
                  },
                  [&] {
                      std::vector<std::string> names = Names(shuffled);
                      return SecondsOf([&] { std::sort(names.begin(), names.end()); });
                  }),
              1.2);
    }
    ListRows rows = Rows();
    const double sort = SecondsOf([&] { rows.Sort(0, true); });
    bool ascending = true;
    Print("reverse 1,000,000 sorted names, against the sort",
          Least(
              rounds,
              [&] {
                  ascending = !ascending;
                  return SecondsOf([&] { rows.Sort(0, ascending); });
              },
              [&] { return sort; }),
          0.1);
}

/// Highlights as a window does, but for its yields; against a whole command on a file of the same names.
void Search(const std::string& command, const std::string& phrase) {
    const std::string file = folder + "/names.txt";
    std::ofstream names(file);
    for (const std::string& name : Names()) {
        names << name << '\n';
    }
    names.close();
    const ListRows rows = Rows();
    const auto ours = [&] {
        return SecondsOf([&] {
            Phrase wanted(phrase);
            std::int64_t found = 0;
            for (std::int64_t i = 0; i < kRows; ++i) {
                found += wanted.IsIn(rows.Cell(i, 0)) ? 1 : 0;
            }
            if (found == 0) {
                std::exit(1);
            }
        });
    };
    // Not to /dev/null, where grep would stop at the first hit.
    const std::string whole = command + " -ic '" + phrase + "' '" + file + "' > '" + file + ".count'";
    Print("search 1,000,000 names for “" + phrase + "”, against " + command,
          Least(rounds, ours,
                [&] {
                    return SecondsOf([&] {
                        if (std::system(whole.c_str()) != 0) {
                            std::exit(1);
                        }
                    });
                }),
          1.0);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        return 2;
    }
    const std::string_view what = arguments[1];
    folder = arguments[2];
    rounds = std::atoi(arguments[3]);
    if (what == "sort") {
        Sort();
    } else {
        for (const char* phrase : {"bild 99", "SÜD", "e"}) {
            Search(std::string(what), phrase);
        }
    }
}
