#include "AbsentDisk.h"
#include "AlbumListFile.h"
#include "Application.h"
#include "Exceptions.h"
#include "GlobalData.h"
#include "Screen.h"
#include "Yield.h"
#include "aCatalogsWindow.h"

namespace folimark {
namespace {

/// How far a window stands from the one before it, to the right and downwards, in units.
constexpr int kCascadeStep = 22;

} // namespace

void aCatalogsWindow::ClearStale(std::int64_t row) {
    const Ref<aListWindow> window = CatalogWindows(row);
    if (window && window->ControlCount() == 0) {
        CatalogWindows.Set(row, {});
    }
}

void aCatalogsWindow::CloseSlot(std::int64_t row) {
    if (const Ref<aListWindow> window = CatalogWindows(row)) {
        window->Close();
        CatalogWindows.Set(row, {});
    }
}

std::int64_t aCatalogsWindow::RowOf(const Ref<aListWindow>& window) const {
    for (std::int64_t r = 0; r <= CatalogWindows.Ubound(); ++r) {
        if (CatalogWindows(r) == window) {
            return r;
        }
    }
    return -1;
}

void aCatalogsWindow::zOpenCatalog() {
    if (TheListBox()->LastIndex() < 0 || TheListBox()->ListIndex() < 0) {
        return;
    }
    GlobalData::CatalogFolder = GetFolderItem(TheListBox()->RowTag(TheListBox()->ListIndex()));
    ClearStale(TheListBox()->ListIndex());
    Ref<aListWindow> window = CatalogWindows(TheListBox()->ListIndex());
    if (!window) {
        window = New<aListWindow>();
        CatalogWindows.Set(TheListBox()->ListIndex(), window);
        window->Left(Left() + kCascadeStep);
        window->Top(Top() + kCascadeStep);
        // An album can be closed, and aligned, as soon as it is being read.
        CloseCatalogButton->Enabled(true);
        StaggerCatalogsButton->Enabled(true);
    }
    ShowCatalog(window);
}

void aCatalogsWindow::ShowCatalog(const Ref<aListWindow>& window) {
    const Ref<FolderItem> folder = GlobalData::CatalogFolder;
    try {
        window->Show();
    } catch (const EndException&) {
        // The window was closed while it filled itself. That is no failure, and the album stays.
        if (IsQuitting()) {
            throw;
        }
    } catch (const RuntimeException&) {
        // Of a window that has gone meanwhile nobody wants to know.
        if (window->ControlCount() > 0 && !TellOfFolder(window, folder)) {
            throw;
        }
    }
    EnableCatalogButtons();
}

bool aCatalogsWindow::TellOfFolder(const Ref<aListWindow>& window, const Ref<FolderItem>& folder) {
    const bool empty = window->TheListBox()->LastIndex() < 0;
    const bool away = empty && folder && MayLieOnAnAbsentDisk(folder->NativePath());
    if (away || (empty && !window->UnreadFolder.empty())) {
        window->Close();
        GlobalData::MessageBox1(
            GlobalData::MessageKind::Caution, "OK",
            "This folder could not be read: “" + (away ? folder->NativePath() : window->UnreadFolder) + "”.",
            away ? "It may lie on a disk that isn’t connected. The album stays in the list."
                 : "The album stays in the list.");
        return true;
    }
    // Only an album that is known to be gone, or to hold no media, leaves the list.
    if (empty || !folder || folder->Gone()) {
        RemoveFailedCatalog(window);
        return true;
    }
    window->Close();
    return false;
}

void aCatalogsWindow::RemoveFailedCatalog(const Ref<aListWindow>& window) {
    // The row that the message is about is the one that goes, whatever is clicked meanwhile.
    const auto rows = UseRows();
    const std::int64_t row = RowOf(window);
    window->Close();
    if (row < 0) {
        return; // The user has trashed the album during its scan.
    }
    TheListBox()->ListIndex(row);
    GlobalData::MessageBox1(
        GlobalData::MessageKind::Caution, "OK",
        "This album no longer exists, or the folder which it references has been moved or renamed.",
        "The album will be removed from the list.");
    CatalogWindows.Remove(row);
    TheListBox()->RemoveRow(row);
    PutCatalogList(AlbumListFile());
}

void aCatalogsWindow::zCloseCatalog() {
    if (TheListBox()->LastIndex() < 0 || TheListBox()->ListIndex() < 0) {
        return;
    }
    ClearStale(TheListBox()->ListIndex());
    CloseSlot(TheListBox()->ListIndex());
    StaggerWindows();
    EnableCatalogButtons();
}

bool aCatalogsWindow::Event_CancelClose(bool /*appQuitting*/) {
    return rowsInUse_ > 0;
}

void aCatalogsWindow::Event_Close() {
    const auto rows = UseRows();
    for (std::int64_t r = 0; r <= TheListBox()->LastIndex(); ++r) {
        ClearStale(r);
        CloseSlot(r);
        RuntimeBackgroundTask();
    }
    Quit(0);
}

std::int64_t aCatalogsWindow::CountOpenCatalogs() {
    std::int64_t count = 0;
    for (std::int64_t i = 0; i <= CatalogWindows.Ubound(); ++i) {
        ClearStale(i);
        if (CatalogWindows(i)) {
            ++count;
        }
        RuntimeBackgroundTask();
    }
    return count;
}

bool aCatalogsWindow::IsAnyCatalogOpen() const {
    for (std::int64_t i = 0; i <= CatalogWindows.Ubound(); ++i) {
        if (const Ref<aListWindow> window = CatalogWindows(i); window && window->ControlCount() > 0) {
            return true;
        }
    }
    return false;
}

void aCatalogsWindow::EnableCatalogButtons() {
    CountOpenCatalogs(); // for the stale slots; it yields, so that its number may be of the past
    const std::int64_t row = TheListBox()->ListIndex();
    const bool selected = TheListBox()->LastIndex() >= 0 && row >= 0 && row <= TheListBox()->LastIndex();
    AddCatalogButton->Enabled(true);
    DeleteCatalogButton->Enabled(selected);
    OpenCatalogButton->Enabled(selected);
    CloseCatalogButton->Enabled(selected && row <= CatalogWindows.Ubound() && CatalogWindows(row));
    StaggerCatalogsButton->Enabled(IsAnyCatalogOpen());
}

void aCatalogsWindow::zStaggerCatalogs() {
    if (CatalogWindows.Ubound() >= 0) {
        StaggerWindows();
    }
    if (!CanPlaceWindows() && !toldOfPlaces_) {
        toldOfPlaces_ = true;
        GlobalData::MessageBox1(GlobalData::MessageKind::Note, "OK",
                                "The albums’ windows can’t be aligned in this session.",
                                "Under Wayland, only the desktop itself places windows. In an X11 session "
                                "Folimark can align them.");
    }
    EnableCatalogButtons();
}

void aCatalogsWindow::StaggerWindows() {
    if (TheListBox()->LastIndex() < 0) {
        return;
    }
    const auto rows = UseRows();
    int x = Left();
    int y = Top();
    for (std::int64_t r = 0; r <= TheListBox()->LastIndex(); ++r) {
        if (const Ref<aListWindow> window = CatalogWindows(r)) {
            x += kCascadeStep;
            window->Left(x);
            y += kCascadeStep;
            window->Top(y);
            window->Show();
        }
        RuntimeBackgroundTask();
    }
}

} // namespace folimark
