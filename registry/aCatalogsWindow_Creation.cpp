#include "AlbumListFile.h"
#include "FolderItemDialog.h"
#include "GlobalData.h"
#include "TreeWalk.h"
#include "Yield.h"
#include "aCatalogsWindow.h"

#include <optional>

namespace folimark {

void aCatalogsWindow::zAddCatalog() {
    adding_ = true;
    const Finally done([this] { adding_ = false; });
    const Ref<SelectFolderDialog> dialog = New<SelectFolderDialog>();
    dialog->ActionButtonCaption("Choose");
    dialog->Title("Create an Album");
    dialog->PromptText("Choose a Folder Containing Images");
    CreateCatalogFrom(dialog->ShowModal());
}

bool aCatalogsWindow::AcceptsFolders() const {
    return !adding_ && rowsInUse_ == 0;
}

void aCatalogsWindow::Event_DropFolder(const Ref<FolderItem>& folder) {
    if (!AcceptsFolders()) {
        return;
    }
    adding_ = true;
    const Finally done([this] {
        adding_ = false;
        AddCatalogButton->Pushed(false); // It may have been clicked meanwhile.
    });
    CreateCatalogFrom(folder);
}

void aCatalogsWindow::CreateCatalogFrom(const Ref<FolderItem>& chosen) {
    GlobalData::CatalogFolder = chosen;
    // While the search yields, other albums may be opened, which changes the global.
    const Ref<FolderItem> folder = GlobalData::CatalogFolder;
    if (!folder || !folder->Exists()) {
        return;
    }
    AnyPictures = false;
    const std::string unread = LookForAnyPicturesIn(folder);
    if (!AnyPictures) {
        GlobalData::MessageBox1(GlobalData::MessageKind::Caution, "OK",
                                unread.empty() ? "This folder does not contain any media files."
                                               : "This folder could not be read: “" + unread + "”.",
                                "Please choose another folder.");
        return;
    }
    AddCatalogFolder(folder);
}

void aCatalogsWindow::AddCatalogFolder(const Ref<FolderItem>& folder) {
    const std::string path = folder->AbsolutePath();
    std::optional<std::string> existing;
    {
        const auto rows = UseRows();
        for (std::int64_t r = 0; r <= TheListBox()->LastIndex() && !existing; ++r) {
            if (EqualText(path, TheListBox()->RowTag(r))) {
                existing = TheListBox()->Cell(r, 0);
            }
            RuntimeBackgroundTask();
        }
        if (!existing) {
            AddToCatalogList(path);
            PutCatalogList(AlbumListFile());
        }
    }
    if (existing) {
        GlobalData::MessageBox1(GlobalData::MessageKind::Note, "OK",
                                "The album “" + *existing + "” has already been cteated.", "");
        return;
    }
    GlobalData::MessageBox1(GlobalData::MessageKind::Note, "OK",
                            "The album “" + MakeCatalogLabel(path) + "” has been created.", "");
    EnableCatalogButtons();
}

std::string aCatalogsWindow::LookForAnyPicturesIn(const Ref<FolderItem>& folder) {
    TreeWalk walk(folder);
    while (!AnyPictures && walk.Next()) {
        const Ref<FolderItem> item = walk.Item();
        if (item && item->Exists() && item->Visible()) {
            if (item->Directory()) {
                walk.Enter();
            } else if (GlobalData::CheckMediaFileType(item->Type())) {
                AnyPictures = true;
            }
        }
        RuntimeBackgroundTask();
    }
    return walk.Unreadable();
}

void aCatalogsWindow::AddToCatalogList(const std::string& path) {
    const auto rows = UseRows();
    const Ref<Listbox> list = TheListBox();
    for (std::int64_t r = 0; r <= list->LastIndex(); ++r) {
        if (EqualText(list->RowTag(r), path)) {
            return;
        }
        RuntimeBackgroundTask();
    }
    list->AddRow({MakeCatalogLabel(path)});
    list->RowTag(list->LastIndex(), path);
    CatalogWindows.Append({});
    if (list->LastIndex() > 0) {
        Array<std::string> paths;
        Array<std::string> labels;
        for (std::int64_t r = 0; r <= list->LastIndex(); ++r) {
            paths.Append(list->RowTag(r));
            labels.Append(list->Cell(r, 0));
            RuntimeBackgroundTask();
        }
        SortWith(labels, paths, CatalogWindows);
        for (std::int64_t r = 0; r <= list->LastIndex(); ++r) {
            list->RowTag(r, paths(r));
            list->Cell(r, 0, labels(r));
            RuntimeBackgroundTask();
        }
    }
    list->ListIndex(list->LastIndex());
}

} // namespace folimark
