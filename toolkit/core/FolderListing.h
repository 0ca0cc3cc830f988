#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace folimark {

class Descriptor;
class Place;

/// What an item was known to be when it was made. A link isn't followed here.
enum class EntryKind : std::uint8_t { Named, File, Folder, Link, Other };

/// The entries of a folder as they were when it was read, "." and ".." left out. Indexes count from 0.
class FolderListing {
  public:
    /// Reads the folder; without entries if there is no folder or it can't be read.
    explicit FolderListing(const std::shared_ptr<const Place>& place);

    std::size_t Count() const { return entries_.size(); }
    std::string_view Name(std::size_t index) const { return names_.data() + entries_[index].name; }
    EntryKind Kind(std::size_t index) const { return entries_[index].kind; }
    bool Hidden(std::size_t index) const { return entries_[index].hidden; }
    /// True if there is a folder, but not all of it could be read.
    bool Unreadable() const { return unreadable_; }

  private:
    struct Entry {
        std::uint64_t inode;
        std::size_t name; // where it starts in names_, which ends each with a NUL
        EntryKind kind;
        bool hidden;
    };

    void Read(Descriptor folder);
    void HideNamed(const std::unordered_set<std::string>& hiddenNames);

    std::vector<Entry> entries_;
    std::string names_;
    bool unreadable_ = false;
};

/// The names that a folder's file ".hidden" lists, one a line. Empty without such a file, or if it isn't a
/// small regular file.
std::unordered_set<std::string> HiddenNames(int folder);

} // namespace folimark
