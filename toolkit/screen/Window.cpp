#include "Window.h"

#include "Application.h"
#include "ClosedWidgets.h"
#include "FolderItem.h"
#include "MenuBarBuilder.h"
#include "NativeWindow.h"
#include "OpenWindowList.h"
#include "PlatformText.h"
#include "WindowSurface.h"

#include <QEventLoop>

namespace folimark {

Window::Window() : native_(std::make_shared<NativeWindow>()) {}

Window::~Window() {
    // Widgets that are still there belong to a window that was never shown, and look into its controls.
    if (native_->frame) {
        native_->frame->Release();
        delete native_->frame.data();
    }
}

void Window::Build() {
    // Events that arrive while the window is built need a handle on it; the first one must not end it.
    const Ref<Window> self(this);
    KeepAlive(self);
    Layout();
    if (!menuBar_ && CurrentApplication() != nullptr) {
        menuBar_ = CurrentApplication()->MenuBar();
    }
    native_->frame->Prepare();
    CreateControls();
    AddMenuHandlers(*this);
    if (menuBar_) {
        BuildMenuBar(*this);
    }
    for (const Ref<RectControl>& control : controls_) {
        if (const auto handler = control->Open) {
            handler();
        }
    }
    native_->frame->Prepare();
    Event_Open();
}

void Window::Apply(const WindowLayout& layout) {
    layout_ = layout;
    title_ = std::string(layout.title);
    native_->frame = new WindowFrame(*this, layout);
}

void Window::AddMenuHandlers(Window& /*window*/) {}

void Window::AddControl(Ref<RectControl> control, std::string_view name, int left, int top, int width,
                        int height) {
    control->Attach(*this, std::string(name), left, top, width, height);
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
    if (!native_->frame || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    if (state_ == State::Made) {
        state_ = State::Open;
        OpenWindowList().push_back(self);
        native_->frame->Prepare();
        if (layout_.frame == WindowLayout::kDocument) {
            native_->frame->PlaceFirst();
        }
    }
    native_->frame->setWindowState((native_->frame->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    native_->frame->show();
    native_->frame->raise();
    native_->frame->activateWindow();
    RunFirstActivate();
}

void Window::ShowModal() {
    if (!native_->frame) {
        return;
    }
    const Ref<Window> self(this);
    DropFolderCache();
    QEventLoop loop;
    native_->modalLoop = &loop;
    native_->frame->setWindowModality(Qt::ApplicationModal);
    Show();
    if (native_->frame) {
        loop.exec();
    }
    native_->modalLoop = nullptr;
    if (IsQuitting()) {
        throw EndException();
    }
}

void Window::RunFirstActivate() {
    if (!activated_) {
        activated_ = true;
        Event_Activate();
    }
}

void Window::ActivatedByUser() {
    // Before Show has run the first Activate itself, the window system's word is ahead of the order of
    // events.
    if (activated_) {
        const Ref<Window> self(this);
        Event_Activate();
    }
}

void Window::Close() {
    if (!native_->frame || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    struct Asking { // Meanwhile the window can't be closed or shown by others.
        explicit Asking(State& windowState)
            : state(windowState), before(std::exchange(state, State::Closing)) {}
        Asking(const Asking&) = delete;
        Asking& operator=(const Asking&) = delete;
        ~Asking() { state = before; }
        State& state;
        State before;
    };
    bool stays = false;
    {
        const Asking asking(state_);
        stays = Event_CancelClose(IsQuitting());
    }
    if (!stays) {
        CloseUnasked();
    }
}

void Window::CloseUnasked() {
    if (!native_->frame || state_ == State::Closing) {
        return;
    }
    const Ref<Window> self(this);
    state_ = State::Closing;
    // The window goes down also when its Close event fails.
    struct Finally {
        Window& window;
        ~Finally() { window.TakeDown(); }
    } const finally{*this};
    Event_Close();
}

void Window::TakeDown() {
    state_ = State::Closed;
    for (const Ref<RectControl>& control : controls_) {
        control->Detach();
    }
    if (native_->frame) {
        WindowFrame* const frame = std::exchange(native_->frame, nullptr);
        frame->Release();
        frame->hide();
        // The widgets look into the controls until they go.
        QObject::connect(frame, &QObject::destroyed, [self = Ref<Window>(this)] {});
        DeleteWhenIdle(frame);
    }
    if (native_->modalLoop != nullptr) {
        native_->modalLoop->quit();
    }
    ForgetOpenWindow(*this);
}

int Window::ControlCount() const {
    return native_->frame ? static_cast<int>(controls_.size()) : 0;
}

Ref<folimark::Graphics> Window::Graphics() {
    if (!graphics_) {
        graphics_ = New<folimark::Graphics>(std::make_unique<WindowSurface>(native_));
    }
    return graphics_;
}

void Window::ResizedByUser(bool ended) {
    const Ref<Window> self(this);
    if (ended) {
        Event_Resized();
    } else {
        Event_Resizing();
    }
}

bool Window::KeyDownByUser(const std::string& key) {
    return !key.empty() && Event_KeyDown(key);
}

} // namespace folimark
