#include "GlobalData.h"
#include "aListWindow.h"

namespace folimark {

void aListWindow::AddMenuHandlers(Window& window) {
    window.MenuHandler("FileOpenFile", [this] { return _FileOpenFile_Action(); });
    window.MenuHandler("FileShowFolimarkWindow", [this] { return _FileShowFolimarkWindow_Action(); });
    window.MenuHandler("FileAboutFolimark", [this] { return _FileAboutFolimark_Action(); });
    window.MenuHandler("FileHideColumns", [this] { return _FileHideColumns_Action(); });
    window.MenuHandler("HelpFolimarkHelp", [this] { return _HelpFolimarkHelp_Action(); });
    window.MenuHandler("EditHighlight", [this] { return _EditHighlight_Action(); });
    window.MenuHandler("EditRemoveHighlighting", [this] { return _EditRemoveHighlighting_Action(); });
    window.MenuHandler("RevealItem", [this] { return _RevealItem_Action(); });
    window.KeyHandler("F1", [this] { _HelpFolimarkHelp_Action(); });
}

void aListWindow::Event_EnableMenuItems() {
    FileAboutFolimark()->Enabled(true);
    FileShowFolimarkWindow()->Enabled(true);
    if (TheListBox()->ListIndex() >= 0) {
        FileOpenFile()->Enabled(true);
    }
    EditHighlight()->Enabled(true);
    EditRemoveHighlighting()->Enabled(NumberHighlighted > 0);
}

bool aListWindow::_FileOpenFile_Action() {
    OpenSelectedFile();
    return true;
}

bool aListWindow::_FileShowFolimarkWindow_Action() {
    GlobalData::CatalogsWindow->Show();
    return true;
}

bool aListWindow::_FileAboutFolimark_Action() {
    GlobalData::ShowAboutPanel();
    return true;
}

bool aListWindow::_FileHideColumns_Action() {
    // The text names what the next choice of the item will do.
    FileHideColumns()->Text(Maximized ? "Hide Columns" : "Show Columns");
    MaxButton()->Push();
    return true;
}

bool aListWindow::_HelpFolimarkHelp_Action() {
    GlobalData::LaunchHelpSheet();
    return true;
}

bool aListWindow::_EditHighlight_Action() {
    HighlightPushButton()->Push();
    return true;
}

bool aListWindow::_EditRemoveHighlighting_Action() {
    RemoveHighlightingPushButton()->Push();
    return true;
}

bool aListWindow::_RevealItem_Action() {
    zRevealCatalogInFinder();
    return true;
}

} // namespace folimark
