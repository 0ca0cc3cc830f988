#pragma once

#include "FolderItem.h"

namespace folimark {

/// The folder "Resources" beside the folder of the executable.
Ref<FolderItem> ResourcesFolder();

} // namespace folimark
