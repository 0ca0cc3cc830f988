#include "AlbumListFile.h"
#include "GlobalData.h"
#include "aCatalogsWindow.h"

namespace folimark {

void aCatalogsWindow::zDeleteCatalog() {
    const Ref<Listbox> list = TheListBox();
    if (list->LastIndex() < 0 || list->ListIndex() < 0) {
        return;
    }
    // The row that the question names is the one that goes.
    const std::int64_t row = list->ListIndex();
    const std::string label = list->Cell(row, 0);
    GlobalData::MessageBox2(
        GlobalData::MessageKind::Question, "Trash", "Cancel", "Trash the “" + label + "” album?",
        "Press Trash to trash the “" + label + "” album. The media files it contains will not be trashed.");
    if (GlobalData::CancelButtonPressed) {
        return;
    }
    {
        const auto rows = UseRows();
        CloseSlot(row);
        CatalogWindows.Remove(row);
        list->RemoveRow(row);
        PutCatalogList(AlbumListFile());
    }
    StaggerWindows();
    EnableCatalogButtons();
}

} // namespace folimark
