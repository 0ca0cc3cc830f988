#pragma once

#include "Array.h"
#include "ControlTable.h"
#include "FolderItem.h"
#include "MenuBarWindow.h"

#include <optional>
#include <string>
#include <vector>

namespace folimark {

/// The window of one open album. It fills itself at its first activation, which comes inside Show: what goes
/// wrong then leaves Show. Rows show the files as they were at that moment; only closing the album and
/// opening it again looks anew.
///
/// While a loop of this window yields, the window may be closed; the loop then ends with an EndException.
class aListWindow : public MenuBarWindow {
  public:
    /// True until the first activation, which fills the window.
    bool Opened = false;
    /// The album's folder.
    Ref<FolderItem> WindowCatalogFolder;
    /// Are the three middle columns hidden?
    bool Maximized = false;
    /// The dialog of the last Highlight command.
    Ref<Window> HighlightWindow;
    /// One flag for each row's position; sorting by a heading moves the rows and not the flags.
    Array<bool> Highlighted{false};
    /// How many of them are set.
    std::int64_t NumberHighlighted = 0;
    /// The native path of the first folder that the scan could not read; "" if it could read all.
    std::string UnreadFolder;

    Ref<Listbox> TheListBox() const { return Control<Listbox>("TheListBox"); }
    Ref<Label> CountLabel() const { return Control<Label>("CountLabel"); }
    Ref<Canvas> TheCanvas() const { return Control<Canvas>("TheCanvas"); }
    Ref<PushButton> EditPushButton() const { return Control<PushButton>("EditPushButton"); }
    Ref<PushButton> FileReturn() const { return Control<PushButton>("FileReturn"); }
    Ref<PushButton> MaxButton() const { return Control<PushButton>("MaxButton"); }
    Ref<Label> AlbumLabel() const { return Control<Label>("AlbumLabel"); }
    Ref<PushButton> RemoveHighlightingPushButton() const {
        return Control<PushButton>("RemoveHighlightingPushButton");
    }
    Ref<PushButton> HighlightPushButton() const { return Control<PushButton>("HighlightPushButton"); }
    Ref<Label> HighlightCountLabel() const { return Control<Label>("HighlightCountLabel"); }

    void Event_Open() override;
    void Event_Activate() override;
    void Event_EnableMenuItems() override;
    bool Event_CancelClose(bool appQuitting) override;
    bool Event_KeyDown(const std::string& key) override;

    /// Shows the file of the selected row, which has to be one, in the preview. If the file has gone, says so
    /// and closes the window.
    void DrawCatalogItem();
    /// Fits a picture into the canvas: as large as it goes, centred from left to right and standing on the
    /// lower edge. The results are units.
    void ResizeAndRepositionImage(const Ref<Picture>& picture, int& destLeft, int& destTop, int& destWidth,
                                  int& destHeight);
    /// Fills the window from the folder of GlobalData::CatalogFolder. Raises OutOfBoundsException if there is
    /// no media file.
    void MakeAndShowCatalog();
    /// A file's path without the album's, which it has to start with.
    std::string GetCatalogPathWithoutTitle(const std::string& rootPath, const std::string& filePath) const;
    /// Adds a row for each visible media file in the tree of `current`, which lies in that of `root`, and
    /// sets UnreadFolder. Raises NilObjectException for nil.
    void ListCatalogFileNames(const Ref<FolderItem>& root, const Ref<FolderItem>& current);
    /// Adds exactly one row, for a file in the tree of `root`.
    void ListBoxAddRow(const Ref<FolderItem>& root, const Ref<FolderItem>& file);
    /// The two hands take turns every 64 rows.
    void ShowWatchCursor(std::int64_t rowIndex);
    /// The name of the folder at a colon path.
    std::string MakeCatalogLabel(const std::string& path) const;
    /// Shows the folder of GlobalData::CatalogFolder, which need not be this window's, in the file browser.
    /// Nothing happens if that is nil.
    void zRevealCatalogInFinder();

  protected:
    void Layout() override;
    void CreateControls() override;
    void AddMenuHandlers(Window& window) override;

  private:
    /// What a search looks for, as it was when it began: the globals may change while it yields.
    struct Search {
        std::string phrase1;
        std::string phrase2;
        std::int64_t join = 0; ///< a value of GlobalData::HighlightType
    };

    void _CreateControls0();

    void TheListBox_Change(Listbox& list);
    void TheListBox_DoubleClick(Listbox& list);
    bool TheListBox_CellBackgroundPaint(Listbox& list, class Graphics& graphics, std::int64_t row,
                                        int column);
    void TheCanvas_DoubleClick(Canvas& canvas, int x, int y);
    void TheCanvas_PictureReady(Canvas& canvas, const Ref<Picture>& picture, PictureRefusal refusal);
    void TheCanvas_PictureLate(Canvas& canvas);
    void EditPushButton_Action(PushButton& button);
    void FileReturn_Action(PushButton& button);
    void MaxButton_Action(PushButton& button);
    void RemoveHighlightingPushButton_Action(PushButton& button);
    void HighlightPushButton_Action(PushButton& button);

    bool _FileOpenFile_Action();
    bool _FileShowFolimarkWindow_Action();
    bool _FileAboutFolimark_Action();
    bool _FileHideColumns_Action();
    bool _HelpFolimarkHelp_Action();
    bool _EditHighlight_Action();
    bool _EditRemoveHighlighting_Action();
    bool _RevealItem_Action();

    /// Shows a picture, or, if there is none, why.
    void ShowPreview(const Ref<Picture>& source, PictureRefusal refusal);
    /// Has the pictures read that are likely to be wanted next.
    void ReadAhead();
    /// The rows that the next step may lead to: the two in the direction of the last step, and the one
    /// behind. Among hits, if that led to one.
    std::vector<std::int64_t> LikelyRows(std::int64_t row, std::int64_t step) const;
    /// The picture for the canvas: the source fitted into it, on the window's colour.
    Ref<Picture> ComposePreview(const Ref<Picture>& source);
    /// The picture for the canvas that says a short text instead.
    Ref<Picture> ComposeNotice(const std::string& text);
    void OpenSelectedFile();
    /// The file of the selected row; nil if there is none, or its path leads nowhere.
    Ref<FolderItem> SelectedFile() const;
    /// The native path; "" if there is none.
    std::string PathOfSelectedRow() const;
    std::vector<ContextCommand> CommandsOfRow();
    /// Is there a row, with a flag that is set? Asked of positions behind the last row too, and of rows whose
    /// flag the scan hasn't made yet.
    bool IsHighlighted(const Listbox& list, std::int64_t row) const;
    /// Highlights the rows whose names hold the phrases.
    void SearchRows(const Search& search);
    void ShowHighlightCount();
    /// Says in the preview, as long as it is empty, how far the scan has come.
    void ShowScanProgress();
    /// Lets the event loop run; raises EndException if that has closed the window.
    void Yield();

    std::string shownPath_;      ///< of the file that the preview is about
    std::string shownKind_;      ///< how that is called
    Ref<FolderItem> requested_;  ///< the file, as long as it is asked for no larger than the canvas
    std::int64_t lastRow_ = -1;  ///< that was shown
    std::int64_t hitShown_ = -1; ///< that was reached last on the way from hit to hit
    bool scanning_ = false;
    /// The search that was made last while the scan went on: the rows that came after it don't know of it
    /// yet.
    std::optional<Search> searchToRepeat_;
};

} // namespace folimark
