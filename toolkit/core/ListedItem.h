#pragma once

#include "FolderItem.h"
#include "FolderListing.h"

namespace folimark {

/// An entry of a folder, as a listing showed it.
class ListedItem final : public FolderItem {
  public:
    /// `entry` counts from 0.
    ListedItem(std::shared_ptr<const FolderListing> listing, std::size_t entry)
        : listing_(std::move(listing)), entry_(entry) {}
    /// With what the system has just said of the entry.
    ListedItem(std::shared_ptr<const FolderListing> listing, std::size_t entry, const FileStatus& status)
        : FolderItem(status), listing_(std::move(listing)), entry_(entry) {}

    bool Exists() const override;
    bool Visible() const override { return !listing_->Hidden(entry_); }
    bool Directory() const override { return listing_->Kind(entry_) == EntryKind::Folder; }
    std::string Type() const override;
    std::string AbsolutePath() const override { return ColonPath(); }

    /// What showed it.
    const FolderListing& Listing() const { return *listing_; }
    /// Bytes.
    std::string_view Name() const { return listing_->Name(entry_); }

    /// Makes known the item at which a walk stands (null: none any more), for WalkedAt. It has to be made
    /// unknown before it goes, and as soon as events have run: anything may have happened to the file in
    /// them.
    static void Walked(const ListedItem* item);
    /// A named item for the path of a walk's item, if that is what the path leads to, with what the walk has
    /// been told of it: so a file isn't asked about twice when it is named as soon as it has been listed.
    static Ref<FolderItem> WalkedAt(std::string_view colonPath);

  protected:
    std::string Path() const override;
    FolderPath WayInside() const override { return listing_->Path().Listed(listing_->Name(entry_)); }

  private:
    const std::string& ColonPath() const;

    std::shared_ptr<const FolderListing> listing_;
    std::size_t entry_;
    mutable std::string colonPath_; // once it has been asked for
};

} // namespace folimark
