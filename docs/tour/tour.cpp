#include "Answers.h"
#include "RunningApplication.h"
#include "SampleAlbum.h"
#include "TestFolder.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace folimark::test {
namespace {

/// Leads through the application's main work, says each step, and leaves a picture of it.
class Tour {
  public:
    explicit Tour(const QString& pictures) : pictures_(pictures) {
        QDir().mkpath(pictures_.filePath("help"));
    }

    void Say(const std::string& step) { std::cout << ++step_ << ". " << step << '\n'; }
    void Keep(const QImage& picture, const QString& name) {
        const QString file = QStringLiteral("%1-%2.png").arg(step_, 2, 10, QLatin1Char('0')).arg(name);
        if (!picture.save(pictures_.filePath(file))) {
            throw RobotFailure("Can't write the picture " + file.toStdString());
        }
    }
    void KeepForHelp(const QImage& picture, const QString& name) {
        Keep(picture, name);
        picture.save(pictures_.filePath("help/" + name + ".png"));
    }

    void Go() {
        const TestFolder folder;
        const QString home = QString::fromStdString(folder.Home());
        WriteJourney(home + "/Pictures/Journey North");
        WriteGarden(home + "/Pictures/Behind the house");
        const RunningApplication application;
        CreateAlbums(application, folder.Home() + "/Pictures/");
        OpenAndLook(application);
        Sort(application.Album(1));
        Highlight(application.Album(1));
        Menus();
        OpenAFile(application);
        AlignAndClose(application);
    }

  private:
    void CreateAlbums(const RunningApplication& application, const std::string& pictures) {
        Say("The application starts without any album.");
        Keep(PictureOf(application.Albums()), "start");
        Say("Create Album, or Ctrl+N, makes an album of a folder.");
        Answers::Look = [this](QWidget& dialog) {
            Keep(dialog.grab().toImage(), "dialog-" + dialog.windowTitle());
        };
        application.AddAlbum(pictures + "Journey North");
        Say("And another one. Albums stand in the order of their names.");
        application.AddAlbum(pictures + "Behind the house");
        Answers::Look = nullptr;
        ClickRow(application.Albums(), 1);
        KeepForHelp(PictureOf(application.Albums()), "albums");
    }

    void OpenAndLook(const RunningApplication& application) {
        Say("Open Album shows the files of the selected album, wherever they lie in its folder.");
        Click(application.Albums(), "Open Album");
        const Ref<aListWindow> album = application.Album(1);
        KeepForHelp(PictureOf(album), "album");
        Say("The arrow keys step through the files: " + album->CountLabel()->Text() + ".");
        for (int row = 1; row <= album->TheListBox()->LastIndex(); ++row) {
            Press(Qt::Key_Down);
            Keep(PictureOf(album), QStringLiteral("file-%1").arg(row, 2, 10, QLatin1Char('0')));
        }
    }

    void Sort(const Ref<aListWindow>& album) {
        for (const char* heading : {"Created", "Modified", "File Size", "Media"}) {
            Say(std::string("A click on the heading “") + heading + "” sorts by that column.");
            ClickHeading(album, heading);
            Keep(PictureOf(album), "sorted");
        }
        Say("Ctrl+1 to Ctrl+5 do the same: here the first column again.");
        Press(Qt::Key_1, Qt::ControlModifier);
        Keep(PictureOf(album), "sorted");
        Press(Qt::Key_Home);
        Say("Hide Columns, or Ctrl+H, makes room for long names.");
        Choose("File", "Hide Columns");
        Keep(PictureOf(album), "columns-hidden");
        Choose("File", "Show Columns");
    }

    void Highlight(const Ref<aListWindow>& album) {
        Say("Highlight, or Ctrl+L, marks the files whose names hold a phrase, or two.");
        const Answers answers{{kHighlightDialog, "", [this](const Ref<Window>& dialog) {
                                   Type("beach");
                                   ChooseRow(dialog, "ConjunctionPopUpMenu", "But not the phrase:");
                                   Type("night");
                                   KeepForHelp(PictureOf(dialog), "dialog");
                                   Press(Qt::Key_Return);
                               }}};
        Click(album, "Highlight…");
        Say("Tab goes to the next of them: " + album->HighlightCountLabel()->Text() + ".");
        Press(Qt::Key_Tab);
        KeepForHelp(PictureOf(album), "highlight");
    }

    void Menus() {
        Say("Every command has its place in the menus, which F10 opens.");
        constexpr QRect kCorner(0, 0, 700, 300);
        Keep(PictureOfMenu("File").copy(kCorner), "menu-file");
        KeepForHelp(PictureOfMenu("Edit").copy(kCorner), "menu-edit");
        Keep(PictureOfMenu("Help").copy(kCorner), "menu-help");
    }

    void OpenAFile(const RunningApplication& application) {
        Say("A double click on the preview opens the file in its default application.");
        DoubleClick(application.Album(1), "TheCanvas");
        if (RunningApplication::Launched().size() != 1) {
            throw RobotFailure("The file wasn't opened.");
        }
    }

    void AlignAndClose(const RunningApplication& application) {
        Say("A second album opens in a window of its own.");
        DoubleClickRow(application.Albums(), 0);
        Keep(PictureOf(application.Album(0)), "second");
        Say("Align Albums cascades the open windows.");
        Click(application.Albums(), "Align Albums");
        Keep(PictureOf(application.Albums()), "albums");
        Say("Close Album closes the selected album's window.");
        ClickRow(application.Albums(), 1);
        Click(application.Albums(), "Close Album");
        Say("Trash Album, or Delete, takes an album off the list. Its files stay where they are.");
        Answers::Look = [this](QWidget& dialog) { Keep(dialog.grab().toImage(), "question"); };
        const Answers answers{{"Trash the “Behind the house” album?", "Trash"}};
        ClickRow(application.Albums(), 0);
        Press(Qt::Key_Delete);
        Answers::Look = nullptr;
        Keep(PictureOf(application.Albums()), "trashed");
    }

    QDir pictures_;
    int step_ = 0;
};

} // namespace
} // namespace folimark::test

/// Takes the folder for the pictures; "tour" if it is left out.
int main(int argumentCount, char** arguments) {
    using namespace folimark::test;
    StartRobot(arguments[0]);
    SetFailureHandler([](const std::string& what) {
        std::cerr << what << '\n';
        std::exit(1);
    });
    try {
        Tour(QString::fromLocal8Bit(argumentCount > 1 ? arguments[1] : "tour")).Go();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
