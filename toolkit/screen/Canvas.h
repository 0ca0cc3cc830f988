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
    /// For the toolkit: shows the window's own colour until the next write to Backdrop, which keeps its
    /// value.
    void GoBlank(const ToolkitKey&);

    /// The user double-clicked; given the place in the canvas, in units.
    std::function<void(Canvas&, int x, int y)> DoubleClick;

  protected:
    void MakeWidget(WindowFrame& frame) override;
    void FitWidget(const WindowFrame& frame) override;

  private:
    Ref<Picture> backdrop_;
};

} // namespace folimark
