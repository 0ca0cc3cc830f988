#include "PictureResources.h"
#include "aCatalogsWindow.h"

#include <algorithm>
#include <iterator>

namespace folimark {
namespace {

/// A row without a command is a separator.
struct ToolRow {
    Ref<ToolButton> aCatalogsWindow::*button;
    const char* name;
    const char* caption;
    Ref<Picture> (*icon)();
    void (aCatalogsWindow::*command)();
    const char* helpTag;
};

constexpr ToolRow kTools[] = {
    {&aCatalogsWindow::AddCatalogButton, "AddCatalog", "Create Album", AddCatalog,
     &aCatalogsWindow::zAddCatalog,
     "Create an album by choosing a folder on your computer that contains the media files to be included the "
     "album."},
    {&aCatalogsWindow::DeleteCatalogButton, "DeleteCatalog", "Trash Album", DeleteCatalog,
     &aCatalogsWindow::zDeleteCatalog,
     "Trash the selected album. The media files that it contains are not trashed."},
    {&aCatalogsWindow::SeparatorButton, "", "", nullptr, nullptr, ""},
    {&aCatalogsWindow::OpenCatalogButton, "OpenCatalog", "Open Album", OpenCatalog,
     &aCatalogsWindow::zOpenCatalog,
     "Open the selected album in it's own window where a list of the media files it contains can be "
     "viewed.\r\r(If the album contains many media files, a grabbing hand cursor will be displayed.)"},
    {&aCatalogsWindow::StaggerCatalogsButton, "StaggerCatalogs", "Align Albums", StaggerCatalogs,
     &aCatalogsWindow::zStaggerCatalogs,
     "Align and cascade the open albums' windows relative to this window."},
    {&aCatalogsWindow::CloseCatalogButton, "CloseCatalog", "Close Album", CloseCatalog,
     &aCatalogsWindow::zCloseCatalog, "Close the selected album's window."},
};

} // namespace

void aCatalogsWindow::CatalogsToolBar_Open(aCatalogsToolBar& toolbar) {
    for (const ToolRow& row : kTools) {
        const Ref<ToolButton> button = New<ToolButton>();
        this->*row.button = button;
        button->Style(row.command == nullptr ? ToolStyle::Separator : ToolStyle::Pushes);
        button->Caption(row.caption);
        button->Name(row.name);
        if (row.icon != nullptr) {
            button->Icon(row.icon());
        }
        button->HelpTag(row.helpTag);
        toolbar.Append(button);
    }
    AddCatalogButton->Enabled(true);
}

void aCatalogsWindow::CatalogsToolBar_Action(Toolbar& /*toolbar*/, ToolItem& item) {
    const auto* const row = std::ranges::find(kTools, item.Name(), &ToolRow::name);
    if (row == std::end(kTools) || row->command == nullptr) {
        return;
    }
    const Ref<ToolButton> button = this->*row->button;
    if (adding_ && button == AddCatalogButton) {
        return; // It stays down: the search through the last folder is still going on.
    }
    const Finally letUp([button] { button->Pushed(false); });
    RunCommand(row->command);
}

void aCatalogsWindow::PushTool(const Ref<ToolButton>& button) {
    if (button->Enabled()) {
        button->Pushed(true);
        CatalogsToolBar_Action(*CatalogsToolBar(), *button);
    }
}

} // namespace folimark
