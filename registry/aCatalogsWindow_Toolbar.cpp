#include "PictureResources.h"
#include "aCatalogsWindow.h"

namespace folimark {
namespace {

struct ToolRow {
    Ref<ToolButton> aCatalogsWindow::*field;
    int style;
    const char* caption;
    const char* name;
    Ref<Picture> (*icon)();
    const char* helpTag;
};

constexpr ToolRow kTools[] = {
    {&aCatalogsWindow::AddCatalogButton, ToolButton::kPushes, "Create Album", "AddCatalog", AddCatalog,
     "Create an album by choosing a folder on your computer that contains the media files to be included the "
     "album."},
    {&aCatalogsWindow::DeleteCatalogButton, ToolButton::kPushes, "Trash Album", "DeleteCatalog",
     DeleteCatalog, "Trash the selected album. The media files that it contains are not trashed."},
    {&aCatalogsWindow::SeparatorButton, ToolButton::kSeparator, "", "", nullptr, ""},
    {&aCatalogsWindow::OpenCatalogButton, ToolButton::kPushes, "Open Album", "OpenCatalog", OpenCatalog,
     "Open the selected album in it's own window where a list of the media files it contains can be "
     "viewed.\r\r(If the album contains many media files, a grabbing hand cursor will be displayed.)"},
    {&aCatalogsWindow::StaggerCatalogsButton, ToolButton::kPushes, "Align Albums", "StaggerCatalogs",
     StaggerCatalogs, "Align and cascade the open albums' windows relative to this window."},
    {&aCatalogsWindow::CloseCatalogButton, ToolButton::kPushes, "Close Album", "CloseCatalog", CloseCatalog,
     "Close the selected album's window."},
};

struct CommandRow {
    const char* name;
    void (aCatalogsWindow::*command)();
    Ref<ToolButton> aCatalogsWindow::*button;
};

constexpr CommandRow kCommands[] = {
    {"AddCatalog", &aCatalogsWindow::zAddCatalog, &aCatalogsWindow::AddCatalogButton},
    {"DeleteCatalog", &aCatalogsWindow::zDeleteCatalog, &aCatalogsWindow::DeleteCatalogButton},
    {"OpenCatalog", &aCatalogsWindow::zOpenCatalog, &aCatalogsWindow::OpenCatalogButton},
    {"StaggerCatalogs", &aCatalogsWindow::zStaggerCatalogs, &aCatalogsWindow::StaggerCatalogsButton},
    {"CloseCatalog", &aCatalogsWindow::zCloseCatalog, &aCatalogsWindow::CloseCatalogButton},
};

/// Lets a button up when its command has ended, in whatever way.
class PushedScope {
  public:
    explicit PushedScope(Ref<ToolButton> button) : button_(std::move(button)) {}
    PushedScope(const PushedScope&) = delete;
    PushedScope& operator=(const PushedScope&) = delete;
    ~PushedScope() { button_->Pushed(false); }

  private:
    Ref<ToolButton> button_;
};

} // namespace

void aCatalogsWindow::CatalogsToolBar_Open(aCatalogsToolBar& toolbar) {
    for (const ToolRow& row : kTools) {
        const Ref<ToolButton> button = New<ToolButton>();
        this->*row.field = button;
        button->Style(row.style);
        button->Caption(row.caption);
        button->Name(row.name);
        if (row.icon != nullptr) {
            button->Icon(row.icon());
        }
        if (row.field == &aCatalogsWindow::AddCatalogButton) {
            button->Enabled(true);
        }
        button->HelpTag(row.helpTag);
        toolbar.Append(button);
    }
}

void aCatalogsWindow::CatalogsToolBar_Action(Toolbar& /*toolbar*/, ToolItem& item) {
    for (const CommandRow& row : kCommands) {
        if (item.Name() == row.name) {
            if (adding_ && row.button == &aCatalogsWindow::AddCatalogButton) {
                return; // It stays down: the search through the last folder is still going on.
            }
            const PushedScope scope(this->*row.button);
            if (rowsInUse_ == 0) {
                (this->*row.command)();
            }
            return;
        }
    }
}

} // namespace folimark
