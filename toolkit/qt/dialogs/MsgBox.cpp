#include "MsgBox.h"

#include "MessageBoxText.h"
#include "RunDialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScrollArea>

namespace folimark {
namespace {

/// More lines than this scroll.
constexpr int kMostLines = 12;
constexpr QSize kScrolledSize(560, 280);

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

void MsgBox(const std::string& text) {
    QMessageBox box;
    SetTexts(box, text);
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    MakeScrollable(box);
    RunDialog(box);
}

} // namespace folimark
