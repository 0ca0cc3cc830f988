#include "PushButton.h"

#include "NativeControl.h"
#include "PlatformText.h"
#include "WindowFrame.h"

#include <QPushButton>

namespace folimark {

void PushButton::MakeWidget(WindowFrame& frame) {
    auto* button = new QPushButton(AsCaption(caption_), frame.Content());
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus); // A click leaves the keyboard to the list.
    button->setDefault(default_);
    QObject::connect(button, &QPushButton::clicked, &Native().connections,
                     [this] { FromUser([this] { Raise(Action, *this); }); });
    button->installEventFilter(&frame); // for the keys that walk through the list
    Native().widget = button;
}

void PushButton::Caption(const std::string& caption) {
    caption_ = caption;
    if (auto* button = Native().As<QPushButton>()) {
        button->setText(AsCaption(caption));
    }
}

void PushButton::Push() {
    if (Enabled() && Native().widget) {
        Raise(Action, *this);
    }
}

void PushButton::Click(const ToolkitKey&) {
    if (auto* button = Native().As<QPushButton>()) {
        button->click();
    }
}

} // namespace folimark
