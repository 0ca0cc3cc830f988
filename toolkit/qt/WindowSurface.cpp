#include "WindowSurface.h"

#include "CanvasWidget.h"
#include "NativeWindow.h"

namespace folimark {

int WindowSurface::Width() const {
    return window_->frame ? window_->frame->Content()->width() : 0;
}

int WindowSurface::Height() const {
    return window_->frame ? window_->frame->Content()->height() : 0;
}

NativePicture* WindowSurface::Target() const {
    if (!window_->frame) {
        return nullptr;
    }
    window_->frame->Content()->update();
    return &window_->frame->Content()->Underlay();
}

void WindowSurface::ClearRect(int x, int y, int width, int height) {
    if (!window_->frame) {
        return;
    }
    // Most windows never draw on themselves, and need nothing to draw on for being cleared.
    if (window_->frame->Content()->HasUnderlay()) {
        PictureSurface::ClearRect(x, y, width, height);
    }
    for (QObject* child : window_->frame->Content()->children()) {
        auto* canvas = dynamic_cast<CanvasWidget*>(child);
        if (canvas != nullptr && QRect(x, y, width, height).contains(canvas->geometry())) {
            canvas->Show(QImage(), QSize());
        }
    }
}

} // namespace folimark
