#include "TextField.h"

#include "NativeControl.h"
#include "PlatformText.h"
#include "WindowFrame.h"

#include <QFocusEvent>
#include <QLineEdit>

#include <limits>
#include <utility>

namespace folimark {
namespace {

/// Selects its text when the keyboard comes to it, so that typing replaces what stands there: the first time,
/// and whenever the application sends the keyboard here. Coming back to the window leaves the selection as it
/// was.
class Field : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (!std::exchange(visited_, true) || event->reason() == Qt::OtherFocusReason) {
            selectAll();
        }
    }

  private:
    bool visited_ = false;
};

} // namespace

void TextField::MakeWidget(WindowFrame& frame) {
    auto* field = new Field(ToQString(text_), frame.Content());
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
