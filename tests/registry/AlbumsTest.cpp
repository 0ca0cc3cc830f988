#include "Answers.h"
#include "ColonPath.h"
#include "GlobalData.h"
#include "Hindrances.h"
#include "OpenWindows.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

#include <filesystem>
#include <sys/stat.h>

namespace folimark::test {
namespace {

const std::string kGone =
    "This album no longer exists, or the folder which it references has been moved or renamed.";

/// The first letters of the toolbar's buttons that can be clicked.
std::string Commands(const RunningApplication& application) {
    const Ref<aCatalogsWindow> albums = application.Albums();
    std::string letters;
    for (const Ref<ToolButton>& button :
         {albums->AddCatalogButton, albums->DeleteCatalogButton, albums->OpenCatalogButton,
          albums->StaggerCatalogsButton, albums->CloseCatalogButton}) {
        letters += button->Enabled() ? button->Caption().substr(0, 1) : "";
    }
    return letters;
}

TEST(Albums, OnlyFoldersWithVisibleMediaBecomeAlbumsAndOnlyOnce) {
    const TestFolder folder{"Trips: 1/deep/er/b.PNG", "None/readme.txt", "Hidden/.thumbs/a.jpg", "Empty/"};
    const RunningApplication application;
    application.AddAlbum(folder.Path("Trips: 1"));
    const std::string lines = folder.Item("Trips: 1")->AbsolutePath() + "\n";
    const std::string none = "This folder does not contain any media files.";
    const Answers answers{{kFolderDialog, folder.Path("None")},
                          {none, "OK"},
                          {kFolderDialog, folder.Path("Hidden")},
                          {none, "OK"},
                          {kFolderDialog, folder.Path("Empty")},
                          {none, "OK"},
                          {kFolderDialog, folder.Path("Trips: 1")},
                          {"The album “Trips: 1” has already been cteated.", "OK"},
                          {kFolderDialog, ""}};
    for (int i = 0; i < 5; ++i) {
        Click(application.Albums(), "Create Album");
    }
    EXPECT_FALSE(GlobalData::CatalogFolder);
    EXPECT_EQ(application.Labels(), "Trips: 1");
    EXPECT_EQ(RunningApplication::ListFile(), lines);
}

/// Drags what is at the native path over the window, and drops it if the window lets it. \returns whether it
/// does.
bool Drop(const Ref<Window>& window, const std::string& path) {
    QWidget& frame = *WidgetOf(window, "TheListBox").window();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    const QPoint place(50, 200);
    QDragEnterEvent enters(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame, &enters);
    QDropEvent drops(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame, &drops);
    EXPECT_EQ(enters.isAccepted(), drops.isAccepted());
    EXPECT_TRUE(!drops.isAccepted() || drops.dropAction() == Qt::CopyAction);
    Settle();
    return drops.isAccepted();
}

TEST(Albums, AFolderThatIsDroppedBecomesOne) {
    const TestFolder folder{"A/a.jpg", "None/"};
    const RunningApplication application;
    const Answers answers{{"The album “A” has been created.", "OK"},
                          {"The album “A” has already been cteated.", "OK"},
                          {"This folder does not contain any media files.", "OK"}};
    std::vector<QMessageBox::Icon> icons;
    Answers::Look = [&](QWidget& box) { icons.push_back(dynamic_cast<QMessageBox&>(box).icon()); };
    EXPECT_TRUE(Drop(application.Albums(), folder.Path("A")));
    EXPECT_TRUE(Drop(application.Albums(), folder.Path("A")));
    EXPECT_TRUE(Drop(application.Albums(), folder.Path("None")));
    Answers::Look = nullptr;
    EXPECT_FALSE(GlobalData::CancelButtonPressed);
    EXPECT_EQ(icons, (std::vector{QMessageBox::Information, QMessageBox::Information, QMessageBox::Warning}));
    EXPECT_FALSE(Drop(application.Albums(), folder.Path("A/a.jpg")));
    Click(application.Albums(), "Open Album");
    EXPECT_FALSE(Drop(application.Album(0), folder.Path("A")));
}

TEST(Albums, ToolbarFollowsSelectionAndOpenWindows) {
    const TestFolder folder{"A/a.jpg", "B/b.jpg"};
    const RunningApplication application;
    const Ref<aCatalogsWindow> albums = application.Albums();
    EXPECT_EQ(Commands(application), "C");
    application.AddAlbum(folder.Path("B"));
    application.AddAlbum(folder.Path("A"));
    EXPECT_EQ(application.Labels(), "A, B");
    EXPECT_EQ(albums->TheListBox()->ListIndex(), 1); // the last row, not the new one
    EXPECT_EQ(Commands(application), "CTO");
    DoubleClickRow(albums, 0);
    EXPECT_EQ(application.Labels(), "A*, B");
    EXPECT_EQ(Commands(application), "CTOAC");
    ClickRow(albums, 1);
    EXPECT_EQ(Commands(application), "CTOA");
    EXPECT_FALSE(albums->OpenCatalogButton->Pushed());
    CloseByFrame(application.Album(0));
    ClickRow(albums, 0);
    EXPECT_EQ(Commands(application), "CTO");
    ClickBelowRows(albums);
    EXPECT_EQ(albums->TheListBox()->ListIndex(), 1);
}

TEST(Albums, OpenAlbumsCascadeInTheOrderOfTheirRows) {
    const TestFolder folder{"A/a.jpg", "B/a.jpg", "C/a.jpg"};
    const RunningApplication application;
    const Ref<aCatalogsWindow> albums = application.Albums();
    const auto offset = [&](int row) {
        const Ref<aListWindow> window = application.Album(row);
        EXPECT_EQ(window->Left() - albums->Left(), window->Top() - albums->Top());
        return window->Left() - albums->Left();
    };
    albums->Left(60);
    albums->Top(120);
    for (const char* name : {"C", "A", "B"}) {
        const Ref<aListWindow> window = application.AddAndOpenAlbum(folder.Path(name));
        EXPECT_EQ(window->Left() - albums->Left(), 22);
        window->Left(500);
    }
    Click(albums, "Align Albums");
    EXPECT_EQ(offset(0), 22);
    EXPECT_EQ(offset(1), 44);
    EXPECT_EQ(offset(2), 66);
    EXPECT_EQ(FrontTitle(), "C");
    const Ref<aListWindow> a = application.Album(0);
    ClickRow(albums, 0);
    Click(albums, "Open Album");
    EXPECT_TRUE(application.Album(0) == a); // It comes forward and isn't read again.
    EXPECT_EQ(FrontTitle(), "A");
    Click(albums, "Close Album");
    EXPECT_EQ(application.Labels(), "A, B*, C*");
    EXPECT_EQ(offset(1), 22);
    EXPECT_EQ(offset(2), 44);
    const Answers answers{{"Trash the “B” album?", "Cancel"}, {"Trash the “B” album?", "Trash"}};
    Answers::Look = [](const QWidget& dialog) { // The texts hold names, which are no markup.
        for (const char* part : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
            EXPECT_EQ(dialog.findChild<QLabel*>(QLatin1String(part))->textFormat(), Qt::PlainText) << part;
        }
    };
    ClickRow(albums, 1);
    Click(albums, "Trash Album");
    EXPECT_EQ(application.Labels(), "A, B*, C*");
    Click(albums, "Trash Album");
    Answers::Look = nullptr;
    EXPECT_EQ(application.Labels(), "A, C*");
    EXPECT_EQ(offset(1), 22);
    EXPECT_TRUE(std::filesystem::exists(folder.Path("B/a.jpg")));
}

TEST(Albums, CommandsLeaveRowsAloneThatAreInUse) {
    const TestFolder folder{"A/a.jpg", "B/a.jpg"};
    const RunningApplication application;
    const Ref<aCatalogsWindow> albums = application.Albums();
    application.AddAlbum(folder.Path("A"));
    application.AddAndOpenAlbum(folder.Path("B"));
    ClickRow(albums, 0);
    {
        const DuringYield alignment(
            [&] {
                Click(albums, "Trash Album");
                DoubleClickRow(albums, 0);
                EXPECT_FALSE(Drop(albums, folder.Path("A")));
                CloseByFrame(albums);
            },
            [&] { return albums->StaggerCatalogsButton->Pushed(); });
        Click(albums, "Align Albums");
    }
    EXPECT_EQ(application.Labels(), "A, B*");
    ASSERT_GT(albums->ControlCount(), 0);
    const Answers answers{{kFolderDialog, folder.Path("A")},
                          {"The album “A” has already been cteated.", "OK"}};
    const DuringYield search(
        [&] {
            EXPECT_FALSE(Drop(albums, folder.Path("A")));
            Click(albums, "Create Album");
        },
        [&] { return albums->AddCatalogButton->Pushed(); });
    Click(albums, "Create Album");
}

TEST(Albums, AnAlbumThatIsGoneOrEmptyLeavesTheList) {
    const TestFolder folder{"A/a.jpg", "B/a.jpg", "C/a.jpg"};
    const RunningApplication application;
    for (const char* name : {"A", "B", "C"}) {
        application.AddAlbum(folder.Path(name));
    }
    std::filesystem::remove_all(folder.Path("A"));
    std::filesystem::remove(folder.Path("B/a.jpg"));
    for (const char* left : {"B, C", "C"}) {
        const Answers answers{{kGone, "OK"}};
        ClickRow(application.Albums(), 0);
        Click(application.Albums(), "Open Album");
        EXPECT_EQ(application.Labels(), left);
        EXPECT_EQ(OpenWindows().size(), 1U);
    }
    EXPECT_EQ(RunningApplication::ListFile(), folder.Item("C")->AbsolutePath() + "\n");
    EXPECT_EQ(Commands(application), "CTO");
}

TEST(Albums, AnAlbumThatCantBeReadStays) {
    const TestFolder folder{"Safe/Locked/a.jpg", "Links/"};
    folder.Link("Links/a.jpg", "../Safe/Locked/a.jpg");
    const RunningApplication application;
    application.AddAlbum(folder.Path("Links"));
    application.AddAlbum(folder.Path("Safe/Locked"));
    const struct {
        int row;
        const char* album;
        const char* locked;
    } cases[] = {{1, "Safe/Locked", "Safe/Locked"}, // the folder itself, and one on the way to it
                 {1, "Safe/Locked", "Safe"},
                 {0, "Links", "Safe/Locked"}}; // it holds links into that one only
    for (const auto& c : cases) {
        ASSERT_EQ(chmod(folder.Path(c.locked).c_str(), 0), 0);
        {
            const AsNobody nobody;
            const Answers answers{{"This folder could not be read: “" + folder.Path(c.album) + "”.", "OK"}};
            ClickRow(application.Albums(), c.row);
            Click(application.Albums(), "Open Album");
        }
        ASSERT_EQ(chmod(folder.Path(c.locked).c_str(), 0755), 0);
        EXPECT_EQ(application.Labels(), "Links, Locked");
    }
    Click(application.Albums(), "Open Album");
    EXPECT_EQ(application.Labels(), "Links*, Locked");
}

TEST(Albums, AnAlbumOnADiskThatMayBeAwayStays) {
    const TestFolder folder{"Disk/A/a.jpg", "Mount/", "Emptied/A/a.jpg", "Other/A/a.jpg", "Other/b.jpg"};
    folder.Link("Link", "Disk");
    const std::pair<std::string, bool> cases[] = {
        {folder.Path("Disk/A"), true}, // the folder above it has gone too
        {folder.Path("Link"), true},       {folder.Path("Mount/A"), true}, {"/media/nobody/disk", true},
        {folder.Path("Emptied/A"), false}, {folder.Path("Other/A"), false}};
    for (const char* gone : {"Disk", "Emptied/A", "Other/A"}) {
        std::filesystem::remove_all(folder.Path(gone));
    }
    for (const auto& [path, stays] : cases) {
        SCOPED_TRACE(path);
        const std::string line = ColonPathOfFolder(path) + "\n";
        RunningApplication::WriteListFile(line);
        const RunningApplication application;
        const Answers answers{{stays ? "This folder could not be read: “" + path + "”." : kGone, "OK"}};
        DoubleClickRow(application.Albums(), 0);
        EXPECT_EQ(RunningApplication::ListFile(), stays ? line : "");
    }
}

TEST(Albums, ARowHasItsCommandsAndTellsItsFolderFromAnotherOfItsName) {
    const TestFolder folder{"A/a.jpg", "Z/A/a.jpg"};
    const RunningApplication application;
    Choose("File", "Reveal Album in Finder");
    EXPECT_TRUE(RunningApplication::Launched().empty());
    const Ref<aCatalogsWindow> albums = application.Albums();
    const Ref<Listbox> list = albums->TheListBox();
    application.AddAlbum(folder.Path("A"));
    EXPECT_EQ(list->CellNote(*list, 0, 0), "");
    application.AddAlbum(folder.Path("Z/A"));
    EXPECT_EQ(list->CellNote(*list, 1, 0), folder.Path("Z"));
    ClickRow(albums, 0);
    Press(Qt::Key_F, Qt::ControlModifier);
    ChooseForRow(albums, 1, "Reveal in the File Browser");
    EXPECT_EQ(RunningApplication::Launched(), (std::vector{folder.Path("A"), folder.Path("Z/A")}));
    EXPECT_THROW(ChooseForRow(albums, 0, "Close Album"), RobotFailure);
    ChooseForRow(albums, 0, "Open Album");
    EXPECT_EQ(application.Labels(), "A*, A");
    ChooseForRow(application.Album(0), 0, "Copy Path");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), folder.Path("A/a.jpg"));
    ChooseForRow(albums, 0, "Close Album");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), folder.Path("A"));
    const Answers answers{{"Trash the “A” album?", "Trash"}};
    ChooseForRow(albums, 0, "Trash Album");
    EXPECT_EQ(RunningApplication::ListFile(), folder.Item("Z/A")->AbsolutePath() + "\n");
}

} // namespace
} // namespace folimark::test
