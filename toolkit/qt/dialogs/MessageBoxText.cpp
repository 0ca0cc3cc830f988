#include "MessageBoxText.h"

#include "NativeApplication.h"
#include "PlatformText.h"

#include <QLabel>
#include <QMessageBox>

namespace folimark {

void SetTexts(QMessageBox& box, const std::string& message, const std::string& explanation) {
    box.setWindowTitle(DisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(AsDisplayed(message));
    box.setInformativeText(AsDisplayed(explanation));
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        label->setTextFormat(Qt::PlainText); // The box doesn't pass it on.
    }
}

} // namespace folimark
