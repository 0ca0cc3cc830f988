#include "AlbumListFile.h"

namespace folimark {

Ref<FolderItem> AlbumListFile() {
    return SpecialFolder::Preferences()->Child("Folimark.Preferences");
}

} // namespace folimark
