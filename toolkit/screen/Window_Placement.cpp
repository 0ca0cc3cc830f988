#include "NativeWindow.h"
#include "Window.h"

namespace folimark {

// A closed window remembers where it would stand; nothing is there to see.

int Window::Left() const {
    return native_ ? native_->ContentLeft() : left_;
}

void Window::Left(int left) {
    left_ = left;
    if (native_) {
        native_->PlaceContent(left, Top());
    }
}

int Window::Top() const {
    return native_ ? native_->ContentTop() : top_;
}

void Window::Top(int top) {
    top_ = top;
    if (native_) {
        native_->PlaceContent(Left(), top);
    }
}

int Window::Width() const {
    return layout_.width;
}

int Window::Height() const {
    return native_ ? native_->ContentHeight() : height_;
}

void Window::Height(int height) {
    height_ = height;
    if (native_) {
        native_->SetContentHeight(height);
    }
}

Color Window::BackColor() const {
    return layout_.backColor;
}

void Window::Title(const std::string& title) {
    title_ = title;
    if (native_) {
        native_->SetTitle(title);
    }
}

} // namespace folimark
