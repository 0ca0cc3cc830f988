#include "Application.h"

#include "EventGate.h"
#include "EventLoop.h"
#include "OpenWindows.h"
#include "PictureProcess.h"
#include "PictureService.h"
#include "Resources.h"
#include "ToolkitKey.h"
#include "Window.h"

#include <optional>

namespace folimark {
namespace {

Ref<Application>& TheApplication() {
    static auto& application = *new Ref<Application>; // outlives all windows, as these do (OpenWindows.cpp)
    return application;
}

/// The exit status, once somebody has asked for the end.
std::optional<int>& ExitStatus() {
    static std::optional<int> status;
    return status;
}

} // namespace

Ref<FolderItem> Application::ExecutableFile() const {
    return Executable();
}

void RegisterApplication(Ref<Application> application) {
    TheApplication() = std::move(application);
    ExitStatus().reset();
}

Application* CurrentApplication() {
    return TheApplication().Get();
}

int RunApplication() {
    if (!IsQuitting()) { // a start that has failed has asked for the end already
        RunEventLoop([] {
            const Ref<Application> application = TheApplication();
            StartApplication([&] { application->Event_Open(); });
        });
    }
    while (!OpenWindows().empty()) {
        OpenWindows().back()->TakeDown(kToolkit);
    }
    PictureService::The().End();
    EndPictureProcess();
    return ExitStatus().value_or(0);
}

void Quit(int exitCode) {
    if (!ExitStatus()) {
        ExitStatus() = exitCode;
    }
    EndEventLoop(exitCode);
}

bool IsQuitting() {
    return ExitStatus().has_value();
}

} // namespace folimark
