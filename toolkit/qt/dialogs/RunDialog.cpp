#include "RunDialog.h"

#include "EventGate.h"

#include <QDialog>

namespace folimark {

int RunDialog(QDialog& dialog) {
    int result = 0;
    LetEventsIn([&] { result = dialog.exec(); });
    return result;
}

} // namespace folimark
