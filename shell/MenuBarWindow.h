#pragma once

#include "Window.h"

namespace folimark {

/// A window with the application's menu bar, and an accessor for each of its items, named like the item. All
/// windows share the items.
class MenuBarWindow : public Window {
  public:
    Ref<MenuItem> FileMenu() const { return Item("FileMenu"); }
    Ref<MenuItem> FileHideColumns() const { return Item("FileHideColumns"); }
    Ref<MenuItem> UntitledSeparator() const { return Item("UntitledSeparator"); }
    Ref<MenuItem> FileOpenFile() const { return Item("FileOpenFile"); }
    Ref<MenuItem> UntitledSeparator1() const { return Item("UntitledSeparator1"); }
    Ref<MenuItem> FileShowFolimarkWindow() const { return Item("FileShowFolimarkWindow"); }
    Ref<MenuItem> UntitledSeparator0() const { return Item("UntitledSeparator0"); }
    Ref<MenuItem> RevealItem() const { return Item("RevealItem"); }
    Ref<MenuItem> UntitledSeparator3() const { return Item("UntitledSeparator3"); }
    Ref<QuitMenuItem> FileQuit() const { return Item("FileQuit").As<QuitMenuItem>(); }
    Ref<AppleMenuItem> FileAboutFolimark() const { return Item("FileAboutFolimark").As<AppleMenuItem>(); }
    Ref<MenuItem> EditMenu() const { return Item("EditMenu"); }
    Ref<MenuItem> EditUndo() const { return Item("EditUndo"); }
    Ref<MenuItem> UntitledMenu1() const { return Item("UntitledMenu1"); }
    Ref<MenuItem> EditCut() const { return Item("EditCut"); }
    Ref<MenuItem> EditCopy() const { return Item("EditCopy"); }
    Ref<MenuItem> EditPaste() const { return Item("EditPaste"); }
    Ref<MenuItem> EditClear() const { return Item("EditClear"); }
    Ref<MenuItem> UntitledMenu0() const { return Item("UntitledMenu0"); }
    Ref<MenuItem> EditSelectAll() const { return Item("EditSelectAll"); }
    Ref<MenuItem> UntitledSeparator2() const { return Item("UntitledSeparator2"); }
    Ref<MenuItem> EditHighlight() const { return Item("EditHighlight"); }
    Ref<MenuItem> EditRemoveHighlighting() const { return Item("EditRemoveHighlighting"); }
    Ref<MenuItem> Help() const { return Item("Help"); }
    Ref<MenuItem> HelpFolimarkHelp() const { return Item("HelpFolimarkHelp"); }

  private:
    Ref<MenuItem> Item(std::string_view name) const { return MenuBar()->Find(name); }
};

} // namespace folimark
