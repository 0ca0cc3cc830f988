#include "aHilightWindow.h"

#include "GlobalData.h"

namespace folimark {
namespace {

constexpr WindowLayout kLayout{
    .title = "Highlight",
    .width = 300,
    .height = 180,
    .minHeight = 64,
    .maxHeight = 32000,
    .frame = WindowKind::Sheet,
    .closeButton = false,
    .minimizeButton = false,
    .hasBackColor = false,
};

constexpr ControlRow kControls[] = {
    {.name = "Label4",
     .controlClass = ControlClass::Label,
     .bounds = {20, 14, 260, 20},
     .tabIndex = 6,
     .text = "Highlight entries containing the phrase:"},
    {.name = "PhraseTextField",
     .controlClass = ControlClass::TextField,
     .bounds = {20, 39, 260, 22},
     .tabIndex = 7,
     .accessibleName = "Highlight entries containing the phrase"},
    {.name = "ConjunctionPopUpMenu",
     .controlClass = ControlClass::PopupMenu,
     .bounds = {20, 73, 260, 20},
     .tabIndex = 8,
     .accessibleName = "Qualification"},
    {.name = "ConjoinedPhraseTextField",
     .controlClass = ControlClass::TextField,
     .bounds = {20, 105, 260, 22},
     .tabIndex = 9,
     .accessibleName = "Second phrase",
     .visible = false},
    {.name = "OKPushButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {192, 139, 88, 20},
     .tabIndex = 10,
     .text = "OK",
     .isDefault = true},
    {.name = "CancelPushButton",
     .controlClass = ControlClass::PushButton,
     .bounds = {20, 139, 88, 20},
     .tabIndex = 11,
     .text = "Cancel",
     .isCancel = true},
};

/// The row numbers are the values of GlobalData::HighlightType.
constexpr const char* kConjunctions[] = {"Select any qualification",
                                         "And the phrase:", "Or the phrase:", "But not the phrase:"};

} // namespace

void aHilightWindow::Layout() {
    Apply(kLayout);
}

void aHilightWindow::CreateControls() {
    _CreateControls0();
}

void aHilightWindow::_CreateControls0() {
    BuildControls(*this, kControls);
    PhraseTextField()->Open = [this] { PhraseTextField_Open(*PhraseTextField()); };
    ConjunctionPopUpMenu()->Open = [this] { ConjunctionPopUpMenu_Open(*ConjunctionPopUpMenu()); };
    ConjunctionPopUpMenu()->Change = [this](PopupMenu& menu) { ConjunctionPopUpMenu_Change(menu); };
    ConjoinedPhraseTextField()->Open = [this] { ConjoinedPhraseTextField_Open(*ConjoinedPhraseTextField()); };
    OKPushButton()->Action = [this](PushButton& button) { OKPushButton_Action(button); };
    CancelPushButton()->Action = [this](PushButton& button) { CancelPushButton_Action(button); };
}

void aHilightWindow::PhraseTextField_Open(TextField& field) {
    field.Text(GlobalData::HighlightPhrase1);
}

void aHilightWindow::ConjoinedPhraseTextField_Open(TextField& field) {
    field.Text(GlobalData::HighlightPhrase2);
}

void aHilightWindow::ConjunctionPopUpMenu_Open(PopupMenu& menu) {
    menu.DeleteAllRows();
    for (const char* conjunction : kConjunctions) {
        menu.AddRow(conjunction);
    }
    menu.ListIndex(static_cast<int>(GlobalData::HighlightType));
}

void aHilightWindow::ConjunctionPopUpMenu_Change(PopupMenu& menu) {
    ConjoinedPhraseTextField()->Visible(menu.ListIndex() > 0);
    if (menu.ListIndex() > 0) {
        ConjoinedPhraseTextField()->SetFocus();
    }
}

void aHilightWindow::OKPushButton_Action(PushButton& /*button*/) {
    if (PhraseTextField()->Text().empty()) {
        GlobalData::HighlightType = GlobalData::kFirstAlone;
        GlobalData::HighlightPhrase2 = "";
        GlobalData::MessageBox1(GlobalData::MessageKind::Caution, "OK", "No phrase has been entered",
                                "Enter a phrase or click Cancel");
        return;
    }
    GlobalData::HighlightPhrase1 = PhraseTextField()->Text();
    GlobalData::HighlightPhrase2 = ConjoinedPhraseTextField()->Text();
    GlobalData::HighlightType = ConjunctionPopUpMenu()->ListIndex();
    if (GlobalData::HighlightType == GlobalData::kFirstAlone) {
        GlobalData::HighlightPhrase2 = "";
    } else if (GlobalData::HighlightPhrase2.empty()) {
        GlobalData::HighlightType = GlobalData::kFirstAlone;
    }
    GlobalData::HighlightOK = true;
    Close();
}

void aHilightWindow::CancelPushButton_Action(PushButton& /*button*/) {
    GlobalData::HighlightOK = false;
    Close();
}

} // namespace folimark
