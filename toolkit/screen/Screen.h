#pragma once

namespace folimark {

class ScreenInfo {
  public:
    /// Height in units without the desktop's bars and docks.
    int AvailableHeight() const;
};
/// The screen of that number; 0 is the main screen, the only one that is asked for.
ScreenInfo Screen(int number);

/// Does the session let an application place its windows? Under Wayland none does.
bool CanPlaceWindows();

} // namespace folimark
