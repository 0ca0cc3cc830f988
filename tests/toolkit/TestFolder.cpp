#include "TestFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace folimark::test {
namespace {

void Check(bool done, const std::string& what) {
    if (!done) {
        throw std::runtime_error("The test's folder: " + what);
    }
}

std::optional<std::string> Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void SetVariable(const char* name, const std::optional<std::string>& value) {
    if (value) {
        setenv(name, value->c_str(), 1);
    } else {
        unsetenv(name);
    }
}

} // namespace

TestFolder::TestFolder(std::initializer_list<std::string> files)
    : oldHome_(Variable("HOME")), oldPreferences_(Variable("XDG_CONFIG_HOME")) {
    root_ = std::filesystem::temp_directory_path() / "folimark-XXXXXX";
    Check(mkdtemp(root_.data()) != nullptr, root_);
    Check(chmod(root_.c_str(), 0755) == 0, root_); // tests of permissions look at it as another user
    std::filesystem::create_directory(Path());
    std::filesystem::create_directory(Home());
    SetVariable("HOME", Home());
    SetVariable("XDG_CONFIG_HOME", Home() + "/.config");
    for (const std::string& file : files) {
        if (file.ends_with('/')) {
            MakeFolder(file);
        } else {
            Write(file);
        }
    }
}

TestFolder::~TestFolder() {
    SetVariable("HOME", oldHome_);
    SetVariable("XDG_CONFIG_HOME", oldPreferences_);
    // The standard library's own way opens a file for each level of a tree.
    if (std::system(("rm -rf '" + root_ + "'").c_str()) != 0) {
        std::abort(); // what a test leaves behind would disturb others
    }
}

std::string TestFolder::Path(const std::string& inside) const {
    return root_ + "/Album" + (inside.empty() ? "" : "/" + inside);
}

Ref<FolderItem> TestFolder::Item(const std::string& inside) const {
    return FolderItem::FromNativePath(Path(inside));
}

void TestFolder::Write(const std::string& inside, std::string_view content) const {
    const std::filesystem::path path = Path(inside);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    Check(file.good(), path);
}

std::string TestFolder::Read(const std::string& inside) const {
    std::ifstream file(Path(inside), std::ios::binary);
    Check(file.good(), inside);
    return {std::istreambuf_iterator<char>(file), {}};
}

void TestFolder::Link(const std::string& inside, const std::string& target) const {
    Check(symlink(target.c_str(), Path(inside).c_str()) == 0, inside);
}

void TestFolder::MakeFolder(const std::string& inside) const {
    std::filesystem::create_directories(Path(inside));
}

std::vector<std::string> TestFolder::Names(const std::string& inside) const {
    std::vector<std::string> names;
    std::error_code none; // where no folder is there are no names
    for (const auto& entry : std::filesystem::directory_iterator(Path(inside), none)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void TestFolder::MakeChain(int depth, const std::string& name, const std::string& file,
                           int everyLevels) const {
    int folder = open(Path().c_str(), O_PATH | O_DIRECTORY);
    for (int level = depth; level > 0; --level) {
        Check(mkdirat(folder, name.c_str(), 0755) == 0, name);
        const int next = openat(folder, name.c_str(), O_PATH | O_DIRECTORY);
        close(folder);
        folder = next;
        if ((level - 1) % everyLevels == 0) {
            close(openat(folder, file.c_str(), O_WRONLY | O_CREAT, 0644));
        }
    }
    close(folder);
}

} // namespace folimark::test
