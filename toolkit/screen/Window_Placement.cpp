#include "NativeWindow.h"
#include "PlatformText.h"
#include "Window.h"

namespace folimark {

// A closed window remembers where it would stand; nothing is there to see.

int Window::Left() const {
    return native_->frame ? native_->frame->ContentPosition().x() : left_;
}

void Window::Left(int left) {
    left_ = left;
    if (native_->frame) {
        native_->frame->PlaceContent(QPoint(left, Top()));
    }
}

int Window::Top() const {
    return native_->frame ? native_->frame->ContentPosition().y() : top_;
}

void Window::Top(int top) {
    top_ = top;
    if (native_->frame) {
        native_->frame->PlaceContent(QPoint(Left(), top));
    }
}

int Window::Width() const {
    return layout_.width;
}

int Window::Height() const {
    return native_->frame ? native_->frame->ContentHeight() : height_;
}

void Window::Height(int height) {
    height_ = height;
    if (native_->frame) {
        native_->frame->SetContentHeight(height);
    }
}

Color Window::BackColor() const {
    return layout_.backColor;
}

void Window::Title(const std::string& title) {
    title_ = title;
    if (native_->frame) {
        // "[*]" alone would stand for a mark that the window has changes.
        native_->frame->setWindowTitle(
            AsDisplayed(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    }
}

} // namespace folimark
