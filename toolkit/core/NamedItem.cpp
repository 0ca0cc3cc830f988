#include "NamedItem.h"

#include "ColonPath.h"
#include "FileTypeRegistry.h"
#include "FolderListing.h"
#include "ListedItem.h"
#include "NativePath.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace folimark {

Ref<FolderItem> GetFolderItem(std::string_view path, int pathType) {
    if (pathType != 0) {
        return nullptr;
    }
    if (Ref<FolderItem> walked = ListedItem::WalkedAt(path)) {
        return walked;
    }
    std::optional<std::string> native = NativePathOf(path);
    return native ? Ref<FolderItem>(New<NamedItem>(*std::move(native), path.ends_with(':'))) : nullptr;
}

Ref<FolderItem> FolderItem::FromNativePath(std::string_view bytes) {
    if (!bytes.starts_with('/') || bytes.find('\0') != std::string_view::npos) {
        return nullptr;
    }
    std::string path;
    bool goesUp = false;
    for (std::size_t start = 1; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find('/', start), bytes.size());
        const std::string_view name = bytes.substr(start, end - start);
        goesUp = goesUp || name == "..";
        if (!name.empty() && name != ".") {
            path.append("/").append(name);
        }
        start = end + 1;
    }
    if (goesUp) {
        // Where ".." leads depends on the links before it, so only the system can say it.
        const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
        return real ? FromNativePath(real.get()) : nullptr;
    }
    return New<NamedItem>(std::move(path));
}

Ref<FolderItem> NamedItem::In(const std::string& folder, std::string_view field) {
    const std::optional<std::string> name = NameOfField(field);
    return name ? Ref<FolderItem>(New<NamedItem>(folder + "/" + *name)) : nullptr;
}

FolderPath NamedItem::WayInside() const {
    return FolderPath(path_);
}

bool NamedItem::Exists() const {
    return (std::exchange(isFresh_, false) ? LastStatus() : AskAgain()).exists;
}

bool NamedItem::Visible() const {
    const std::string_view name = NameOfPath(path_);
    if (name.starts_with('.')) {
        return false;
    }
    const Descriptor folder = name.empty() ? Descriptor() : OpenFolderPath(FolderOfPath(path_), O_PATH);
    return !folder || HiddenNames(folder.Get()).count(std::string(name)) == 0;
}

bool NamedItem::Directory() const {
    return S_ISDIR(LastStatus().mode);
}

std::string NamedItem::Type() const {
    return MayBeFile() ? FileTypeOf(NameOfPath(path_)) : "";
}

std::string NamedItem::AbsolutePath() const {
    if (colonPath_.empty()) {
        colonPath_ = ColonPathOfFolder(path_);
    }
    const bool isFolder = LastStatus().exists ? Directory() : askedAsFolder_ || path_.empty();
    return colonPath_.substr(0, colonPath_.size() - (isFolder ? 0 : 1));
}

} // namespace folimark
