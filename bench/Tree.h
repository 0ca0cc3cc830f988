#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// A tree of small media files for measurements, below the system's temporary folder, which goes with the
/// object.
class Tree {
  public:
    static constexpr std::int64_t kFilesAFolder = 200;

    explicit Tree(std::int64_t files) {
        std::string pattern = std::filesystem::temp_directory_path() / "folimark-bench-XXXXXX";
        root_ = mkdtemp(pattern.data());
        std::filesystem::path folder;
        for (std::int64_t i = 0; i < files; ++i) {
            if (i % kFilesAFolder == 0) {
                folder = root_ / ("Year " + std::to_string(1980 + i / 10000))
                         / ("Holiday number " + std::to_string(i / kFilesAFolder));
                std::filesystem::create_directories(folder);
            }
            std::ofstream(folder / ("Picture of the day " + std::to_string(i * 7919 % files) + ".jpg")) << i;
        }
    }
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

    const std::filesystem::path& Root() const { return root_; }

  private:
    std::filesystem::path root_;
};
