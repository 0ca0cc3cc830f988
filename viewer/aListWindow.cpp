#include "aListWindow.h"

#include "DefaultMenuBar.h"
#include "Exceptions.h"
#include "Look.h"
#include "Yield.h"
#include "aListWindow_Columns.h"

namespace folimark {
namespace {

// On a small screen the list gives way: the room between the things below it and beside it goes, as far as
// the list has to. Then the preview gets smaller.
constexpr Slack kSlackAcross[] = {
    {263, 458, 0}, {526, 625, 0}, {693, 919, 0}, {1150, 1195, 1}, {1405, 1450, 1}};
constexpr Slack kSlackDown[] = {{396, 518, 0}, {157, 247, 1}};

constexpr WindowLayout kLayout{
    .width = 1470,
    .height = 634,
    .minHeight = 64,
    .maxHeight = 700,
    .backColor = Look::kTint,
    .slackAcross = kSlackAcross,
    .slackDown = kSlackDown,
};

constexpr std::string_view kHighlightHelp =
    "Click this button to highlight entries which meet the criteria which are specified in the dialog box "
    "that appears. The criteria are (1) a simple phrase (which may be any sequence of characters) that "
    "appear in the first column of the entries or (2) a combination of two such phrases connected by And, "
    "Or or But Not.\r\r"
    "The phrases are not case-sensitive, i.e., upper case and lower case letters are treated as the same "
    "letter.\r\r"
    "Entries are highlighted with a \"cantaloupe\" color.\r\r"
    "Once multiple ntries have been highlighted, you may press tab to select the next highlighted entry, or "
    "press shift-tab to select the previous highlighted entry.";

constexpr ControlRow kControls[] = {
    {.name = "TheListBox",
     .controlClass = ControlClass::Listbox,
     .bounds = {20, 52, 1110, 530},
     .tabIndex = 0,
     .accessibleName = "Media files in this album",
     .pathSeparator = kPathSeparator},
    {.name = "CountLabel",
     .controlClass = ControlClass::Label,
     .bounds = {458, 594, 235, 20},
     .tabIndex = 3,
     .text = "0 Media Files",
     .helpTag = "The number of media files listed above is shown here.",
     .align = TextAlign::Centre},
    {.name = "TheCanvas",
     .controlClass = ControlClass::Canvas,
     .bounds = {1150, 52, 300, 300},
     .tabIndex = 6,
     .accessibleName = "Preview of the selected media file"},
    {.name = "EditPushButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {1200, 364, 200, 20},
     .tabIndex = 5,
     .text = "Open Media File  ⌘O"},
    {.name = "FileReturn",
     .controlClass = ControlClass::PushButton,
     .bounds = {20, 594, 231, 20},
     .tabIndex = 7,
     .text = "Show Folimark Window  ⌘W",
     .helpTag =
         "Click this button to show the window listing folimark (say in case it's hidden) and make it the "
         "active window.",
     .isCancel = true},
    {.name = "MaxButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {968, 594, 162, 20},
     .tabIndex = 8,
     .text = "Hide Columns  ⌘H",
     .helpTag = "Click this button to hide or show the Created, Modified and File Size columns."},
    {.name = "AlbumLabel",
     .controlClass = ControlClass::Label,
     .bounds = {20, 20, 1430, 20},
     .tabIndex = 9,
     .text = "No Album",
     .helpTag = "This is the list of folders leading to this album.",
     .align = TextAlign::Centre},
    {.name = "RemoveHighlightingPushButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {1195, 562, 210, 20},
     .tabIndex = 15,
     .text = "Remove Highlighting  ⌘R",
     .helpTag =
         "If one or more entries have been highlighted, click on this button to remove all highlighting.",
     .enabled = false},
    {.name = "HighlightPushButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {1225, 530, 151, 20},
     .tabIndex = 16,
     .text = "Highlight…  ⌘L",
     .helpTag = kHighlightHelp},
    {.name = "HighlightCountLabel",
     .controlClass = ControlClass::Label,
     .bounds = {1150, 594, 300, 20},
     .tabIndex = 17,
     .text = "0 Media Files Highlighted",
     .helpTag = "The number of media files that are currently highlighted is shown here.",
     .align = TextAlign::Centre},
};

} // namespace

void aListWindow::Layout() {
    MenuBar(DefaultMenuBar());
    Apply(kLayout);
}

void aListWindow::CreateControls() {
    _CreateControls0();
}

void aListWindow::_CreateControls0() {
    BuildControls(*this, kControls);
    std::vector<std::string> headings;
    for (const AlbumColumn& column : kAlbumColumns) {
        headings.emplace_back(column.heading);
    }
    TheListBox()->Headings(headings);
    TheListBox()->ColumnWidths(WidthsOfColumns(&AlbumColumn::widthShown));
    TheListBox()->Change = [this](Listbox& list) { TheListBox_Change(list); };
    TheListBox()->DoubleClick = [this](Listbox& list) { TheListBox_DoubleClick(list); };
    TheListBox()->CellBackgroundPaint = [this](Listbox& list, class Graphics& graphics, std::int64_t row,
                                               int column) {
        return TheListBox_CellBackgroundPaint(list, graphics, row, column);
    };
    TheListBox()->RowMarked = [this](Listbox& list, std::int64_t row) { return IsHighlighted(list, row); };
    TheListBox()->MarkColor(Look::kHighlightedRow);
    TheListBox()->ContextMenu = [this](Listbox&) { return CommandsOfRow(); };
    TheListBox()->CopyText = [this](Listbox&) { return PathOfSelectedRow(); };
    TheCanvas()->DoubleClick = [this](Canvas& canvas, int x, int y) { TheCanvas_DoubleClick(canvas, x, y); };
    TheCanvas()->PictureReady = [this](Canvas& canvas, const Ref<Picture>& picture, PictureRefusal refusal) {
        TheCanvas_PictureReady(canvas, picture, refusal);
    };
    TheCanvas()->PictureLate = [this](Canvas& canvas) { TheCanvas_PictureLate(canvas); };
    EditPushButton()->Action = [this](PushButton& button) { EditPushButton_Action(button); };
    FileReturn()->Action = [this](PushButton& button) { FileReturn_Action(button); };
    MaxButton()->Action = [this](PushButton& button) { MaxButton_Action(button); };
    RemoveHighlightingPushButton()->Action = [this](PushButton& button) {
        RemoveHighlightingPushButton_Action(button);
    };
    HighlightPushButton()->Action = [this](PushButton& button) { HighlightPushButton_Action(button); };
}

void aListWindow::Event_Open() {
    Opened = true;
}

void aListWindow::Event_Activate() {
    if (Opened) {
        Opened = false;
        MakeAndShowCatalog();
    }
}

bool aListWindow::Event_CancelClose(bool /*appQuitting*/) {
    return false;
}

void aListWindow::Yield() {
    RuntimeBackgroundTask();
    if (ControlCount() == 0) {
        throw EndException();
    }
}

void aListWindow::TheListBox_Change(Listbox& list) {
    if (list.LastIndex() < 0) {
        return; // A click before the scan has found anything.
    }
    try {
        if (list.ListIndex() > list.LastIndex() || list.ListIndex() < 0) {
            list.ListIndex(list.LastIndex()); // This raises Change once more, which draws.
            return;
        }
        DrawCatalogItem();
    } catch (const OutOfBoundsException&) {
        list.ListIndex(list.LastIndex());
        DrawCatalogItem();
    }
}

void aListWindow::TheListBox_DoubleClick(Listbox& /*list*/) {
    // No command in this list: files open from the button, the canvas and the menu.
}

} // namespace folimark
