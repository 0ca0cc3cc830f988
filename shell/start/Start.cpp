#include "Start.h"

#include "App.h"
#include "DefaultMenuBar.h"
#include "EventGate.h"
#include "FileTypes.h"
#include "GlobalData.h"
#include "MsgBox.h"
#include "SingleInstance.h"
#include "Toolkit.h"

namespace folimark {
namespace {

const ApplicationIdentity kIdentity{
    .name = "Folimark",
    .version = FOLIMARK_VERSION,
    .desktopEntry = "folimark",
    .iconFiles = {"icons/hicolor/16x16/apps/folimark.png", "icons/hicolor/32x32/apps/folimark.png",
                  "icons/hicolor/48x48/apps/folimark.png", "icons/hicolor/256x256/apps/folimark.png"},
};

void _InitFileTypes() {
    FileTypes::_Initialize();
}

void _NewAppInstance() {
    const Ref<class App> application = New<class App>();
    application->MenuBar(DefaultMenuBar());
    RegisterApplication(application);
}

void _ApplicationAddMenuHandlers() {
    // None: all commands belong to windows.
}

/// Two applications would write over each other's list of albums. The one that runs already shows its Albums
/// window instead of a second one.
void LeaveToOther(SingleInstance& instance) {
    const SingleInstance::Claim claim = instance.Take(SpecialFolder::Preferences()->NativePath(), [] {
        if (GlobalData::CatalogsWindow) {
            GlobalData::CatalogsWindow->Show();
        }
    });
    if (claim == SingleInstance::Claim::Unanswered) {
        MsgBox("Folimark is already running, but it doesn’t answer.\n\n"
               "It may be waiting for a disk. If it doesn’t come back, end it and start Folimark again.");
    }
    if (claim != SingleInstance::Claim::Granted) {
        Quit(claim == SingleInstance::Claim::Forwarded ? 0 : 1);
    }
}

} // namespace

void _EarlyStartup() {
    _InitFileTypes();
    _NewAppInstance();
    _ApplicationAddMenuHandlers();
}

void _LateStartup() {
    // Nothing is left to do before the first event.
}

int _Main(char** arguments) {
    SingleInstance instance;
    StartApplication([&instance, arguments] {
        StartToolkit(arguments, kIdentity);
        _EarlyStartup();
        _LateStartup();
        LeaveToOther(instance);
    });
    return RunApplication();
}

} // namespace folimark
