#include "Application.h"

#include "EventGate.h"
#include "NativeApplication.h"
#include "NativeWindow.h"
#include "OpenWindowList.h"
#include "PictureProcess.h"
#include "PlatformText.h"
#include "Window.h"
#include "Yield.h"

#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTimer>

namespace folimark {
namespace {

Ref<Application>& TheApplication() {
    static Ref<Application> application;
    return application;
}

/// The exit status, once somebody has asked for the end.
std::optional<int>& ExitStatus() {
    static std::optional<int> status;
    return status;
}

} // namespace

bool Application::Event_UnhandledException(const RuntimeException* /*error*/) {
    return false;
}

void Application::MouseCursor(MouseCursorShape shape) {
    if (shape == cursor_) {
        return; // A scan sets it again for every row.
    }
    cursor_ = shape;
    QApplication::restoreOverrideCursor();
    if (shape != MouseCursorShape::Default) {
        QApplication::setOverrideCursor(
            QCursor(shape == MouseCursorShape::HandOpen ? Qt::OpenHandCursor : Qt::ClosedHandCursor));
    }
}

Ref<FolderItem> Application::ExecutableFile() const {
    return FolderItem::FromNativePath(
        QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString());
}

Ref<FolderItem> ResourcesFolder() {
    const std::string executable = QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();
    return FolderItem::FromNativePath(executable)->Parent()->Parent()->Child("Resources");
}

void StartToolkit(char** arguments, const ApplicationIdentity& identity) {
    StartWindowSystem(arguments, identity);
    SetYieldHandler([] {
        QCoreApplication::processEvents();
        if (IsQuitting()) {
            throw EndException();
        }
    });
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
        QTimer::singleShot(0, [] {
            const Ref<Application> application = TheApplication();
            StartApplication([&] { application->Event_Open(); });
        });
        QApplication::exec();
    }
    while (!OpenWindowList().empty()) {
        OpenWindowList().back()->TakeDown();
    }
    EndPictureProcess();
    return ExitStatus().value_or(0);
}

void Quit(int exitCode) {
    if (!ExitStatus()) {
        ExitStatus() = exitCode;
    }
    QCoreApplication::exit(exitCode);
}

bool IsQuitting() {
    return ExitStatus().has_value();
}

void QuitByUser() {
    const std::vector<Ref<Window>> windows = OpenWindows();
    for (const Ref<Window>& window : windows) {
        if (window->Event_CancelClose(true)) {
            return;
        }
    }
    for (const Ref<Window>& window : windows) {
        window->CloseUnasked();
    }
    Quit(0);
}

bool Keyboard::ShiftKey() {
    return QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
}

int ScreenInfo::AvailableHeight() const {
    return QGuiApplication::primaryScreen()->availableSize().height();
}

bool CanPlaceWindows() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

ScreenInfo Screen(int /*number*/) {
    return {};
}

} // namespace folimark
