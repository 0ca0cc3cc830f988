#include "TextField.h"

#include "NativeControl.h"
#include "PlatformText.h"
#include "WindowFrame.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTimer>
#include <QValidator>

#include <algorithm>
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

/// Line ends at a text's ends go, those inside become blanks.
QString InOneLine(QString text) {
    static const QRegularExpression kEnds(QStringLiteral("^[\\r\\n]+|[\\r\\n]+$"));
    static const QRegularExpression kInner(QStringLiteral("\\r\\n|[\\r\\n]"));
    return text.remove(kEnds).replace(kInner, QStringLiteral(" "));
}

/// Makes one line of what is pasted or dropped: refuses it as it is, and has its one line put in its place.
/// A change of what is there already would cost the field what it knows for undoing.
class OneLine : public QValidator {
  public:
    explicit OneLine(QLineEdit& field) : QValidator(&field), field_(field) {}

    State validate(QString& text, int& /*cursor*/) const override {
        // What is new lies between the beginning and the end that the text has in common with the one before.
        const auto most = std::min(text.size(), before_.size());
        const auto start =
            std::mismatch(text.cbegin(), text.cbegin() + most, before_.cbegin()).first - text.cbegin();
        const auto same =
            std::mismatch(text.crbegin(), text.crbegin() + (most - start), before_.crbegin()).first
            - text.crbegin();
        const QString added = text.mid(start, text.size() - start - same);
        const QString line = InOneLine(added);
        if (line == added) {
            before_ = text;
            return Acceptable;
        }
        const auto replaced = before_.size() - start - same;
        QTimer::singleShot(0, &field_, [this, start, replaced, line] {
            if (field_.text() == before_) {
                field_.setSelection(static_cast<int>(start), static_cast<int>(replaced));
                field_.insert(line);
            } else {
                field_.setText(InOneLine(field_.text())); // It was set, and what is set isn't refused.
            }
        });
        return Invalid;
    }

  private:
    QLineEdit& field_;
    mutable QString before_;
};

} // namespace

void TextField::MakeWidget(WindowFrame& frame) {
    auto* field = new Field(ToQString(text_), frame.Content());
    field->setMaxLength(std::numeric_limits<int>::max());
    field->setValidator(new OneLine(*field));
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
