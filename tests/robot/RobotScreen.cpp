#include "Answers.h"
#include "Toolkit.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QWidget>

#include <cstdio>
#include <vector>

/// What the leak check of a build with AddressSanitizer passes over: the font library keeps what it has read.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

namespace folimark::test {
namespace {

/// The main screen, whose name has to be the first in the alphabet, and two small ones below it.
/// FOLIMARK_TEST_SCREEN=small makes the main one small, too, and sharp.
QByteArray Screens() {
    const bool isSmall = qgetenv("FOLIMARK_TEST_SCREEN") == "small";
    return QByteArray(R"({"screens": [{"name": "desk", "x": 0, "y": 0, )")
           + (isSmall ? R"("width": 1280, "height": 720, "dpr": 2},)"
                      : R"("width": 1920, "height": 1080, "dpr": 1},)")
           + R"({"name": "small", "x": 0, "y": 1200, "width": 1280, "height": 720, "dpr": 1},
                {"name": "laptop", "x": 0, "y": 2000, "width": 1366, "height": 768, "dpr": 1}]})";
}

std::vector<QPointer<QWidget>> fronts; // the windows that had the keyboard, the last one at the end

class FrontWatch : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* window = qobject_cast<QWidget*>(watched);
            event->type() == QEvent::WindowActivate && window != nullptr && window->isWindow()) {
            std::erase(fronts, window);
            fronts.emplace_back(window);
        }
        return false;
    }
};

std::function<void(const std::string&)>& FailureHandler() {
    static std::function<void(const std::string&)> handler = [](const std::string& what) {
        qFatal("%s", what.c_str());
    };
    return handler;
}

} // namespace

void StartRobot(char* argument0) {
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg || !text.startsWith(QLatin1String("This plugin does not support"))) {
            std::fprintf(stderr, "%s\n", qPrintable(text));
        }
    });
    const QTemporaryDir folder;
    QFile screen(folder.filePath(QStringLiteral("screen.json")));
    if (!screen.open(QIODevice::WriteOnly) || screen.write(Screens()) < 0) {
        throw RobotFailure("The screen can't be set up.");
    }
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
    static char* arguments[] = {argument0, nullptr};
    StartToolkit(arguments,
                 {.name = "Folimark", .version = "0", .desktopEntry = "folimark", .iconFiles = {}});
    qApp->installEventFilter(new FrontWatch(qApp));
    WatchDialogs();
}

void SetFailureHandler(std::function<void(const std::string&)> handler) {
    FailureHandler() = std::move(handler);
}

void ReportFailure(const std::string& what) {
    FailureHandler()(what);
}

void GiveKeyboardToSomebody() {
    if (QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    std::erase_if(fronts, [](const QPointer<QWidget>& window) { return window == nullptr; });
    for (auto window = fronts.rbegin(); window != fronts.rend(); ++window) {
        if ((*window)->isVisible()) {
            (*window)->activateWindow();
            QCoreApplication::processEvents();
            return;
        }
    }
}

} // namespace folimark::test
