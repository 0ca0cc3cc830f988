#include "Clipboard.h"
#include "GlobalData.h"
#include "aListWindow.h"
#include "aListWindow_Columns.h"

namespace folimark {

void aListWindow::OpenSelectedFile() {
    // A path that leads nowhere has nothing to open, and a file that has gone is for the desktop to tell.
    if (const Ref<FolderItem> file = SelectedFile()) {
        file->Launch(true);
    }
}

Ref<FolderItem> aListWindow::SelectedFile() const {
    const Ref<Listbox> list = TheListBox();
    return list->ListIndex() < 0 ? Ref<FolderItem>() : GetFolderItem(list->RowTag(list->ListIndex()), 0);
}

std::string aListWindow::PathOfSelectedRow() const {
    const Ref<FolderItem> file = SelectedFile();
    return file ? file->NativePath() : "";
}

std::vector<ContextCommand> aListWindow::CommandsOfRow() {
    const bool hasFile = static_cast<bool>(SelectedFile());
    return {{"Open Media File", hasFile, [this] { OpenSelectedFile(); }},
            {"Reveal in the File Browser", hasFile,
             [this] {
                 if (const Ref<FolderItem> file = SelectedFile()) {
                     file->Parent()->Launch(true);
                 }
             }},
            {"Copy Path", hasFile, [this] { CopyToClipboard(PathOfSelectedRow()); }},
            {"Highlight…", HighlightPushButton()->Enabled(), [this] { HighlightPushButton()->Push(); }}};
}

void aListWindow::EditPushButton_Action(PushButton& /*button*/) {
    OpenSelectedFile();
}

void aListWindow::TheCanvas_DoubleClick(Canvas& /*canvas*/, int /*x*/, int /*y*/) {
    OpenSelectedFile();
}

void aListWindow::FileReturn_Action(PushButton& /*button*/) {
    GlobalData::CatalogsWindow->Show();
}

void aListWindow::MaxButton_Action(PushButton& button) {
    TheListBox()->ColumnWidths(
        WidthsOfColumns(Maximized ? &AlbumColumn::widthShown : &AlbumColumn::widthHidden));
    button.Caption(Maximized ? "Hide Columns  ⌘H" : "Show Columns  ⌘H");
    Maximized = !Maximized;
    button.Refresh(true);
}

void aListWindow::zRevealCatalogInFinder() {
    // After a cancelled Create Album there is no folder to show.
    if (TheListBox()->LastIndex() >= 0 && GlobalData::CatalogFolder) {
        GlobalData::CatalogFolder->Launch(true);
    }
}

} // namespace folimark
