#pragma once

#include "Picture.h"
#include "RectControl.h"

namespace folimark {

/// A place for one picture, drawn from its top left corner.
class Canvas : public RectControl {
  public:
    const Ref<Picture>& Backdrop() const { return backdrop_; }
    /// A nil picture shows the window's own colour.
    void Backdrop(Ref<Picture> picture);

    /// The user double-clicked; given the place in the canvas, in logical pixels.
    std::function<void(Canvas&, int x, int y)> DoubleClick;

  protected:
    void MakeWidget(NativeWindow& window) override;

  private:
    Ref<Picture> backdrop_;
};

} // namespace folimark
