#include "Exceptions.h"
#include "FolderItem.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace folimark::SpecialFolder {
namespace {

/// The value of a variable that holds an absolute path; "" if it isn't set or holds something else.
std::string PathVariable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string HomeFolder() {
    std::string home = PathVariable("HOME");
    if (home.empty()) {
        const passwd* user = getpwuid(getuid());
        home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
    }
    return home;
}

} // namespace

Ref<FolderItem> Preferences() {
    const std::string folder = PathVariable("XDG_CONFIG_HOME");
    const std::string path = folder.empty() ? HomeFolder() + "/.config" : folder;
    Ref<FolderItem> item = FolderItem::FromNativePath(path);
    if (!item) {
        throw IOException("Can't find the folder of preferences", path, ENOENT);
    }
    return item;
}

} // namespace folimark::SpecialFolder
