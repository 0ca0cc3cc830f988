#include "TextField.h"

#include "NativeWindow.h"
#include "PlatformText.h"

#include <QLineEdit>

#include <limits>

namespace folimark {

void TextField::MakeWidget(NativeWindow& window) {
    auto* field = new QLineEdit(ToQString(text_), window.frame->Content());
    field->setMaxLength(std::numeric_limits<int>::max());
    QObject::connect(field, &QLineEdit::textChanged, &Native().connections,
                     [this](const QString& text) { text_ = ToText(text); });
    Native().widget = field;
}

void TextField::Text(const std::string& text) {
    text_ = text;
    if (auto* field = Native().As<QLineEdit>()) {
        field->setText(ToQString(text));
    }
}

} // namespace folimark
