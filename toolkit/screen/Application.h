#pragma once

#include "FolderItem.h"
#include "MenuBar.h"
#include "Object.h"

#include <cstdint>
#include <string>
#include <vector>

namespace folimark {

/// The pointers that the application chooses from. `Default` leaves the choice to what lies under the mouse.
enum class MouseCursorShape : std::uint8_t { Default, HandOpen, HandClosed };

namespace System::Cursors {
inline constexpr MouseCursorShape HandOpen = MouseCursorShape::HandOpen;
inline constexpr MouseCursorShape HandClosed = MouseCursorShape::HandClosed;
} // namespace System::Cursors

/// The base of the application object, of which there is one in a run.
class Application : public Object {
  public:
    virtual void Event_Open() {}
    /// Given the exception that nobody caught, or nil. True means that it has been dealt with.
    virtual bool Event_UnhandledException(const RuntimeException* error);

    /// The cursor for the whole application.
    MouseCursorShape MouseCursor() const { return cursor_; }
    void MouseCursor(MouseCursorShape shape);

    /// The executable, with links followed.
    Ref<FolderItem> ExecutableFile() const;

    Ref<folimark::MenuBar> MenuBar() const { return menuBar_; }
    void MenuBar(Ref<folimark::MenuBar> bar) { menuBar_ = std::move(bar); }

  private:
    MouseCursorShape cursor_ = MouseCursorShape::Default;
    Ref<folimark::MenuBar> menuBar_;
};

/// What the window system shows of the application: its name for people, its version, the name of its
/// desktop entry (without the extension) and its icon.
struct ApplicationIdentity {
    std::string name;
    std::string version;
    std::string desktopEntry;
    std::vector<std::string> iconFiles; ///< in several sizes; paths below the folder of resources
};

/// Brings the window system up. Has to come before all else of this layer, once in a process. `arguments` are
/// those of main, of which only the program's name is used.
void StartToolkit(char** arguments, const ApplicationIdentity& identity);

/// Makes `application` the one application object.
void RegisterApplication(Ref<Application> application);
/// The registered application object; nil before.
Application* CurrentApplication();

/// Delivers Event_Open as the application's first event and runs the event loop.
/// \returns the process's exit status.
int RunApplication();

/// Ends the application: the event loop stops, what still runs below a yield ends there with an EndException,
/// and windows that are open go, without any further event.
void Quit(int exitCode);
bool IsQuitting();
/// What the Quit command does: asks all windows, closes them, and ends the application.
void QuitByUser();

/// Shows `text` in a simple modal box with an OK button, and blocks until it is dismissed.
void MsgBox(const std::string& text);

namespace Keyboard {
/// Is a Shift key held?
bool ShiftKey();
} // namespace Keyboard

class ScreenInfo {
  public:
    /// Height in logical pixels without the desktop's bars and docks.
    int AvailableHeight() const;
};
/// The screen of that number; 0 is the main screen, the only one that is asked for.
ScreenInfo Screen(int number);

/// Does the session let an application place its windows? Under Wayland none does.
bool CanPlaceWindows();

/// The folder "Resources" beside the folder of the executable.
Ref<FolderItem> ResourcesFolder();

} // namespace folimark
