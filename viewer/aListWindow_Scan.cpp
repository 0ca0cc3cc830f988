#include "Application.h"
#include "ColonPath.h"
#include "Finally.h"
#include "GlobalData.h"
#include "Text.h"
#include "TreeWalk.h"
#include "aListWindow.h"
#include "aListWindow_Columns.h"

#include <chrono>
#include <utility>

namespace folimark {
namespace {

constexpr std::string_view kListHelp =
    "This is a list of media files that appear in this album.\r\r"
    "Click on an image file in the list to select a large thumbnail of that image file to be displayed to "
    "the right of this list.\r\r"
    "Click on a video file in the list to display a movies icon to the right of this list.\r\r"
    "Click on an audio file in the list to display a music icon to the right of this list.\r\r"
    "Click on a PDF fie in the list to select a large thumbnail of that PDF file to be displayed to the "
    "right of this list.\r\r"
    "To navigate the list with the keyboard, use the ↑, ↓, home (or fn←), end (or fn→), page up (or fn↑) "
    "and page down (or fn↓) keys.\r\r"
    "Click on a column heading to order the entries in the list alphabetically by the values under that "
    "heading. Click again to reverse the order of the entries. In the file size column, \"OB\" is shown "
    "instead of \"GB\" in order to order the file sizes correctly.";

/// Rows after which the hands take turns.
constexpr std::int64_t kHandRun = 64;

/// Tells when a scan that takes long is to say so (again).
class ProgressClock {
  public:
    bool IsDue() {
        const Clock::time_point now = Clock::now();
        if (now < due_) {
            return false;
        }
        due_ = now + kPause;
        return true;
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kPatience{1000};
    static constexpr std::chrono::milliseconds kPause{250};

    Clock::time_point due_ = Clock::now() + kPatience;
};

} // namespace

void aListWindow::MakeAndShowCatalog() {
    scanning_ = true;
    WindowCatalogFolder = GlobalData::CatalogFolder;
    const Ref<Listbox> list = TheListBox();
    for (int column = 0; column < list->ColumnCount(); ++column) {
        list->ColumnAlignment(column, kAlbumColumns[column].align);
    }
    list->ExpectSort(0);
    {
        const Finally restore(
            [saved = CurrentApplication()->MouseCursor()] { CurrentApplication()->MouseCursor(saved); });
        // Walked as an item of its own, whose entries needn't be kept for as long as the window.
        ListCatalogFileNames(WindowCatalogFolder, GetFolderItem(WindowCatalogFolder->AbsolutePath()));
    }
    if (list->LastIndex() > 0) {
        list->ColumnSortDirection(0, SortDirection::Ascending);
        list->SortedColumn(0);
        list->Sort();
    }
    NumberHighlighted = 0;
    Highlighted.Redim(list->LastIndex());
    for (std::int64_t i = 0; i <= Highlighted.Ubound(); ++i) {
        Highlighted.Set(i, false);
        Yield();
    }
    NumberHighlighted = 0; // There may have been a search meanwhile.
    ShowHighlightCount();
    list->HelpTag(std::string(kListHelp));
    Title(MakeCatalogLabel(WindowCatalogFolder->AbsolutePath()));
    AlbumLabel()->Text(ReadableNames(ReplaceAll(WindowCatalogFolder->AbsolutePath(), ":", "→ ")));
    CountLabel()->Text(list->LastIndex() == 0
                           ? "1 media file"
                           : Format(static_cast<double>(list->LastIndex() + 1), "###,###") + " media files");
    scanning_ = false;
    list->ListIndex(0);
    if (const std::optional<Search> search = std::exchange(searchToRepeat_, std::nullopt)) {
        SearchRows(*search);
    }
}

void aListWindow::ListCatalogFileNames(const Ref<FolderItem>& root, const Ref<FolderItem>& current) {
    TreeWalk walk(current);
    ProgressClock progress;
    while (walk.Next()) {
        const Ref<FolderItem> item = walk.Item();
        if (item && item->Exists() && item->Visible()) {
            if (item->Directory()) {
                walk.Enter();
            } else if (GlobalData::CheckMediaFileType(item->Type())) {
                ListBoxAddRow(root, item);
                ShowWatchCursor(TheListBox()->LastIndex());
            }
        }
        Yield();
        if (progress.IsDue()) {
            ShowScanProgress();
        }
    }
    UnreadFolder = walk.Unreadable();
}

void aListWindow::ShowScanProgress() {
    if (TheListBox()->ListIndex() < 0) {
        const auto count = static_cast<double>(TheListBox()->LastIndex() + 1);
        TheCanvas()->Backdrop(ComposeNotice("Media files found so far: " + Format(count, "###,###")
                                            + "\n\nClosing this window ends the search for more."));
    }
}

void aListWindow::ShowWatchCursor(std::int64_t rowIndex) {
    const std::int64_t turn = rowIndex % (2 * kHandRun);
    CurrentApplication()->MouseCursor(turn >= 0 && turn < kHandRun ? System::Cursors::HandOpen
                                                                   : System::Cursors::HandClosed);
}

} // namespace folimark
