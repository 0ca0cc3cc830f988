#include "Canvas.h"

#include "CanvasWidget.h"
#include "NativePicture.h"
#include "NativeWindow.h"

namespace folimark {

void Canvas::MakeWidget(NativeWindow& window) {
    Native().widget = new CanvasWidget(window.frame->Content(), [this](int x, int y) {
        FromUser([this, x, y] {
            if (const auto handler = DoubleClick) {
                handler(*this, x, y);
            }
        });
    });
}

void Canvas::Backdrop(Ref<Picture> picture) {
    backdrop_ = std::move(picture);
    if (!backdrop_) {
        ShowBlank();
    } else if (auto* widget = Native().As<CanvasWidget>()) {
        widget->Show(backdrop_->Native().image, QSize(backdrop_->Width(), backdrop_->Height()));
    }
}

void Canvas::ShowBlank() {
    if (auto* widget = Native().As<CanvasWidget>()) {
        widget->Show(QImage(), QSize());
    }
}

} // namespace folimark
