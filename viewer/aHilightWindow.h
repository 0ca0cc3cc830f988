#pragma once

#include "ControlTable.h"
#include "Window.h"

namespace folimark {

/// The dialog that asks for the phrases of a search. It opens with those of the last search and leaves the
/// new ones in GlobalData; HighlightOK tells whether it was left with OK.
class aHilightWindow : public Window {
  public:
    Ref<Label> Label4() const { return Control<Label>("Label4"); }
    Ref<TextField> PhraseTextField() const { return Control<TextField>("PhraseTextField"); }
    Ref<PopupMenu> ConjunctionPopUpMenu() const { return Control<PopupMenu>("ConjunctionPopUpMenu"); }
    Ref<TextField> ConjoinedPhraseTextField() const { return Control<TextField>("ConjoinedPhraseTextField"); }
    Ref<PushButton> OKPushButton() const { return Control<PushButton>("OKPushButton"); }
    Ref<PushButton> CancelPushButton() const { return Control<PushButton>("CancelPushButton"); }

  protected:
    void Layout() override;
    void CreateControls() override;

  private:
    void _CreateControls0();

    void PhraseTextField_Open(TextField& field);
    void ConjunctionPopUpMenu_Open(PopupMenu& menu);
    void ConjunctionPopUpMenu_Change(PopupMenu& menu);
    void ConjoinedPhraseTextField_Open(TextField& field);
    void OKPushButton_Action(PushButton& button);
    void CancelPushButton_Action(PushButton& button);
};

} // namespace folimark
