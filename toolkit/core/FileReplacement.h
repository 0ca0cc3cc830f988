#pragma once

#include <string>
#include <string_view>

namespace folimark {

/// Gives a file (native path) a new content as a whole: a new file is written beside it, synced, and renamed
/// over it, and the folder is synced. A missing file is made, for its owner alone, and so are the missing
/// folders above it. A symbolic link stays, and what it leads to is replaced; permissions stay too. Raises
/// IOException for what isn't a writable regular file, and if any step fails: then the old file is as it was,
/// unless only the last step, the syncing of the folder, failed.
void ReplaceFile(const std::string& path, std::string_view text);

/// Removes the new files that replacements of the file have left beside it, or beside what it links to, when
/// their process was ended. Nobody may be replacing it meanwhile. What can't be removed stays.
void RemoveLeftovers(const std::string& path);

} // namespace folimark
