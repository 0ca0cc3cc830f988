#pragma once

#include "Descriptor.h"

#include <string>
#include <string_view>

namespace folimark {

/// The way to a folder. It is only names: the folder need not exist.
class FolderPath {
  public:
    /// A folder that somebody has named by its native path (NativePath.h). Links on the way are followed.
    explicit FolderPath(std::string native);

    /// A folder that a listing of this one showed. It is found as a folder only: a link that has taken its
    /// name since isn't followed.
    FolderPath Listed(std::string_view name) const;

    const std::string& Native() const { return native_; }
    /// With its final ":".
    const std::string& Colon() const { return colon_; }

    /// Opens the folder with the system's `flags` beside O_DIRECTORY and O_CLOEXEC. None, with errno set, on
    /// failure.
    Descriptor Open(int flags) const;

  private:
    FolderPath(std::string native, std::string colon, std::size_t named);

    std::string native_;
    std::string colon_;
    std::size_t named_; // as many bytes of native_ were named, listings gave the rest
};

} // namespace folimark
