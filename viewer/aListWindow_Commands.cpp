#include "GlobalData.h"
#include "aListWindow.h"
#include "aListWindow_Columns.h"

namespace folimark {

void aListWindow::OpenSelectedFile() {
    if (TheListBox()->ListIndex() < 0) {
        return; // The scan hasn't come to an end yet.
    }
    const std::string path = TheListBox()->RowTag(TheListBox()->ListIndex());
    // A path that leads nowhere has nothing to open, and a file that has gone is for the desktop to tell.
    if (const Ref<FolderItem> file = GetFolderItem(path, 0)) {
        file->Launch(true);
    }
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
    TheListBox()->ColumnWidths(std::string(Maximized ? kColumnsShown : kColumnsHidden));
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
