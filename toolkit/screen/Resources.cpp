#include "Resources.h"

#include <filesystem>

namespace folimark {

Ref<FolderItem> Executable() {
    return FolderItem::FromNativePath(std::filesystem::read_symlink("/proc/self/exe").native());
}

Ref<FolderItem> ResourcesFolder() {
    return Executable()->Parent()->Parent()->Child("Resources");
}

} // namespace folimark
