#include "MsgBox.h"

#include "MessageBox.h"

namespace folimark {

void MsgBox(const std::string& text) {
    MessageBox box(text, "");
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.Run();
}

} // namespace folimark
