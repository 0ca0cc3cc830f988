#pragma once

#include "ControlTable.h"
#include "Window.h"

namespace folimark {

/// The dialog that asks for the phrases of a search. It opens with those of the last search and leaves the
/// new ones in GlobalData; HighlightOK tells whether it was left with OK.
class aHilightWindow : public Window {
  public:
    Ref<Label> Label4() const;
    Ref<TextField> PhraseTextField() const;
    Ref<PopupMenu> ConjunctionPopUpMenu() const;
    Ref<TextField> ConjoinedPhraseTextField() const;
    Ref<PushButton> OKPushButton() const;
    Ref<PushButton> CancelPushButton() const;

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
