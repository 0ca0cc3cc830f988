#pragma once

#include <functional>
#include <memory>
#include <string>

namespace folimark {

class Window;
struct WindowLayout;

/// What the window system does for a Window. Positions and sizes are units; positions are those of
/// the content on the screen.
class NativeWindow {
  public:
    virtual ~NativeWindow() = default;

    /// Gets the window ready to be shown: its size, its limits, and how much its bars take.
    virtual void Prepare() = 0;
    /// Gives a window that nobody has placed its place.
    virtual void PlaceFirst() = 0;
    /// Makes the window visible, on top of the others, and gives it the keyboard.
    virtual void BringToFront() = 0;
    /// Fills the menu bar from the window's.
    virtual void BuildMenus() = 0;

    virtual int ContentLeft() const = 0;
    virtual int ContentTop() const = 0;
    virtual void PlaceContent(int left, int top) = 0;
    virtual int ContentHeight() const = 0;
    virtual void SetContentHeight(int height) = 0;
    virtual void SetTitle(const std::string& title) = 0;

    /// Calls `handler` when the key is pressed in this window.
    virtual void AddKey(const std::string& key, std::function<void()> handler) = 0;
    /// From the next showing on no other window takes input. The window then belongs to the one in front, and
    /// stands over its middle.
    virtual void MakeModal() = 0;
    /// Lets events in until the window is taken down. The object may have gone when it returns.
    virtual void WaitUntilTakenDown() = 0;
    /// Lets go of the Window and hides. The object deletes itself, when nothing can be using it any more, and
    /// keeps the Window alive until then, for its widgets look into the controls.
    virtual void TakeDown() = 0;
};

std::unique_ptr<NativeWindow> MakeNativeWindow(Window& window, const WindowLayout& layout);

} // namespace folimark
