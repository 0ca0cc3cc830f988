#include "Answers.h"
#include "Descriptor.h"
#include "Hindrances.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <filesystem>

namespace folimark::test {
namespace {

/// Does to the dialog's folder what a hand that slips could do.
void Meddle(QWidget& dialog) {
    auto& list = *dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    WaitFor([&] { return list.model()->rowCount(list.rootIndex()) > 0; }, "the folder's content is listed");
    list.setFocus();
    list.setCurrentIndex(list.model()->index(0, 0, list.rootIndex()));
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete}) {
        QTest::keyClick(&list, key);
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    }
    EXPECT_FALSE(dialog.findChild<QToolButton*>(QStringLiteral("newFolderButton"))->isVisible());
    for (const char* name : {"qt_rename_action", "qt_delete_action"}) {
        EXPECT_FALSE(dialog.findChild<QAction*>(QLatin1String(name))->isVisible()) << name;
    }
    for (const auto* view : dialog.findChildren<QAbstractItemView*>()) {
        EXPECT_EQ(view->dragDropMode(), QAbstractItemView::NoDragDrop);
    }
}

TEST(FolderDialog, ChangesNothingAndOpensBesideTheLastFolder) {
    const TestFolder folder{"Safe/Sub/a.jpg", "b.jpg"};
    const RunningApplication application;
    application.AddAlbum(folder.Path("Safe"));
    Answers::Look = [&](QWidget& dialog) {
        const auto* chooser = qobject_cast<QFileDialog*>(&dialog);
        EXPECT_EQ(chooser->directory().absolutePath().toStdString(), folder.Path());
        EXPECT_TRUE(
            chooser->sidebarUrls().contains(QUrl::fromLocalFile(QString::fromStdString(folder.Home()))));
        Meddle(dialog);
    };
    const Answers answers{{kFolderDialog, ""}};
    Click(application.Albums(), "Create Album");
    Answers::Look = nullptr;
    EXPECT_TRUE(std::filesystem::exists(folder.Path("Safe/Sub/a.jpg")));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Home())) {
        EXPECT_TRUE(entry.is_directory() || entry.path().filename() == "Folimark.Preferences")
            << entry.path();
    }
}

TEST(FolderDialog, ChoosesWhatItsLineSays) {
    const TestFolder folder{"Trips/a.jpg"};
    const RunningApplication application;
    Answers::Look = [](QWidget& dialog) {
        if (const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
            // Whoever types a path may leave a folder selected that it goes through.
            QObject::connect(dialog.findChild<QLineEdit*>(), &QLineEdit::textChanged, list, [list] {
                list->selectionModel()->select(list->rootIndex(), QItemSelectionModel::ClearAndSelect
                                                                      | QItemSelectionModel::Rows);
            });
        }
    };
    application.AddAlbum(folder.Path("Trips"));
    Answers::Look = nullptr;
    EXPECT_EQ(application.Labels(), "Trips");
}

TEST(FolderDialog, SaysThatItCantBeOpened) {
    const TestFolder folder;
    const RunningApplication application;
    const Descriptor next(dup(STDIN_FILENO));
    const auto descriptors =
        NoMore(RLIMIT_NOFILE, static_cast<rlim_t>(next.Get()) + 4); // checking tools take two
    const Answers answers{{"Folders can’t be shown…", "OK"}};
    Click(application.Albums(), "Create Album");
}

} // namespace
} // namespace folimark::test
