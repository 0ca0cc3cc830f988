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
    Backdrop(backdrop_);
}

void Canvas::Backdrop(Ref<Picture> picture) {
    backdrop_ = std::move(picture);
    auto* widget = Native().As<CanvasWidget>();
    if (widget == nullptr) {
        return;
    }
    if (backdrop_) {
        widget->Show(backdrop_->Native().image, QSize(backdrop_->Width(), backdrop_->Height()));
    } else {
        widget->Show(QImage(), QSize());
    }
}

} // namespace folimark
