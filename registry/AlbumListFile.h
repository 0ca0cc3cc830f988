#pragma once

#include "FolderItem.h"

namespace folimark {

/// The file that keeps the albums: plain text, one album folder's colon path a line, in the order of the
/// rows.
Ref<FolderItem> AlbumListFile();

} // namespace folimark
