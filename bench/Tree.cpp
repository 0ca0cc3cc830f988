#include "Tree.h"

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::int64_t kFilesAFolder = 100;
constexpr std::int64_t kFoldersAYear = 100;

std::string NameOf(std::int64_t file, std::int64_t files) {
    const std::string number = std::to_string(file * 7919 % files);
    switch (file % 10) {
    case 0:
        return "Notes " + number + ".xmp";
    case 1:
        return "List " + number + ".db";
    case 2:
        return "Été à Orléans " + number + ".JPG";
    case 3:
        return "Größe " + number + ".mov";
    default:
        return "Picture " + number + ".jpg";
    }
}

std::int64_t WalkOpen(int folder) {
    std::int64_t files = 0;
    DIR* entries = fdopendir(folder);
    while (const dirent* entry = entries == nullptr ? nullptr : readdir(entries)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") {
            continue;
        }
        if (entry->d_type == DT_DIR) {
            files += WalkOpen(openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            continue;
        }
        struct statx status {};
        files += statx(folder, entry->d_name, 0, STATX_BASIC_STATS | STATX_BTIME, &status) == 0 ? 1 : 0;
    }
    closedir(entries);
    return files;
}

} // namespace

std::string MakeTree(const std::string& folder, std::int64_t files) {
    const std::string root = folder + "/tree-" + std::to_string(files);
    const std::string whole = root + ".whole"; // stands beside a tree that was finished
    if (std::filesystem::exists(whole)) {
        return root;
    }
    std::string place;
    for (std::int64_t i = 0; i < files; ++i) {
        if (i % kFilesAFolder == 0) {
            const std::int64_t number = i / kFilesAFolder;
            place = root + "/Year " + std::to_string(1950 + number / kFoldersAYear) + "/Holiday "
                    + std::to_string(number * 37 % 10007);
            std::filesystem::create_directories(place);
        }
        close(open((place + "/" + NameOf(i, files)).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    }
    close(open(whole.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    return root;
}

std::int64_t MediaIn(std::int64_t files) {
    return files / 10 * 8;
}

std::int64_t WalkBare(const std::string& folder) {
    return WalkOpen(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}
