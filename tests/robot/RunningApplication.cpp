#include "RunningApplication.h"

#include "AlbumListFile.h"
#include "Answers.h"
#include "App.h"
#include "DefaultMenuBar.h"
#include "EventGate.h"
#include "GlobalData.h"
#include "OpenWindows.h"
#include "PictureService.h"
#include "Start.h"
#include "Yield.h"

#include <QApplication>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace folimark::test {
namespace {

std::vector<std::string> launched;

/// Brings the application's globals to what they are before its start.
void Reset() {
    GlobalData::CatalogsWindow = {};
    GlobalData::CatalogFolder = {};
    GlobalData::CancelButtonPressed = false;
    GlobalData::HighlightPhrase1 = "";
    GlobalData::HighlightPhrase2 = "";
    GlobalData::HighlightType = GlobalData::kFirstAlone;
    GlobalData::HighlightOK = false;
    DefaultMenuBar()->Find("FileHideColumns")->Text("Hide Columns");
    launched.clear();
    SetLaunchHandler([](const std::string& path) { launched.push_back(path); });
}

/// The window of an album whose scan is under way.
Ref<aListWindow> AlbumBeingRead() {
    const Ref<Window> last = OpenWindows().empty() ? Ref<Window>() : OpenWindows().back();
    const Ref<aListWindow> album = last.As<aListWindow>();
    return album && album->Title().empty() ? album : Ref<aListWindow>();
}

void CloseAll() {
    while (!OpenWindows().empty()) {
        try {
            OpenWindows().back()->Close();
        } catch (const EndException&) { // NOLINT(bugprone-empty-catch): what is left is closed next
        }
    }
    // The event loop's wish to end outlives the application, and would end every dialog of the next one at
    // once; a loop that ends by itself takes it back.
    QTimer::singleShot(0, [] { QApplication::exit(); });
    QApplication::exec();
    Settle();
    PictureService::The().End();
    Reset();
    RegisterApplication({});
}

} // namespace

RunningApplication::RunningApplication() {
    Reset();
    StartApplication([] {
        _EarlyStartup();
        _LateStartup();
        CurrentApplication()->Event_Open();
    });
    Settle();
}

RunningApplication::~RunningApplication() {
    Quit(0);
    CloseAll();
}

int RunToEnd(const std::function<void()>& script) {
    /// Starts the script when the application's own start has come to its end.
    class ScriptedApp : public App {
      public:
        explicit ScriptedApp(std::function<void()> whenOpen) : whenOpen_(std::move(whenOpen)) {}
        void Event_Open() override {
            App::Event_Open();
            QTimer::singleShot(0, whenOpen_);
        }

      private:
        std::function<void()> whenOpen_;
    };
    Reset();
    StartApplication([&] {
        _EarlyStartup();
        _LateStartup();
        const Ref<ScriptedApp> application = New<ScriptedApp>([&] {
            try {
                script();
            } catch (const RobotFailure& failure) {
                ReportFailure(failure.what());
                Quit(-1);
            }
        });
        application->MenuBar(DefaultMenuBar());
        RegisterApplication(application);
    });
    const int status = RunApplication();
    CloseAll();
    return status;
}

DuringYield::DuringYield(std::function<void()> action, std::function<bool()> when)
    : action_(std::move(action)), when_(std::move(when)), handler_(SetYieldHandler([this] { Yield(); })) {}

DuringYield::~DuringYield() {
    if (action_) {
        SetYieldHandler(handler_);
        ReportFailure("No such yield has come.");
    }
}

void DuringYield::Yield() {
    if (when_()) {
        SetYieldHandler(handler_);
        std::exchange(action_, nullptr)();
    } else {
        SetYieldHandler([this] { Yield(); }); // No yield is left out meanwhile.
    }
    handler_();
}

DuringScan::DuringScan(const std::function<void(const Ref<aListWindow>&)>& action)
    : DuringYield([action] { action(AlbumBeingRead()); }, [] { return bool{AlbumBeingRead()}; }) {}

Ref<aCatalogsWindow> RunningApplication::Albums() const {
    return GlobalData::CatalogsWindow.As<aCatalogsWindow>();
}

Ref<aListWindow> RunningApplication::Album(int row) const {
    Ref<aListWindow> window = Albums()->CatalogWindows(row);
    if (!window || window->ControlCount() == 0) {
        throw RobotFailure("The album in row " + std::to_string(row) + " isn't open.");
    }
    return window;
}

void RunningApplication::AddAlbum(const std::string& path) const {
    const std::string label = std::filesystem::path(path).filename();
    const Answers answers{{kFolderDialog, path}, {"The album “" + label + "” has been created.", "OK"}};
    Click(Albums(), "Create Album");
}

Ref<aListWindow> RunningApplication::AddAndOpenAlbum(const std::string& path) const {
    AddAlbum(path);
    const std::string tag = FolderItem::FromNativePath(path)->AbsolutePath();
    int row = 0;
    while (Albums()->TheListBox()->RowTag(row) != tag) {
        ++row;
    }
    ClickRow(Albums(), row);
    Click(Albums(), "Open Album");
    return Album(row);
}

std::string RunningApplication::Labels() const {
    const Ref<Listbox> list = Albums()->TheListBox();
    std::string labels;
    for (int row = 0; row <= list->LastIndex(); ++row) {
        const Ref<aListWindow> window = Albums()->CatalogWindows(row);
        labels += row > 0 ? ", " : "";
        labels += list->Cell(row, 0);
        labels += window && window->ControlCount() > 0 ? "*" : "";
    }
    return labels;
}

std::string RunningApplication::ListFile() {
    std::ifstream file(AlbumListFile()->NativePath(), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

void RunningApplication::WriteListFile(const std::string& content) {
    const std::filesystem::path file = AlbumListFile()->NativePath();
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

const std::vector<std::string>& RunningApplication::Launched() {
    return launched;
}

std::string Names(const Ref<Listbox>& list) {
    std::string names;
    for (int row = 0; row <= list->LastIndex(); ++row) {
        names += row > 0 ? ", " : "";
        names += list->Cell(row, 0);
    }
    return names;
}

} // namespace folimark::test
