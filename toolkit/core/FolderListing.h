#pragma once

#include "FileTypeRegistry.h"
#include "FolderPath.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace folimark {

/// What a folder's entry says of itself. A link isn't followed here.
enum class EntryKind : std::uint8_t { File, Folder, Link, Other };

/// The entries of a folder as they were when it was read, "." and ".." left out. Indexes count from 0.
/// Nothing in it changes any more, so threads may share it.
class FolderListing {
  public:
    /// Reads the folder from the start. `folder` has been opened for that; if it is none, errno says why.
    FolderListing(FolderPath path, const Descriptor& folder, std::shared_ptr<const ExtensionTable> types);

    const FolderPath& Path() const { return path_; }
    std::size_t Count() const { return entries_.size(); }
    /// Ends in a NUL.
    std::string_view Name(std::size_t index) const { return names_.data() + entries_[index].name; }
    EntryKind Kind(std::size_t index) const { return entries_[index].kind; }
    bool Hidden(std::size_t index) const { return entries_[index].hidden; }
    /// The type that a file of this name has; "" if none is known.
    std::string_view Type(std::size_t index) const {
        const std::string* const type = entries_[index].type;
        return type == nullptr ? std::string_view() : *type;
    }
    /// True if there is a folder, but not all of it could be read.
    bool Unreadable() const { return unreadable_; }

  private:
    struct Entry {
        std::uint64_t inode;
        std::size_t name;        // where it starts in names_, which ends each with a NUL
        const std::string* type; // null if none is known
        EntryKind kind;
        bool hidden;
    };

    void Read(int folder);
    EntryKind KindOf(unsigned char type, const char* name, int folder);
    void HideNamed(const std::unordered_set<std::string>& hiddenNames);

    FolderPath path_;
    std::shared_ptr<const ExtensionTable> types_;
    std::vector<Entry> entries_;
    std::string names_;
    bool unreadable_ = false;
};

/// The names that a folder's file ".hidden" lists, one a line. Empty without such a file, or if it isn't a
/// small regular file.
std::unordered_set<std::string> HiddenNames(int folder);

} // namespace folimark
