#pragma once

#include "PictureSurface.h"

namespace folimark {

struct NativeWindow;

/// Draws on a window, under its controls. Without effect once the window has closed.
class WindowSurface : public PictureSurface {
  public:
    explicit WindowSurface(std::shared_ptr<NativeWindow> window) : window_(std::move(window)) {}

    int Width() const override;
    int Height() const override;
    /// A canvas that is cleared as a whole goes blank with it.
    void ClearRect(int x, int y, int width, int height) override;

  protected:
    NativePicture* Target() const override;

  private:
    std::shared_ptr<NativeWindow> window_;
};

} // namespace folimark
