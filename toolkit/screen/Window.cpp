#include "Window.h"

#include "Application.h"
#include "Canvas.h"
#include "EventGate.h"
#include "Finally.h"
#include "NativeWindow.h"
#include "OpenWindows.h"
#include "ToolkitKey.h"

namespace folimark {

void WindowGraphics::ClearRect(int x, int y, int width, int height) const {
    for (const Ref<RectControl>& control : window_->Controls(kToolkit)) {
        const Ref<Canvas> canvas = control.As<Canvas>();
        if (canvas && canvas->Left() >= x && canvas->Top() >= y
            && canvas->Left() + canvas->Width() <= x + width
            && canvas->Top() + canvas->Height() <= y + height) {
            canvas->GoBlank(kToolkit);
        }
    }
}

Window::Window() = default;

Window::~Window() = default; // Widgets that are still there belong to a window that was never shown.

void Window::Build() {
    Layout();
    if (!menuBar_ && CurrentApplication() != nullptr) {
        menuBar_ = CurrentApplication()->MenuBar();
    }
    native_->Prepare();
    CreateControls();
    AddMenuHandlers(*this);
    if (menuBar_) {
        native_->BuildMenus();
    }
    for (const Ref<RectControl>& control : controls_) {
        RectControl::Raise(control->Open);
    }
    native_->Prepare();
    Event_Open();
}

void Window::Apply(const WindowLayout& layout) {
    layout_ = layout;
    title_ = std::string(layout.title);
    native_ = MakeNativeWindow(*this, layout);
}

void Window::AddMenuHandlers(Window& /*window*/) {}

void Window::AddControl(Ref<RectControl> control, std::string_view name, const Bounds& bounds) {
    control->Attach(*this, std::string(name), bounds);
    controls_.push_back(std::move(control));
}

Ref<RectControl> Window::FindControl(std::string_view name) const {
    for (const Ref<RectControl>& control : controls_) {
        if (control->Name() == name) {
            return control;
        }
    }
    return {};
}

void Window::RaiseNoControl(std::string_view name) const {
    throw NameNotFoundException(ClassNameOf(typeid(*this)) + " has no control “" + std::string(name)
                                + "” of that class.");
}

void Window::Show() {
    if (!native_ || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    if (state_ == State::Made) {
        state_ = State::Open;
        AddOpenWindow(self);
        native_->Prepare();
        if (layout_.frame == WindowKind::Document) {
            native_->PlaceFirst();
        }
    }
    native_->BringToFront();
    RunFirstActivate();
}

void Window::ShowModal() {
    if (!native_) {
        return;
    }
    const Ref<Window> self(this);
    native_->MakeModal();
    Show();
    LetEventsIn([this] {
        if (native_) {
            native_->WaitUntilTakenDown();
        }
    });
}

void Window::RunFirstActivate() {
    if (!activated_) {
        activated_ = true;
        Event_Activate();
    }
}

void Window::ActivatedByUser(const ToolkitKey&) {
    // Before Show has run the first Activate itself, the window system's word is ahead of the order of
    // events.
    if (activated_) {
        const Ref<Window> self(this);
        Event_Activate();
    }
}

void Window::Close() {
    if (!native_ || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    if (!AsksToStay()) {
        CloseUnasked();
    }
}

bool Window::AsksToStay() {
    // Meanwhile the window can't be closed or shown by others.
    const Finally restore([this, before = std::exchange(state_, State::Closing)] { state_ = before; });
    return Event_CancelClose(IsQuitting());
}

void Window::CloseUnasked() {
    if (!native_ || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    state_ = State::Closing;
    // The window goes down also when its Close event fails.
    const Finally takeDown([this] { TakeDown(kToolkit); });
    Event_Close();
}

void Window::TakeDown(const ToolkitKey&) {
    const Ref<Window> self(this);
    state_ = State::Closed;
    for (const Ref<RectControl>& control : controls_) {
        control->Detach();
    }
    if (NativeWindow* native = native_.release()) {
        native->TakeDown();
    }
    ForgetOpenWindow(*this);
}

int Window::ControlCount() const {
    return native_ ? static_cast<int>(controls_.size()) : 0;
}

void Window::ResizedByUser(const ToolkitKey&, bool ended) {
    const Ref<Window> self(this);
    if (ended) {
        Event_Resized();
    } else {
        Event_Resizing();
    }
}

bool Window::KeyDownByUser(const ToolkitKey&, const std::string& key) {
    const InputHold inOrder; // The next key is for what this one leaves.
    return !key.empty() && Event_KeyDown(key);
}

} // namespace folimark
