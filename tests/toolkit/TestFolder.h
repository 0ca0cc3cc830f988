#pragma once

#include "FolderItem.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace folimark::test {

/// A folder tree that lives as long as this object: `TestFolder folder{"a.jpg", "sub/b.png", "empty/"}`.
/// Names are bytes. For the time being the user has an empty home, with a preferences folder that doesn't
/// exist yet.
class TestFolder {
  public:
    TestFolder(std::initializer_list<std::string> files = {});
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();

    /// The native path of the tree's folder, whose name is "Album", or of what is in it.
    std::string Path(const std::string& inside = "") const;
    Ref<FolderItem> Item(const std::string& inside = "") const;
    std::string Home() const { return root_ + "/home"; }

    /// Makes or replaces a file, and the folders above it.
    void Write(const std::string& inside, std::string_view content = "content") const;
    std::string Read(const std::string& inside) const;
    void Link(const std::string& inside, const std::string& target) const;
    void MakeFolder(const std::string& inside) const;
    /// The names in a folder, sorted.
    std::vector<std::string> Names(const std::string& inside = "") const;
    /// Puts as many folders of one name into one another, however long their path becomes, and an empty file
    /// into each `everyLevels`th, counted from the bottom.
    void MakeChain(int depth, const std::string& name, const std::string& file, int everyLevels) const;

  private:
    std::string root_;
    std::optional<std::string> oldHome_;
    std::optional<std::string> oldPreferences_;
};

} // namespace folimark::test
