#include "Exceptions.h"
#include "GlobalData.h"
#include "aCatalogsWindow.h"

namespace folimark {

void aCatalogsWindow::AddMenuHandlers(Window& window) {
    window.MenuHandler("FileAboutFolimark", [this] { return _FileAboutFolimark_Action(); });
    window.MenuHandler("HelpFolimarkHelp", [this] { return _HelpFolimarkHelp_Action(); });
    window.MenuHandler("RevealItem", [this] { return _RevealItem_Action(); });
    window.KeyHandler("F1", [this] { _HelpFolimarkHelp_Action(); });
    window.KeyHandler("Ctrl+N", [this] { PushTool(AddCatalogButton); });
    window.KeyHandler("Delete", [this] { PushTool(DeleteCatalogButton); });
}

bool aCatalogsWindow::_FileAboutFolimark_Action() {
    GlobalData::ShowAboutPanel();
    return true;
}

bool aCatalogsWindow::_HelpFolimarkHelp_Action() {
    GlobalData::LaunchHelpSheet();
    return true;
}

bool aCatalogsWindow::_RevealItem_Action() {
    zRevealCatalogInFinder();
    return true;
}

void aCatalogsWindow::zRevealCatalogInFinder() {
    if (TheListBox()->LastIndex() < 0 || TheListBox()->ListIndex() < 0) {
        return;
    }
    const std::string line = TheListBox()->RowTag(TheListBox()->ListIndex());
    GlobalData::CatalogFolder = GetFolderItem(line);
    if (!GlobalData::CatalogFolder) {
        throw IOException("A line of the list of albums is no path of a folder: “" + line + "”.");
    }
    GlobalData::CatalogFolder->Launch(true);
    EnableCatalogButtons();
}

} // namespace folimark
