#include "Application.h"
#include "GlobalData.h"
#include "MessageDialog.h"

namespace folimark::GlobalData {
namespace {

/// A sheet with its icon, its action button and its texts.
Ref<MessageDialog> MakeSheet(MessageKind kind, const std::string& actionCaption, const std::string& message,
                             const std::string& explanation) {
    Ref<MessageDialog> sheet = New<MessageDialog>();
    sheet->Icon(kind == MessageKind::Plain  ? DialogIcon::None
                : kind == MessageKind::Note ? DialogIcon::Note
                                            : DialogIcon::Caution);
    sheet->ActionButton()->Caption(actionCaption);
    sheet->AlternateActionButton()->Visible(false);
    sheet->Message(message);
    sheet->Explanation(explanation);
    return sheet;
}

} // namespace

void MessageBox1(MessageKind kind, const std::string& actionCaption, const std::string& message,
                 const std::string& explanation) {
    const Ref<MessageDialog> sheet = MakeSheet(kind, actionCaption, message, explanation);
    sheet->CancelButton()->Visible(false);
    sheet->ShowModal();
    CancelButtonPressed = false;
}

void MessageBox2(MessageKind kind, const std::string& actionCaption, const std::string& cancelCaption,
                 const std::string& message, const std::string& explanation) {
    const Ref<MessageDialog> sheet = MakeSheet(kind, actionCaption, message, explanation);
    sheet->CancelButton()->Visible(true);
    sheet->CancelButton()->Caption(cancelCaption);
    const Ref<MessageDialogButton> pressed = sheet->ShowModal();
    CancelButtonPressed = pressed == sheet->CancelButton();
}

void LaunchHelpSheet() {
    const Ref<FolderItem> executable = CurrentApplication()->ExecutableFile();
    const Ref<FolderItem> contents = executable->Parent()->Parent();
    const Ref<FolderItem> page = contents->Child("Resources")->Child("HelpSheet.html");
    if (!page || !page->Exists()) {
        MessageBox1(MessageKind::Caution, "OK", "The help resource is missing.",
                    "Please add HelpSheet to Folimark resources.");
        return;
    }
    page->Launch(true);
}

} // namespace folimark::GlobalData
