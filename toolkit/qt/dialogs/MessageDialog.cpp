#include "MessageDialog.h"

#include "MessageBox.h"
#include "PlatformText.h"

#include <QPushButton>

namespace folimark {
namespace {

QPushButton* AddButton(QMessageBox& box, const MessageDialogButton& button, QMessageBox::ButtonRole role) {
    return button.Visible() ? box.addButton(AsCaption(button.Caption()), role) : nullptr;
}

} // namespace

MessageDialog::MessageDialog()
    : action_(New<MessageDialogButton>()), cancel_(New<MessageDialogButton>()),
      alternate_(New<MessageDialogButton>()) {
    action_->Caption("OK");
    action_->Visible(true);
}

Ref<MessageDialogButton> MessageDialog::ShowModal() {
    MessageBox box(message_, explanation_);
    box.setIcon(icon_ == DialogIcon::Caution ? QMessageBox::Warning
                : icon_ == DialogIcon::Note  ? QMessageBox::Information
                                             : QMessageBox::NoIcon);
    QPushButton* action = AddButton(box, *action_, QMessageBox::AcceptRole);
    QPushButton* cancel = AddButton(box, *cancel_, QMessageBox::RejectRole);
    const QPushButton* alternate = AddButton(box, *alternate_, QMessageBox::DestructiveRole);
    box.setDefaultButton(action);
    box.setEscapeButton(cancel != nullptr ? cancel : action);
    box.Run();
    const QAbstractButton* pressed = box.clickedButton();
    if (pressed != nullptr && pressed == alternate) {
        return alternate_;
    }
    return pressed != nullptr && pressed == cancel ? cancel_ : action_;
}

} // namespace folimark
