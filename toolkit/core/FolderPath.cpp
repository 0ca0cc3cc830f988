#include "FolderPath.h"

#include "ColonPath.h"
#include "NativePath.h"

namespace folimark {

FolderPath::FolderPath(std::string native, std::string colon, std::size_t named)
    : native_(std::move(native)), colon_(std::move(colon)), named_(named) {}

FolderPath::FolderPath(std::string native)
    : native_(std::move(native)), colon_(ColonPathOfFolder(native_)), named_(native_.size()) {}

FolderPath FolderPath::Listed(std::string_view name) const {
    return {std::string(native_).append("/").append(name),
            std::string(colon_).append(FieldOfName(name)) += ':', named_};
}

Descriptor FolderPath::Open(int flags) const {
    return OpenFolderPath(native_, flags, native_.size() - named_);
}

} // namespace folimark
