#include "Clipboard.h"
#include "aCatalogsWindow.h"

namespace folimark {

void aCatalogsWindow::RunCommand(void (aCatalogsWindow::*command)()) {
    if (rowsInUse_ == 0) {
        (this->*command)();
    }
}

std::string aCatalogsWindow::PathOfSelectedRow() const {
    const std::int64_t row = TheListBox()->ListIndex();
    const Ref<FolderItem> folder = row < 0 ? Ref<FolderItem>() : GetFolderItem(TheListBox()->RowTag(row));
    return folder ? folder->NativePath() : "";
}

std::vector<ContextCommand> aCatalogsWindow::CommandsOfRow() {
    const auto running = [this](void (aCatalogsWindow::*command)()) {
        return [this, command] { RunCommand(command); };
    };
    return {{"Open Album", OpenCatalogButton->Enabled(), running(&aCatalogsWindow::zOpenCatalog)},
            {"Close Album", CloseCatalogButton->Enabled(), running(&aCatalogsWindow::zCloseCatalog)},
            {"Trash Album", DeleteCatalogButton->Enabled(), running(&aCatalogsWindow::zDeleteCatalog)},
            {"Reveal in the File Browser", true, running(&aCatalogsWindow::zRevealCatalogInFinder)},
            {"Copy Path", !PathOfSelectedRow().empty(), [this] { CopyToClipboard(PathOfSelectedRow()); }}};
}

std::string aCatalogsWindow::NoteOfRow(std::int64_t row) const {
    const Ref<Listbox> list = TheListBox();
    const std::string_view label = list->Rows().Cell(row, 0);
    for (std::int64_t other = 0; other <= list->LastIndex(); ++other) {
        if (other != row && EqualText(list->Rows().Cell(other, 0), label)) {
            const Ref<FolderItem> folder = GetFolderItem(list->RowTag(row));
            const Ref<FolderItem> above = folder ? folder->Parent() : folder;
            return above ? above->NativePath() : "";
        }
    }
    return "";
}

} // namespace folimark
