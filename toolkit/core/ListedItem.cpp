#include "ListedItem.h"

#include "ColonPath.h"
#include "NamedItem.h"

namespace folimark {
namespace {

const ListedItem* walkedItem = nullptr;

} // namespace

void ListedItem::Walked(const ListedItem* item) {
    walkedItem = item;
}

Ref<FolderItem> ListedItem::WalkedAt(std::string_view colonPath) {
    if (walkedItem == nullptr || !walkedItem->WasAsked() || walkedItem->ColonPath() != colonPath) {
        return nullptr;
    }
    return New<NamedItem>(walkedItem->Path(), walkedItem->LastStatus());
}

bool ListedItem::Exists() const {
    // That the entry is there the listing has told, but not where a link leads.
    return WasAsked() || listing_->Kind(entry_) == EntryKind::Link ? LastStatus().exists : true;
}

std::string ListedItem::Type() const {
    const EntryKind kind = listing_->Kind(entry_);
    const bool isFile = kind == EntryKind::Link ? MayBeFile() : kind == EntryKind::File;
    return std::string(isFile ? listing_->Type(entry_) : "");
}

const std::string& ListedItem::ColonPath() const {
    if (colonPath_.empty()) {
        const std::string& folder = listing_->Path().Colon();
        const std::string_view name = listing_->Name(entry_);
        colonPath_.reserve(folder.size() + name.size() + 1);
        colonPath_.append(folder).append(FieldOfName(name));
        if (Directory()) {
            colonPath_ += ':';
        }
    }
    return colonPath_;
}

std::string ListedItem::Path() const {
    const std::string& folder = listing_->Path().Native();
    const std::string_view name = listing_->Name(entry_);
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    return path.append(folder).append("/").append(name);
}

} // namespace folimark
