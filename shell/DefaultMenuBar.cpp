#include "DefaultMenuBar.h"

#include <span>

namespace folimark {
namespace {

enum class Kind : std::uint8_t { Plain, Quit, About };

struct MenuRow {
    std::string_view name;
    Kind kind;
    std::string_view text;
    std::string_view shortcut;
    bool autoEnable;
};

constexpr MenuRow kFileMenu[] = {
    {"FileMenu", Kind::Plain, "&File", "", true},
    {"FileHideColumns", Kind::Plain, "Hide Columns", "Cmd+h", true},
    {"UntitledSeparator", Kind::Plain, "-", "", true},
    {"FileOpenFile", Kind::Plain, "Open Media File", "Cmd+o", false},
    {"UntitledSeparator1", Kind::Plain, "-", "", true},
    {"FileShowFolimarkWindow", Kind::Plain, "Show Folimark Window", "Cmd+w", false},
    {"UntitledSeparator0", Kind::Plain, "-", "", true},
    {"RevealItem", Kind::Plain, "Reveal Album in Finder", "Cmd+F", true},
    {"UntitledSeparator3", Kind::Plain, "-", "", true},
    {"FileQuit", Kind::Quit, "&Quit", "Cmd+Q", true},
    {"FileAboutFolimark", Kind::About, "About Folimark…", "", true},
};

constexpr MenuRow kEditMenu[] = {
    {"EditMenu", Kind::Plain, "&Edit", "", true},
    {"EditUndo", Kind::Plain, "&Undo", "Cmd+Z", false},
    {"UntitledMenu1", Kind::Plain, "-", "", false},
    {"EditCut", Kind::Plain, "Cu&t", "Cmd+X", false},
    {"EditCopy", Kind::Plain, "&Copy", "Cmd+C", false},
    {"EditPaste", Kind::Plain, "&Paste", "Cmd+V", false},
    {"EditClear", Kind::Plain, "&Delete", "", false},
    {"UntitledMenu0", Kind::Plain, "-", "", false},
    {"EditSelectAll", Kind::Plain, "Select &All", "Cmd+A", false},
    {"UntitledSeparator2", Kind::Plain, "-", "", true},
    {"EditHighlight", Kind::Plain, "Highlight", "Cmd+L", false},
    {"EditRemoveHighlighting", Kind::Plain, "Remove Highlighting", "Cmd+R", false},
};

constexpr MenuRow kHelpMenu[] = {
    {"Help", Kind::Plain, "Help", "", true},
    {"HelpFolimarkHelp", Kind::Plain, "Folimark Help Sheet", "", true},
};

Ref<MenuItem> MakeItem(const MenuRow& row) {
    Ref<MenuItem> item;
    switch (row.kind) {
    case Kind::Plain:
        item = New<MenuItem>();
        break;
    case Kind::Quit:
        item = New<QuitMenuItem>();
        break;
    case Kind::About:
        item = New<AppleMenuItem>();
        break;
    }
    item->Name(std::string(row.name));
    item->AutoEnable(row.autoEnable);
    item->Text(std::string(row.text));
    item->Visible(true);
    if (!item->IsSeparator()) {
        item->KeyboardShortcut(std::string(row.shortcut));
    }
    return item;
}

/// Builds one menu; the first row is the menu itself.
void AddMenu(MenuBar& bar, std::span<const MenuRow> rows) {
    bar.Append(MakeItem(rows.front()));
    const Ref<MenuItem> menu = bar.Child(rows.front().name);
    for (const MenuRow& row : rows.subspan(1)) {
        menu->Append(MakeItem(row));
    }
}

} // namespace

Ref<class DefaultMenuBar> DefaultMenuBar() {
    static const auto& bar = *new Ref<class DefaultMenuBar>(New<class DefaultMenuBar>()); // as windows do
    return bar;
}

DefaultMenuBar::DefaultMenuBar() {
    Constructor();
}

void DefaultMenuBar::Constructor() {
    Untitled0();
    Untitled1();
    Untitled2();
}

void DefaultMenuBar::Untitled0() {
    AddMenu(*this, kFileMenu);
}

void DefaultMenuBar::Untitled1() {
    AddMenu(*this, kEditMenu);
}

void DefaultMenuBar::Untitled2() {
    AddMenu(*this, kHelpMenu);
}

} // namespace folimark
