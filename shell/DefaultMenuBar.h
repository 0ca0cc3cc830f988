#pragma once

#include "MenuBar.h"

namespace folimark {

/// The one menu bar, which all windows share.
class DefaultMenuBar : public MenuBar {
  public:
    DefaultMenuBar();

  private:
    void Constructor();
    void Untitled0(); ///< the File menu
    void Untitled1(); ///< the Edit menu
    void Untitled2(); ///< the Help menu
};

/// The instance: made at the first call, and the same ever after.
Ref<class DefaultMenuBar> DefaultMenuBar();

} // namespace folimark
