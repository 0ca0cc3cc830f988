#include "MessageDialog.h"

#include "Application.h"
#include "NativeApplication.h"
#include "PlatformText.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>

namespace folimark {
namespace {

/// More lines than this scroll.
constexpr int kMostLines = 12;
constexpr QSize kScrolledSize(560, 280);

QPushButton* AddButton(QMessageBox& box, const MessageDialogButton& button, QMessageBox::ButtonRole role) {
    return button.Visible() ? box.addButton(AsCaption(button.Caption()), role) : nullptr;
}

/// Texts may hold folders' names, which are no markup.
void SetPlainText(QMessageBox& box, const std::string& message, const std::string& explanation) {
    box.setTextFormat(Qt::PlainText);
    box.setText(AsDisplayed(message));
    box.setInformativeText(AsDisplayed(explanation));
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        label->setTextFormat(Qt::PlainText); // The box doesn't pass it on.
    }
}

/// Lets a text scroll that the screen may not have room for, as a call stack.
void MakeScrollable(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || grid == nullptr || label->text().count(QLatin1Char('\n')) < kMostLines) {
        return;
    }
    auto* scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    delete grid->replaceWidget(label, scroller);
    label->setWordWrap(false);
    scroller->setWidget(label);
    scroller->setMinimumSize(kScrolledSize);
}

} // namespace

MessageDialog::MessageDialog()
    : action_(New<MessageDialogButton>()), cancel_(New<MessageDialogButton>()),
      alternate_(New<MessageDialogButton>()) {
    action_->Caption("OK");
    action_->Visible(true);
}

Ref<MessageDialogButton> MessageDialog::ShowModal() {
    QMessageBox box;
    box.setWindowTitle(DisplayName());
    SetPlainText(box, message_, explanation_);
    box.setIcon(icon_ == kCautionIcon ? QMessageBox::Warning
                : icon_ == kNoteIcon  ? QMessageBox::Information
                                      : QMessageBox::NoIcon);
    QPushButton* action = AddButton(box, *action_, QMessageBox::AcceptRole);
    QPushButton* cancel = AddButton(box, *cancel_, QMessageBox::RejectRole);
    const QPushButton* alternate = AddButton(box, *alternate_, QMessageBox::DestructiveRole);
    box.setDefaultButton(action);
    box.setEscapeButton(cancel != nullptr ? cancel : action);
    RunDialog(box);
    if (IsQuitting()) {
        throw EndException();
    }
    const QAbstractButton* pressed = box.clickedButton();
    if (pressed != nullptr && pressed == alternate) {
        return alternate_;
    }
    return pressed != nullptr && pressed == cancel ? cancel_ : action_;
}

void MsgBox(const std::string& text) {
    QMessageBox box;
    box.setWindowTitle(DisplayName());
    SetPlainText(box, text, "");
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    MakeScrollable(box);
    RunDialog(box);
}

} // namespace folimark
