#pragma once

#include <string>
#include <vector>

namespace folimark {

/// What the window system shows of the application: its name for people, its version, the name of its
/// desktop entry (without the extension) and its icon.
struct ApplicationIdentity {
    std::string name;
    std::string version;
    std::string desktopEntry;
    std::vector<std::string> iconFiles; ///< in several sizes; paths below the folder of resources
};

/// Brings the window system up. Has to come before all else of this layer, once in a process. `arguments` are
/// those of main, of which only the program's name is used.
void StartToolkit(char** arguments, const ApplicationIdentity& identity);

} // namespace folimark
