#pragma once

#include "Descriptor.h"

#include <functional>
#include <string>
#include <string_view>

namespace folimark {

// Native paths are bytes, absolute, and without a final "/"; the root's is "". They may be longer than what
// the system takes at once.

/// The path of the folder that holds a place other than the root.
std::string FolderOfPath(const std::string& path);
/// The last name of a path; "" for the root.
std::string_view NameOfPath(const std::string& path);

/// Opens a folder. `flags` are those of the system beside O_DIRECTORY and O_CLOEXEC; O_PATH is enough for
/// finding things in the folder. Links on the way are followed, but for the path's last `listed` bytes, which
/// a listing gave: a link that has taken a name there since is no folder. None, with errno set, on failure.
Descriptor OpenFolderPath(std::string_view path, int flags, std::size_t listed = 0);

/// Opens what a listing showed as a folder, by its name in the folder that holds it.
Descriptor OpenListedFolder(int folder, const char* name, int flags);

/// Calls `call(folder, name)` such that the two lead to the path, and returns what it returned; -1, with
/// errno set, if the folders on the way can't be opened.
int AtNativePath(const std::string& path, const std::function<int(int folder, const char* name)>& call);

} // namespace folimark
