#include "Label.h"

#include "ElidedLabel.h"
#include "NativeControl.h"
#include "PlatformText.h"
#include "WindowFrame.h"

namespace folimark {

void Label::MakeWidget(WindowFrame& frame) {
    auto* label = new ElidedLabel(frame.Content());
    label->setText(AsDisplayed(text_));
    Native().widget = label;
    Align(align_);
}

void Label::Text(const std::string& text) {
    text_ = text;
    if (auto* label = Native().As<ElidedLabel>()) {
        label->setText(AsDisplayed(text));
    }
}

void Label::Align(TextAlign align) {
    align_ = align;
    if (auto* label = Native().As<ElidedLabel>()) {
        const Qt::Alignment horizontal = align == TextAlign::Centre  ? Qt::AlignHCenter
                                         : align == TextAlign::Right ? Qt::AlignRight
                                                                     : Qt::AlignLeft;
        label->setAlignment(horizontal | Qt::AlignVCenter);
    }
}

} // namespace folimark
