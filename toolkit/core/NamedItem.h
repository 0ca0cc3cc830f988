#pragma once

#include "FolderItem.h"

namespace folimark {

/// An item that somebody has named. It follows links, and asks the system about all.
class NamedItem final : public FolderItem {
  public:
    /// `path` is a native path (NativePath.h), which need not lead to anything. If it doesn't, the item
    /// counts as a folder or not as it was asked for.
    explicit NamedItem(std::string path, bool askedAsFolder = false)
        : path_(std::move(path)), askedAsFolder_(askedAsFolder) {}
    /// A file of which the system has just said `status`, so that the first Exists needn't ask again.
    NamedItem(std::string path, const FileStatus& status)
        : FolderItem(status), path_(std::move(path)), isFresh_(true) {}

    /// The item of that name, as it stands in a colon path, in a folder; nil if no file can have that name.
    static Ref<FolderItem> In(const std::string& folder, std::string_view field);

    bool Exists() const override;
    bool Visible() const override;
    bool Directory() const override;
    std::string Type() const override;
    std::string AbsolutePath() const override;

  protected:
    std::string Path() const override { return path_; }
    FolderPath WayInside() const override;

  private:
    std::string path_;
    mutable std::string colonPath_; // as a folder's, once it has been asked for
    bool askedAsFolder_ = false;
    mutable bool isFresh_ = false;
};

} // namespace folimark
