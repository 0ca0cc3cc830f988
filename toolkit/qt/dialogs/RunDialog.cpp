#include "RunDialog.h"

#include "EventGate.h"
#include "FrontFrame.h"

#include <QDialog>
#include <QEvent>

namespace folimark {
namespace {

/// Moves a dialog over the window in front, once it knows its size and before it can be seen.
class Placer : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<QDialog*>(watched);
        if (event->type() != QEvent::Show || dialog == nullptr) {
            return false;
        }
        watched->event(event); // This is where message boxes find their size.
        if (const QWidget* front = FrontFrame(); front != nullptr && front != dialog) {
            CentreOver(*dialog, *front);
        }
        return true;
    }
};

} // namespace

int RunDialog(QDialog& dialog) {
    Placer placer;
    dialog.installEventFilter(&placer);
    RefuseToBeMinimised(dialog);
    int result = 0;
    LetEventsIn([&] { result = dialog.exec(); });
    return result;
}

} // namespace folimark
