#include "Answers.h"

#include "OpenWindows.h"
#include "PlatformText.h"
#include "ToolkitKey.h"
#include "WindowFrame.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <deque>

namespace folimark::test {
namespace {

std::deque<Answers::Answer> expected;

Ref<Window> WindowOf(const QWidget& frame) {
    for (const Ref<Window>& window : OpenWindows()) {
        if (window->Native(kToolkit) == dynamic_cast<const WindowFrame*>(&frame)) {
            return window;
        }
    }
    return {};
}

bool IsFor(const Answers::Answer& answer, const std::string& text) {
    const std::string& dialog = answer.dialog;
    return dialog == text || (dialog.ends_with("…") && text.starts_with(dialog.substr(0, dialog.size() - 3)));
}

void Dismiss(QWidget& dialog) {
    if (auto* standard = qobject_cast<QDialog*>(&dialog)) {
        standard->reject();
    } else if (const Ref<Window> window = WindowOf(dialog)) {
        window->Close();
    }
}

void ChooseFolder(QFileDialog& dialog, const std::string& path) {
    if (path.empty()) {
        ClickButtonOf(dialog, "Cancel");
        return;
    }
    const QString native = QFile::decodeName(QByteArray::fromStdString(path));
    dialog.setDirectory(QFileInfo(native).path());
    dialog.findChild<QLineEdit*>()->setText(native);
    ClickButtonOf(dialog, "Choose");
}

void Use(QWidget& dialog, const Answers::Answer& answer) {
    if (auto* chooser = qobject_cast<QFileDialog*>(&dialog)) {
        ChooseFolder(*chooser, answer.button);
    } else if (answer.use) {
        answer.use(WindowOf(dialog));
    } else {
        ClickButtonOf(dialog, answer.button);
    }
}

void ServeDialog(QWidget& dialog) {
    WaitFor([&dialog] { return dialog.isActiveWindow(); }, "a dialog has the keyboard");
    if (Answers::Look) {
        Answers::Look(dialog);
    }
    const std::string text = TextOf(dialog);
    if (expected.empty() || !IsFor(expected.front(), text)) {
        throw RobotFailure("This dialog isn't expected: “" + text + "”.");
    }
    const Answers::Answer answer = expected.front();
    expected.pop_front();
    const QPointer<QWidget> stays(&dialog);
    Use(dialog, answer);
    if (stays && QApplication::activeModalWidget() == stays) {
        throw RobotFailure("This dialog stays open after its answer: “" + text + "”.");
    }
}

class DialogWatch : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && dialog != nullptr && dialog->isWindow() && dialog->isModal()) {
            // By then its own event loop runs.
            QTimer::singleShot(0, dialog, [dialog] {
                const QPointer<QWidget> stays(dialog);
                try {
                    ServeDialog(*dialog);
                } catch (const RobotFailure& failure) {
                    ReportFailure(failure.what());
                    if (stays && stays->isVisible()) {
                        Dismiss(*stays);
                    }
                }
            });
        }
        return false;
    }
};

} // namespace

std::function<void(QWidget&)> Answers::Look;

std::string TextOf(const QWidget& dialog) {
    const auto* box = qobject_cast<const QMessageBox*>(&dialog);
    return ToText(box != nullptr ? box->text() : dialog.windowTitle());
}

Answers::Answers(std::initializer_list<Answer> answers) {
    expected.insert(expected.begin(), answers.begin(), answers.end());
    waiting_ = expected.size() - answers.size();
}

Answers::~Answers() {
    while (expected.size() > waiting_) {
        ReportFailure("This dialog never came: “" + expected.front().dialog + "”.");
        expected.pop_front();
    }
}

void WatchDialogs() {
    qApp->installEventFilter(new DialogWatch(qApp));
}

} // namespace folimark::test
