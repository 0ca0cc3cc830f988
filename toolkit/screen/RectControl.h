#pragma once

#include "Object.h"

#include <functional>
#include <memory>
#include <string>
#include <type_traits>

namespace folimark {

class ToolkitKey;
class Window;
class WindowFrame;
struct NativeControl;

/// A rectangle of a window's content, in units.
struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The common base of all controls. It holds a control's properties; the widget that shows them belongs to
/// the window system and goes with the window, after which the properties still answer and writing them does
/// no harm. Positions and sizes are units, relative to the window's content.
class RectControl : public Object {
  public:
    ~RectControl() override;

    const std::string& Name() const { return name_; }
    int Left() const { return bounds_.left; }
    int Top() const { return bounds_.top; }
    int Width() const { return bounds_.width; }
    virtual int Height() const { return bounds_.height; }
    void Height(int height);

    bool Enabled() const { return enabled_; }
    /// A disabled control takes no input and looks dimmed.
    void Enabled(bool enabled);
    bool Visible() const { return visible_; }
    /// A control that had the keyboard focus when it was hidden has it again when it is shown.
    void Visible(bool visible);
    /// Tooltip; a Chr(13) breaks the line.
    const std::string& HelpTag() const { return helpTag_; }
    void HelpTag(const std::string& text);
    /// The name under which assistive technology announces the control; its caption or text if "".
    void AccessibleName(const std::string& name);

    /// Redraws the control now, its background erased first.
    void Refresh(bool eraseBackground = true);
    void SetFocus();
    /// Fits the control to its window, which may have changed its measure.
    void Arrange(const ToolkitKey&);
    /// The Tab key brings the keyboard here from `previous`.
    void TabAfter(const RectControl& previous);

    /// Raised once, when the control exists and before its window's own Open.
    std::function<void()> Open;

  protected:
    RectControl();

    /// Makes the widget in the window's frame; called once, when the window takes the control.
    virtual void MakeWidget(WindowFrame& frame) = 0;
    /// Gives the widget its rectangle of the frame, and what else goes with the frame's measure.
    virtual void FitWidget(const WindowFrame& frame);
    /// The window has closed, and the widget has gone.
    virtual void WindowClosed() {}
    /// The widget behind the control, which may have gone.
    NativeControl& Native() const { return *native_; }

    /// Runs an event's handler, if there is one. It is a copy that runs: a handler may be replaced meanwhile,
    /// or go with its control.
    template <class... Arguments>
    static void Raise(const std::function<void(Arguments...)> handler,
                      std::type_identity_t<Arguments>... arguments) {
        if (handler) {
            handler(arguments...);
        }
    }
    /// Runs `handler` as an event that the user caused, with the window kept alive until it returns.
    void FromUser(const std::function<void()>& handler) const;
    /// The same for a handler that only paints, or answers what is going to be painted.
    void ToPaint(const std::function<void()>& handler) const;

  private:
    friend class Window;
    void Attach(Window& owner, std::string name, const Bounds& bounds);
    void Detach();

    std::unique_ptr<NativeControl> native_;
    Window* owner_ = nullptr;
    std::string name_;
    std::string helpTag_;
    std::string accessibleName_;
    Bounds bounds_;
    bool enabled_ = true;
    bool visible_ = true;
    bool hiddenWithFocus_ = false;
};

} // namespace folimark
