#pragma once

#include "FolderItem.h"
#include "MenuBar.h"
#include "MouseCursor.h"
#include "Object.h"

namespace folimark {

/// The base of the application object, of which there is one in a run.
class Application : public Object {
  public:
    virtual void Event_Open() {}
    /// Given the exception that nobody caught, or nil. True means that it has been dealt with.
    virtual bool Event_UnhandledException(const RuntimeException* /*error*/) { return false; }

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

} // namespace folimark
