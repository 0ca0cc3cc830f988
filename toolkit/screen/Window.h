#pragma once

#include "Color.h"
#include "FolderItem.h"
#include "MenuBar.h"
#include "RectControl.h"
#include "Units.h"

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace folimark {

class NativeWindow;
class ToolkitKey;

enum class WindowKind : std::uint8_t { Document = 0, Sheet = 8 };

/// What is fixed about a kind of window. Sizes are those of the content, in units.
struct WindowLayout {
    std::string_view title{};
    int width = 0;
    int height = 0;
    int minHeight = 0;
    int maxHeight = 0; ///< the width is fixed for all of the application's windows
    WindowKind frame = WindowKind::Document;
    bool closeButton = true;
    bool minimizeButton = true;
    bool resizeable = false;
    bool hasBackColor = true;
    Color backColor = 0xFFFFFF;
    /// The control that has the keyboard when the user comes back from another window; "" for the one that
    /// had it.
    std::string_view keyboardHome{};
    std::span<const Slack> slackAcross{};
    std::span<const Slack> slackDown{};
};

class Window;

/// What can be done to a window itself, on which nothing but its controls is drawn.
class WindowGraphics {
  public:
    explicit WindowGraphics(Ref<Window> window) : window_(std::move(window)) {}

    /// Clears a rectangle to the window's background: a canvas that lies in it as a whole goes blank until it
    /// is given a picture. Logical pixels, relative to the window's content.
    void ClearRect(int x, int y, int width, int height) const;

  private:
    Ref<Window> window_;
};

/// A window. The toolkit owns it from the moment that it is shown until it has closed; handles on it stay
/// valid objects after that: a closed window has no controls, and whatever is asked of it does no harm.
///
/// `New` lays a window out, makes its controls, connects its menu handlers and then raises the controls' Open
/// events and the window's own. The first Activate comes inside the first Show.
class Window : public Object {
  public:
    ~Window() override;

    /// Makes the window visible and brings it to the front. What the first Activate raises leaves this call.
    void Show();
    /// Shows the window and blocks until it has closed; no other window takes input meanwhile.
    void ShowModal();
    /// Closes the window, unless CancelClose keeps it open. Without effect on a closed window.
    void Close();
    /// Closes the window after its Close event; CancelClose isn't asked.
    void CloseUnasked();

    /// The content's place on the screen: what was set is what is read, whatever frame the window manager
    /// draws around it.
    int Left() const;
    void Left(int left);
    int Top() const;
    void Top(int top);
    int Width() const;
    /// Height of the content, without the menu bar and the toolbar.
    int Height() const;
    void Height(int height);

    const std::string& Title() const { return title_; }
    void Title(const std::string& title);
    Color BackColor() const;
    /// How many controls the window has; 0 once it has closed.
    int ControlCount() const;
    WindowGraphics Graphics() { return WindowGraphics(Ref<Window>(this)); }

    Ref<folimark::MenuBar> MenuBar() const { return menuBar_; }
    void MenuBar(Ref<folimark::MenuBar> bar) { menuBar_ = std::move(bar); }
    /// Connects the menu item of that name with a handler, which answers whether the command is done.
    void MenuHandler(const std::string& itemName, std::function<bool()> handler);

    /// Connects a key that no menu shows with a handler: "F1", "Ctrl+N", "Delete".
    void KeyHandler(const std::string& key, std::function<void()> handler);

    /// Takes a control into the window; the builder of control tables calls it.
    void AddControl(Ref<RectControl> control, std::string_view name, const Bounds& bounds);

    /// \name For the toolkit
    /// @{
    /// Closes the window without any event.
    void TakeDown(const ToolkitKey&);
    /// Null once the window has closed.
    NativeWindow* Native(const ToolkitKey&) const { return native_.get(); }
    const std::vector<Ref<RectControl>>& Controls(const ToolkitKey&) const { return controls_; }
    void ChooseMenuItem(const ToolkitKey&, const Ref<MenuItem>& item);
    void UpdateMenuItems(const ToolkitKey&);
    void ActivatedByUser(const ToolkitKey&);
    void ResizedByUser(const ToolkitKey&, bool ended);
    bool KeyDownByUser(const ToolkitKey&, const std::string& key);
    /// @}

    /// \name Events
    /// @{
    virtual void Event_Open() {}
    /// The window has become the front window.
    virtual void Event_Activate() {}
    virtual void Event_Close() {}
    /// Asked before Close; True keeps the window open.
    virtual bool Event_CancelClose(bool /*appQuitting*/) { return false; }
    /// A resize by the user has ended.
    virtual void Event_Resized() {}
    /// The user is dragging the window's size.
    virtual void Event_Resizing() {}
    /// May folders be dropped on the window now? What is no folder never may.
    virtual bool AcceptsFolders() const { return false; }
    /// A folder has been dropped on the window.
    virtual void Event_DropFolder(const Ref<FolderItem>& /*folder*/) {}
    /// A key was pressed that no control took; True if it has been used.
    virtual bool Event_KeyDown(const std::string& /*key*/) { return false; }
    /// The menus are about to be shown or a shortcut is about to be tried.
    virtual void Event_EnableMenuItems() {}
    /// @}

  protected:
    Window();

    void Build() override;
    virtual void Layout() = 0;
    virtual void CreateControls() = 0;
    virtual void AddMenuHandlers(Window& window);
    /// Sets all of a window's fixed properties.
    void Apply(const WindowLayout& layout);

    /// The control of that name as an object of its class. Raises NameNotFoundException for any other name.
    template <class ControlClass>
    Ref<ControlClass> Control(std::string_view name) const {
        Ref<ControlClass> control = FindControl(name).template As<ControlClass>();
        if (!control) {
            RaiseNoControl(name);
        }
        return control;
    }

  private:
    Ref<RectControl> FindControl(std::string_view name) const;
    [[noreturn]] void RaiseNoControl(std::string_view name) const;
    void RunFirstActivate();
    bool AsksToStay();

    enum class State : std::uint8_t { Made, Open, Closing, Closed };

    std::unique_ptr<NativeWindow> native_;
    WindowLayout layout_;
    std::string title_;
    Ref<folimark::MenuBar> menuBar_;
    std::map<std::string, std::function<bool()>> menuHandlers_;
    std::vector<Ref<RectControl>> controls_;
    int left_ = 0;
    int top_ = 0;
    int height_ = 0;
    State state_ = State::Made;
    bool activated_ = false;
};

} // namespace folimark
