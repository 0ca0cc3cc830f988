#include "Canvas.h"

#include "CanvasWidget.h"
#include "NativeControl.h"
#include "NativePicture.h"
#include "ToolkitKey.h"
#include "WindowFrame.h"

namespace folimark {

void Canvas::MakeWidget(WindowFrame& frame) {
    Native().widget = new CanvasWidget(frame.Content(), [this](int x, int y) {
        FromUser([this, x, y] {
            if (const auto handler = DoubleClick) {
                handler(*this, x, y);
            }
        });
    });
    Backdrop(backdrop_);
}

void Canvas::FitWidget(const WindowFrame& frame) {
    RectControl::FitWidget(frame);
    Native().As<CanvasWidget>()->Measure(QSize(Width(), Height()));
}

void Canvas::Backdrop(Ref<Picture> picture) {
    backdrop_ = std::move(picture);
    if (!backdrop_) {
        GoBlank(kToolkit);
    } else if (auto* widget = Native().As<CanvasWidget>()) {
        widget->Show(backdrop_->Native(kToolkit).image, QSize(backdrop_->Width(), backdrop_->Height()));
    }
}

void Canvas::GoBlank(const ToolkitKey&) {
    if (auto* widget = Native().As<CanvasWidget>()) {
        widget->Show(QImage(), QSize());
    }
}

} // namespace folimark
