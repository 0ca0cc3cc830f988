#pragma once

#include "Object.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace folimark {

class ToolkitKey;
struct NativeMenuItem;

/// A menu, or an item of one. All windows that share a menu bar show the same items. They see at once what is
/// written to Text and Enabled; all else is taken when a window is built.
class MenuItem : public Object {
  public:
    MenuItem();
    ~MenuItem() override;

    /// The name that handlers and lookups go by.
    const std::string& Name() const { return name_; }
    void Name(const std::string& name) { name_ = name; }
    /// The caption; "-" makes a separator, and a "&" marks the letter behind it as the mnemonic.
    const std::string& Text() const { return text_; }
    void Text(const std::string& text);
    /// "Cmd+" and a letter, or "" for none. "Cmd" is this platform's Ctrl.
    const std::string& KeyboardShortcut() const { return shortcut_; }
    void KeyboardShortcut(const std::string& shortcut) { shortcut_ = shortcut; }
    /// Is the item enabled whenever the front window has a handler for it?
    bool AutoEnable() const { return autoEnable_; }
    void AutoEnable(bool autoEnable) { autoEnable_ = autoEnable; }
    bool Visible() const { return visible_; }
    void Visible(bool visible) { visible_ = visible; }
    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);

    void Append(Ref<MenuItem> child) { children_.push_back(std::move(child)); }
    /// The direct child of that name, or nil.
    Ref<MenuItem> Child(std::string_view name) const;
    /// The item of that name anywhere below this one, or nil.
    Ref<MenuItem> Find(std::string_view name) const;
    const std::vector<Ref<MenuItem>>& Children() const { return children_; }

    bool IsSeparator() const { return text_ == "-"; }

    NativeMenuItem& Native(const ToolkitKey&) const { return *native_; }

  private:
    std::unique_ptr<NativeMenuItem> native_;
    std::vector<Ref<MenuItem>> children_;
    std::string name_;
    std::string text_;
    std::string shortcut_;
    bool autoEnable_ = true;
    bool visible_ = true;
    bool enabled_ = true;
};

/// The item that quits the application; the toolkit serves it.
class QuitMenuItem : public MenuItem {};

/// An item about the application itself. It stands at the end of the last menu here, where people on this
/// desktop look for it, and keeps its place in the tree.
class AppleMenuItem : public MenuItem {};

/// A menu bar; its children are the menus.
class MenuBar : public MenuItem {};

} // namespace folimark
