#pragma once

#include "FolderItem.h"

namespace folimark {

/// The executable, with links followed.
Ref<FolderItem> Executable();
/// The folder "Resources" beside the folder of the executable.
Ref<FolderItem> ResourcesFolder();

} // namespace folimark
