#include "NativeApplication.h"

#include "Accessibility.h"
#include "ClosedWidgets.h"
#include "DesktopStyle.h"
#include "EventGate.h"
#include "FolderItem.h"
#include "HelpTags.h"
#include "InputWatch.h"
#include "OpeningWatch.h"
#include "PlatformText.h"
#include "Resources.h"
#include "Toolkit.h"
#include "Yield.h"

#include <QApplication>
#include <QFile>
#include <QIcon>

#include <csignal>
#include <cstdlib>

namespace folimark {
namespace {

/// Captions of what is disabled stay dim but can be read, on light and on dark grounds. All else is the
/// desktop's, and follows it.
void MakeDimmedTextReadable() {
    const QColor dimmed(0x80, 0x80, 0x80);
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, dimmed);
    }
    QApplication::setPalette(palette);
}

/// Whoever starts the application without a window system is told where they have typed that. The window
/// system's own end would be a crash.
QApplication* ConnectToWindowSystem(int& count, char** arguments) {
    static QtMessageHandler tell;
    tell = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        tell(type, context, text);
        if (type == QtFatalMsg) {
            std::_Exit(EXIT_FAILURE);
        }
    });
    auto* application = new QApplication(count, arguments);
    qInstallMessageHandler(tell);
    return application;
}

QString& TheDisplayName() {
    static QString name;
    return name;
}

} // namespace

const QString& DisplayName() {
    return TheDisplayName();
}

QByteArray PluginsFor(const QByteArray& waylandDisplay, const QByteArray& xDisplay,
                      const QByteArray& chosen) {
    const bool both = !waylandDisplay.isEmpty() && !xDisplay.isEmpty();
    return both && chosen.isEmpty() ? QByteArrayLiteral("xcb;wayland") : QByteArray();
}

void StartToolkit(char** arguments, const ApplicationIdentity& identity) {
    // Of a file that may not grow, or a pipe that nobody reads, the failed call tells.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    static int count = 1; // The window system keeps a reference to it for as long as it lives.
    QCoreApplication::setApplicationName(ToQString(identity.desktopEntry));
    QCoreApplication::setApplicationVersion(ToQString(identity.version));
    TheDisplayName() = ToQString(identity.name);
    QGuiApplication::setDesktopFileName(ToQString(identity.desktopEntry));
    constexpr const char* kPlugins = "QT_QPA_PLATFORM";
    const QByteArray plugins = PluginsFor(qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY"), qgetenv(kPlugins));
    if (!plugins.isEmpty()) {
        qputenv(kPlugins, plugins);
    }
    // Lives until the process ends; taking it down has no purpose and its order is full of traps.
    auto* application = ConnectToWindowSystem(count, arguments);
    if (!plugins.isEmpty()) {
        qunsetenv(kPlugins); // What the application opens makes its own choice.
    }
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QIcon icon;
    const QString resources = QFile::decodeName(QByteArray::fromStdString(ResourcesFolder()->NativePath()));
    for (const std::string& file : identity.iconFiles) {
        icon.addFile(resources + QLatin1Char('/') + ToQString(file));
    }
    QGuiApplication::setWindowIcon(icon);
    QApplication::setStyle(new DesktopStyle);
    application->installEventFilter(new InputWatch(application));
    application->installEventFilter(new HelpTags(application));
    application->installEventFilter(new DeletionWatch(application));
    InstallAccessibility();
    MakeDimmedTextReadable();
    SetLaunchWatcher(WatchOpening);
    SetYieldHandler([] {
        LetEventsIn([] {
            QCoreApplication::processEvents(IsInputHeld() ? QEventLoop::ExcludeUserInputEvents
                                                          : QEventLoop::AllEvents);
        });
    });
}

} // namespace folimark
