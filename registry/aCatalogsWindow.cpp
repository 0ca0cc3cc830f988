#include "aCatalogsWindow.h"

#include "DefaultMenuBar.h"
#include "Exceptions.h"
#include "GlobalData.h"
#include "Look.h"
#include "Screen.h"

#include <algorithm>

namespace folimark {
namespace {

// The list shows fewer rows where the screen has no room for all.
constexpr Slack kSlackDown[] = {{64, 32000}};

constexpr WindowLayout kLayout{
    .title = "Folimark",
    .width = 513,
    .height = 257,
    .minHeight = 129,
    .maxHeight = 32000,
    .resizeable = true,
    .backColor = Look::kTint,
    .keyboardHome = "TheListBox",
    .slackDown = kSlackDown,
};

constexpr std::string_view kListHelp =
    "This is a list of albums that have been created on my computer. Click on an album in the list to "
    "select that album and apply the tools shown above.\r\r"
    "As a shortcut, double-click on an album in the list to open that album in it's own window where a list "
    "of the media files it contains can be viewed.\r\r"
    "(If the album contains many media files, a grabbing hand cursor will be displayed.)\r\r"
    "This list can be resized to any length greater than its initial length.\r\r"
    "To navigate the list with the keyboard, use the ↑, ↓, home (or fn←), end (or fn→), page up (or fn↑) "
    "and page down (or fn↓) keys.";

constexpr std::string_view kEmptyText =
    "There are no albums yet.\n\n"
    "Create Album makes one from a folder with pictures, films, sounds or PDF files. "
    "So does dropping such a folder here.";

constexpr ControlRow kControls[] = {
    {.name = "TheListBox",
     .controlClass = ControlClass::Listbox,
     .bounds = {0, 0, 513, 257},
     .tabIndex = 11,
     .helpTag = kListHelp,
     .accessibleName = "Albums",
     .horizontalScrollBar = true,
     .useFocusRing = true},
};

// The design height holds 16 rows and a line. With that many lines in the file, or fewer, it stays.
constexpr std::int64_t kDesignRows = 16;

} // namespace

void aCatalogsWindow::Layout() {
    MenuBar(DefaultMenuBar());
    Apply(kLayout);
}

void aCatalogsWindow::CreateControls() {
    _CreateControls0();
}

void aCatalogsWindow::_CreateControls0() {
    BuildControls(*this, kControls);
    TheListBox()->AddRow({" "}); // until the albums are read
    TheListBox()->CellBackgroundPaint = [this](Listbox& list, class Graphics& g, std::int64_t row,
                                               int column) {
        return TheListBox_CellBackgroundPaint(list, g, row, column);
    };
    TheListBox()->Change = [this](Listbox& list) { TheListBox_Change(list); };
    TheListBox()->DoubleClick = [this](Listbox& list) { TheListBox_DoubleClick(list); };

    TheListBox()->CellNote = [this](Listbox&, std::int64_t row, int) { return NoteOfRow(row); };
    TheListBox()->ContextMenu = [this](Listbox&) { return CommandsOfRow(); };
    TheListBox()->CopyText = [this](Listbox&) { return PathOfSelectedRow(); };
    TheListBox()->EmptyText(std::string(kEmptyText));

    const Ref<aCatalogsToolBar> toolbar = New<aCatalogsToolBar>();
    toolbar->Action = [this](Toolbar& bar, ToolItem& item) { CatalogsToolBar_Action(bar, item); };
    toolbar->Open = [this] { CatalogsToolBar_Open(*CatalogsToolBar()); };
    AddControl(toolbar, "CatalogsToolBar", {});
}

bool aCatalogsWindow::TheListBox_CellBackgroundPaint(Listbox& /*list*/, class Graphics& g, std::int64_t row,
                                                     int /*column*/) {
    g.ForeColor(Look::Stripe(row));
    g.FillRect(0, 0, g.Width(), g.Height());
    return false;
}

void aCatalogsWindow::TheListBox_Change(Listbox& list) {
    try {
        if (list.ListIndex() > list.LastIndex() || list.ListIndex() < 0) {
            list.ListIndex(list.LastIndex());
        }
        EnableCatalogButtons();
    } catch (const OutOfBoundsException&) {
        list.ListIndex(list.LastIndex());
    }
}

void aCatalogsWindow::TheListBox_DoubleClick(Listbox& /*list*/) {
    RunCommand(&aCatalogsWindow::zOpenCatalog);
}

void aCatalogsWindow::Event_Open() {
    Opened = true;
}

void aCatalogsWindow::Event_Resized() {
    FollowHeight();
}

void aCatalogsWindow::Event_Resizing() {
    FollowHeight();
}

void aCatalogsWindow::FollowHeight() {
    TheListBox()->Height(Height() - TheListBox()->Top());
    TheListBox()->Refresh(true);
}

void aCatalogsWindow::FitHeight(std::int64_t n) {
    const int usable =
        Screen(0).AvailableHeight() - CatalogsToolBar()->Height() - CatalogsToolBar()->Height();
    const std::int64_t maxRows = usable / Listbox::kRowHeight;
    if (n <= kDesignRows) {
        return;
    }
    const auto rows = static_cast<int>(std::min(n, maxRows));
    GlobalData::CatalogsWindow->Height(rows * Listbox::kRowHeight + 1);
    TheListBox()->Height(TheListBox()->Top() + rows * Listbox::kRowHeight + 1);
}

} // namespace folimark
