#pragma once

#include "Application.h"

namespace folimark {

/// The application object. It has no menu handlers: commands belong to windows.
class App : public Application {
  public:
    App() { Constructor(); }

    /// Creates and shows the Albums window.
    void Event_Open() override;
    /// Shows the exception's class and its call stack. Never says that the exception is dealt with.
    bool Event_UnhandledException(const RuntimeException* error) override;

  private:
    void Constructor() {}
};

/// The one application object; nil before the start.
Ref<class App> App();

} // namespace folimark
