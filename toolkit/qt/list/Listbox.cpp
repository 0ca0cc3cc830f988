#include "Listbox.h"

#include "ListView.h"
#include "NativeControl.h"
#include "WindowFrame.h"

namespace folimark {

void Listbox::MakeWidget(WindowFrame& frame) {
    auto* view = new ListView(*this, frame.Content());
    view->setHorizontalScrollBarPolicy(horizontalScrollBar_ ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    Native().widget = view;
    view->ShowColumns(columnWidths_);
}

void Listbox::FitWidget(const WindowFrame& frame) {
    Native().As<ListView>()->Measure(frame.RowPixels());
    RectControl::FitWidget(frame);
}

NativeList* Listbox::View() const {
    return Native().As<ListView>();
}

} // namespace folimark
