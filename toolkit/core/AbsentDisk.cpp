#include "AbsentDisk.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <mntent.h>
#include <sys/stat.h>

namespace folimark {
namespace {

namespace fs = std::filesystem;

/// Is a disk mounted here?
bool IsMounted(const fs::path& folder) {
    struct stat here {};
    struct stat above {};
    return stat(folder.c_str(), &here) == 0 && stat(folder.parent_path().c_str(), &above) == 0
           && here.st_dev != above.st_dev;
}

/// Is this one of the folders in which desktops, and people, mount disks? Those of GNOME's network folders
/// are mounted themselves.
bool HoldsMountPoints(const fs::path& folder) {
    const fs::path above = folder.parent_path();
    const auto isForUsers = [](const fs::path& path) { return path == "/media" || path == "/run/media"; };
    return folder.filename() == "gvfs"
           || ((folder == "/mnt" || isForUsers(folder) || isForUsers(above)) && !IsMounted(folder));
}

/// Does the system's table of file systems have a disk for this folder?
bool IsInTable(const fs::path& folder) {
    const std::unique_ptr<FILE, decltype(&endmntent)> table(setmntent("/etc/fstab", "re"), &endmntent);
    if (!table) {
        return false;
    }
    mntent entry{};
    char texts[4096];
    while (getmntent_r(table.get(), &entry, texts, sizeof texts) != nullptr) {
        if (folder == entry.mnt_dir) {
            return true;
        }
    }
    return false;
}

bool IsEmpty(const fs::path& folder) {
    std::error_code error;
    return fs::is_directory(folder, error) && fs::is_empty(folder, error) && !error;
}

/// A folder in which nothing was ever made or removed; false if the file system doesn't keep its time of
/// birth.
bool IsUntouched(const fs::path& folder) {
    struct statx answer {};
    return statx(AT_FDCWD, folder.c_str(), 0, STATX_MTIME | STATX_BTIME, &answer) == 0
           && (answer.stx_mask & STATX_BTIME) != 0 && answer.stx_btime.tv_sec == answer.stx_mtime.tv_sec
           && answer.stx_btime.tv_nsec == answer.stx_mtime.tv_nsec;
}

/// A place for a disk, without one.
bool IsVacant(const fs::path& folder) {
    return IsEmpty(folder) && (HoldsMountPoints(folder.parent_path()) || IsInTable(folder));
}

} // namespace

bool MayLieOnAnAbsentDisk(const std::string& nativePath) {
    const fs::path folder(nativePath);
    std::error_code error;
    if (fs::exists(folder, error)) {
        return IsVacant(folder);
    }
    if (fs::is_symlink(folder, error)) {
        return true;
    }
    const fs::path parent = folder.parent_path();
    if (!fs::exists(parent, error)) {
        return true;
    }
    return HoldsMountPoints(parent) || IsVacant(parent) || (IsEmpty(parent) && IsUntouched(parent));
}

} // namespace folimark
