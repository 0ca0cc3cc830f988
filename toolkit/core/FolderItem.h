#pragma once

#include "Date.h"
#include "FileStatus.h"
#include "Object.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace folimark {

class Descriptor;
class FolderListing;
class FolderPath;

/// A reference to a place in the file system, which may or may not exist. It keeps no file open.
///
/// An item is either named (GetFolderItem, Child, Parent, FromNativePath) or listed (Item). A named item
/// follows links. Its Exists asks the system each time; the other answers belong to the last time that the
/// system was asked. A listed item answers from what the folder held when it was read, and asks the system at
/// most once for what the folder's entry doesn't say. A listed link to a file is that file, a listed link to
/// a folder is no folder, so that no walk goes round in circles.
class FolderItem : public Object {
  public:
    /// The item at an absolute POSIX path; nil if the path isn't absolute, holds a NUL byte, or goes up with
    /// ".." from a folder that doesn't exist.
    static Ref<FolderItem> FromNativePath(std::string_view bytes);
    ~FolderItem() override;

    /// The item of that name (as it stands in a colon path) directly in this folder, whether or not it
    /// exists; nil if no file can have that name.
    Ref<FolderItem> Child(std::string_view name) const;
    /// The folder that holds this item; nil for the root of the volume.
    Ref<FolderItem> Parent() const;

    /// The number of entries in this folder, hidden ones included. The entries are read at the first
    /// question about them and stay as they were then. 0 for what is no folder or can't be read.
    std::int64_t Count() const;
    /// Entries 1 to Count; nil outside.
    Ref<FolderItem> Item(std::int64_t index) const;
    /// True for a folder of which entries, or all of them, could not be read (no permission, a broken disk);
    /// false for one that is empty or gone.
    bool Unreadable() const;

    virtual bool Exists() const = 0;
    /// True if nothing is there, as far as the system can tell. Of a place that it can't reach (no permission
    /// on the way, a broken disk, a lost connection) neither Exists nor Gone is true.
    bool Gone() const;
    /// Was the system's last answer that it can't tell, or hasn't it answered for five seconds? Asks nothing.
    bool Unknown() const;
    /// False for what the desktop's file browser hides: names with a leading dot, and those that stand in the
    /// file ".hidden" of their folder.
    virtual bool Visible() const = 0;
    virtual bool Directory() const = 0;
    /// The registered type of a regular file, and of what is none as far as the system can tell; "" if there
    /// is none, and for all else.
    virtual std::string Type() const = 0;
    /// The size of a regular file in bytes; 0 for all else.
    std::uint64_t Length() const;
    /// Nil if the file system doesn't keep it, or nothing is there.
    Ref<Date> CreationDate() const;
    Ref<Date> ModificationDate() const;

    /// The path in the colon form (ColonPath.h). A folder's ends in ":"; what doesn't exist keeps the end
    /// that it was asked for with.
    virtual std::string AbsolutePath() const = 0;
    /// The path as the system takes it: absolute, without a final "/" but for the root, and not always UTF-8.
    std::string NativePath() const;

    /// A descriptor of a regular file (O_CLOEXEC, O_NONBLOCK); none, with errno set, if there is no such file
    /// or it can't be opened. Pipes, sockets and devices aren't touched.
    Descriptor OpenForReading() const;

    /// Hands the item to the desktop: a file opens in its default application, a folder in the file browser,
    /// and that comes to the front. Doesn't wait, and reports nothing back.
    void Launch(bool activate) const;

  protected:
    FolderItem();
    explicit FolderItem(const FileStatus& status);

    /// The native path; "" for the root.
    virtual std::string Path() const = 0;
    /// The way to this item as the folder of others.
    virtual FolderPath WayInside() const = 0;

    const FileStatus& AskAgain() const;
    /// What the system said last; asks if it hasn't been asked.
    const FileStatus& LastStatus() const;
    bool WasAsked() const { return status_.has_value(); }
    /// Is it a regular file, or something of which the system can't tell?
    bool MayBeFile() const;

  private:
    const FolderListing& Entries() const;

    mutable std::optional<FileStatus> status_;
    mutable std::shared_ptr<const FolderListing> entries_;
};

/// The item at a path in the colon form; path type 0 is that form, and there is no other. Nil if the path
/// can't be one of this system: another volume, a field that is no name. What the path leads to need not
/// exist.
Ref<FolderItem> GetFolderItem(std::string_view path, int pathType = 0);

namespace SpecialFolder {

/// The user's folder of preferences: $XDG_CONFIG_HOME, or ".config" in the home folder. It need not exist.
/// Raises IOException if that is no path.
Ref<FolderItem> Preferences();

} // namespace SpecialFolder

/// What Launch calls, with the native path; null brings back the default, which starts the desktop's
/// "xdg-open".
void SetLaunchHandler(std::function<void(const std::string& nativePath)> handler);
/// What is told of each opening by the default: the native path, and a descriptor that gives the opener's
/// status (ChildProcess::status), or none if there is no opener.
void SetLaunchWatcher(std::function<void(const std::string& nativePath, Descriptor status)> watcher);

} // namespace folimark
