#include "Answers.h"
#include "Application.h"
#include "EventGate.h"
#include "Resources.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <filesystem>

namespace folimark::test {
namespace {

TEST(Menu, ItemsAreEnabledAsTheFrontWindowServesThem) {
    const TestFolder folder{"a.jpg", "b.jpg"};
    const RunningApplication application;
    const std::string help = "Folimark Help Sheet, About Folimark…";
    EXPECT_EQ(EnabledItems("File"), "Reveal Album in Finder, Quit");
    EXPECT_EQ(EnabledItems("Edit"), "");
    EXPECT_EQ(EnabledItems("Help"), help);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(FrontTitle(), "Folimark");
    EXPECT_FALSE(IsQuitting());

    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const std::string all =
        "Hide Columns, Open Media File, Show Folimark Window, Reveal Album in Finder, Quit";
    EXPECT_EQ(EnabledItems("File"), all);
    ClickRow(album, 0);
    EXPECT_EQ(EnabledItems("Edit"), "Copy, Highlight");
    EXPECT_EQ(EnabledItems("Help"), help);
    Press(Qt::Key_R, Qt::ControlModifier); // nothing is highlighted
    Press(Qt::Key_O, Qt::ControlModifier);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(RunningApplication::Launched(), (std::vector{folder.Path("a.jpg"), folder.Path()}));
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(FrontTitle(), "Folimark");
    EXPECT_GT(album->ControlCount(), 0);
    EXPECT_EQ(EnabledItems("Edit"), "Copy");
}

TEST(Menu, AlbumsShareTheCaptionOfTheColumnsItem) {
    const TestFolder folder{"A/a.jpg", "B/b.jpg"};
    const RunningApplication application;
    const Ref<aListWindow> first = application.AddAndOpenAlbum(folder.Path("A"));
    const std::string hidden = "1024,0,0,0,70";
    const std::string shown = "710,110,110,94,70";
    Choose("File", "Hide Columns");
    EXPECT_EQ(first->TheListBox()->ColumnWidths(), hidden);
    EXPECT_THROW(ClickHeading(first, "Created"), RobotFailure);
    const Ref<aListWindow> second = application.AddAndOpenAlbum(folder.Path("B"));
    EXPECT_EQ(second->TheListBox()->ColumnWidths(), shown);
    Choose("File", "Show Columns"); // the item's text is the first window's, its effect this window's
    EXPECT_EQ(second->TheListBox()->ColumnWidths(), hidden);
    Click(second, "Show Columns");
    EXPECT_EQ(second->TheListBox()->ColumnWidths(), shown);
    Choose("File", "Show Columns"); // the button leaves the item alone
    EXPECT_EQ(second->TheListBox()->ColumnWidths(), hidden);
    Press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(second->TheListBox()->ColumnWidths(), shown);
}

TEST(Menu, InputThatComesTooSoonWaitsAndTooLateDoesNothing) {
    const TestFolder folder{"A/a.jpg", "B/b.jpg"};
    const RunningApplication application;
    ChooseTooLate("File", "Quit");
    PressTooLate("File", Qt::Key_Q);
    EXPECT_FALSE(IsQuitting());
    PressAtOnce({Qt::Key_F10, Qt::Key_Escape, Qt::Key_Down});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    application.AddAlbum(folder.Path("A"));
    application.AddAlbum(folder.Path("B"));
    PressTooLate("File", Qt::Key_Home);
    EXPECT_EQ(application.Albums()->TheListBox()->ListIndex(), 0);
    const DuringYield beforeTheMenu([] {}, IsInputHeld);
    ClickRow(application.Albums(), 1, false, Qt::RightButton);
    PressAtOnce({Qt::Key_Down, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(FrontTitle(), "B");
}

TEST(Menu, HelpOpensThePageOrSaysThatItIsMissing) {
    const TestFolder folder;
    const RunningApplication application;
    const std::string page = ResourcesFolder()->Child("HelpSheet.html")->NativePath();
    Choose("Help", "Folimark Help Sheet");
    EXPECT_EQ(RunningApplication::Launched(), std::vector{page});
    std::filesystem::rename(page, page + ".away");
    {
        const Answers answers{{"The help resource is missing.", "OK"}};
        Choose("Help", "Folimark Help Sheet");
    }
    std::filesystem::rename(page + ".away", page);
    EXPECT_EQ(RunningApplication::Launched().size(), 1U);
}

} // namespace
} // namespace folimark::test
