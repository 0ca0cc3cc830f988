#pragma once

#include "Array.h"
#include "ControlTable.h"
#include "Finally.h"
#include "MenuBarWindow.h"
#include "aCatalogsToolBar.h"
#include "aListWindow.h"

#include <string>

namespace folimark {

/// The Albums window: the list of albums and all that is done with them.
///
/// An album is a row of TheListBox (its label in Cell, its folder's colon path in RowTag) and the element of
/// CatalogWindows at the same index, its window slot. A slot is empty (nil), live (its window is open) or
/// stale (its window has closed by itself: its ControlCount is 0); a stale one counts as empty, and is made
/// so.
///
/// The rows are the truth while the application runs, and the album list file follows each change at once. An
/// album leaves the list when the user trashes it, or when opening it finds its folder gone or without any
/// media.
class aCatalogsWindow : public MenuBarWindow {
  public:
    /// Has LookForAnyPicturesIn found a media file?
    bool AnyPictures = false;
    bool Opened = false;
    Array<Ref<aListWindow>> CatalogWindows;
    Ref<ToolButton> AddCatalogButton;
    Ref<ToolButton> DeleteCatalogButton;
    Ref<ToolButton> OpenCatalogButton;
    Ref<ToolButton> CloseCatalogButton;
    Ref<ToolButton> StaggerCatalogsButton;
    Ref<ToolButton> SeparatorButton;

    Ref<Listbox> TheListBox() const { return Control<Listbox>("TheListBox"); }
    Ref<aCatalogsToolBar> CatalogsToolBar() const { return Control<aCatalogsToolBar>("CatalogsToolBar"); }

    void Event_Open() override;
    void Event_Activate() override;
    bool Event_CancelClose(bool appQuitting) override;
    void Event_Close() override;
    void Event_Resized() override;
    void Event_Resizing() override;
    bool AcceptsFolders() const override;
    void Event_DropFolder(const Ref<FolderItem>& folder) override;

    /// Searches a folder's tree for a visible media file and sets AnyPictures if there is one. Yields.
    /// \returns the native path of the first folder that could not be read; "" if all could.
    std::string LookForAnyPicturesIn(const Ref<FolderItem>& folder);
    /// Replaces all rows and slots by those of the file, which is created if there is none. Raises
    /// IOException if it can't be read as a whole.
    void GetCatalogList(const Ref<FolderItem>& f);
    /// Replaces the file as a whole, or raises IOException and leaves it as it was.
    void PutCatalogList(const Ref<FolderItem>& f);
    /// Adds a row for a folder's path, unless it has one, sorts the albums by label and selects the last row.
    void AddToCatalogList(const std::string& path);
    std::string MakeCatalogLabel(const std::string& path) const;
    /// The number of live slots. Empties the stale ones.
    std::int64_t CountOpenCatalogs();
    void EnableCatalogButtons();

    void zAddCatalog();
    void zDeleteCatalog();
    void zOpenCatalog();
    void zStaggerCatalogs();
    void zCloseCatalog();
    /// Cascades the open albums' windows from this one, in the order of their rows.
    void StaggerWindows();
    void zRevealCatalogInFinder();

  protected:
    void Layout() override;
    void CreateControls() override;
    void AddMenuHandlers(Window& window) override;

  private:
    /// While the result lives, a loop over the rows may yield without another command changing them, and the
    /// window stays open.
    auto UseRows() {
        ++rowsInUse_;
        return Finally([this] { --rowsInUse_; });
    }

    void _CreateControls0();

    bool TheListBox_CellBackgroundPaint(Listbox& list, class Graphics& g, std::int64_t row, int column);
    void TheListBox_Change(Listbox& list);
    void TheListBox_DoubleClick(Listbox& list);
    void CatalogsToolBar_Action(Toolbar& toolbar, ToolItem& item);
    void CatalogsToolBar_Open(aCatalogsToolBar& toolbar);
    /// Does what a click on the button does.
    void PushTool(const Ref<ToolButton>& button);

    bool _FileAboutFolimark_Action();
    bool _HelpFolimarkHelp_Action();
    bool _RevealItem_Action();

    /// The native path of the selected album's folder; "" if there is none.
    std::string PathOfSelectedRow() const;
    std::vector<ContextCommand> CommandsOfRow();
    /// For an album that has another one's name: the native path of the folder that its own lies in. "" for
    /// others.
    std::string NoteOfRow(std::int64_t row) const;
    /// Runs a command of the toolbar or of a row, unless a loop is using the rows.
    void RunCommand(void (aCatalogsWindow::*command)());

    /// Sets the window's height by the number of lines read plus one.
    void FitHeight(std::int64_t n);
    void FollowHeight();
    /// Doesn't yield, and leaves the slots alone.
    bool IsAnyCatalogOpen() const;
    /// Empties the slot if it is stale.
    void ClearStale(std::int64_t row);
    /// The row whose slot holds the window; -1 if none does.
    std::int64_t RowOf(const Ref<aListWindow>& window) const;
    /// Shows an album's window. If it finds its folder gone or without media, the album leaves the list; if
    /// the folder can't be read, the user is told. Any other failure is raised.
    void ShowCatalog(const Ref<aListWindow>& window);
    /// Closes a window that could not be filled. \returns whether that was for its folder, and has been dealt
    /// with.
    bool TellOfFolder(const Ref<aListWindow>& window, const Ref<FolderItem>& folder);
    /// Closes the window, tells the user, and takes its album out of the list.
    void RemoveFailedCatalog(const Ref<aListWindow>& window);
    /// Makes an album of a folder, if it holds media and is none yet. Nil does nothing.
    void CreateCatalogFrom(const Ref<FolderItem>& chosen);
    void AddCatalogFolder(const Ref<FolderItem>& folder);
    /// Closes the window in the slot, if there is one, and empties the slot.
    void CloseSlot(std::int64_t row);

    int rowsInUse_ = 0;
    /// Has the user been told, in this run, that the session places windows itself?
    bool toldOfPlaces_ = false;
    bool adding_ = false;
};

} // namespace folimark
