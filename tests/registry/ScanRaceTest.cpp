#include "Answers.h"
#include "Application.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace folimark::test {
namespace {

TEST(Scan, EndsQuietlyWithItsWindow) {
    struct Case {
        const char* what;
        std::function<void(const RunningApplication&, const Ref<aListWindow>&)> action;
        bool quits;
        const char* labels;
    };
    const Case cases[] = {
        {"close", [](const auto&, const auto& album) { CloseByFrame(album); }, false, "Album"},
        {"trash",
         [](const auto& application, const auto&) {
             const Answers answers{{"Trash the “Album” album?", "Trash"}};
             Click(application.Albums(), "Trash Album");
         },
         false, ""},
        {"close from the toolbar",
         [](const auto& application, const auto&) { Click(application.Albums(), "Close Album"); }, false,
         "Album"},
        {"close the Albums window",
         [](const auto& application, const auto&) { CloseByFrame(application.Albums()); }, true, "Album"},
        {"quit", [](const auto&, const auto&) { Choose("File", "Quit"); }, true, "Album"}};
    const TestFolder folder{"a.jpg", "b.jpg", "c.jpg"};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        RunningApplication::WriteListFile("");
        const RunningApplication application;
        application.AddAlbum(folder.Path());
        Ref<aListWindow> window;
        {
            const DuringScan scan([&](const Ref<aListWindow>& album) {
                window = album;
                c.action(application, album);
            });
            Click(application.Albums(), "Open Album");
        }
        ASSERT_TRUE(window);
        EXPECT_EQ(window->ControlCount(), 0);
        EXPECT_LT(window->TheListBox()->LastIndex(), 2);
        EXPECT_EQ(IsQuitting(), c.quits);
        EXPECT_EQ(CurrentApplication()->MouseCursor(), MouseCursorShape::Default);
        EXPECT_EQ(RunningApplication::ListFile().empty(), std::string(c.labels).empty());
        if (!c.quits) {
            EXPECT_EQ(application.Labels(), c.labels);
        }
    }
}

TEST(Scan, CommandsDoNoHarmBeforeItHasFoundAnythingAndASearchIsMadeAgain) {
    const TestFolder folder{"Album/sub/a.jpg"}; // the scan yields at the folder first
    const RunningApplication application;
    const Ref<aListWindow> open = application.AddAndOpenAlbum(folder.Path("Album"));
    {
        const Answers answers{{kFolderDialog, ""}};
        Click(application.Albums(), "Create Album");
        open->Show();
        WaitFor([] { return FrontTitle() == "Album"; }, "the album is in front");
        Choose("File", "Reveal Album in Finder");
    }
    Click(application.Albums(), "Close Album");
    const DuringScan scan([](const Ref<aListWindow>& album) {
        ASSERT_LT(album->TheListBox()->LastIndex(), 0);
        const Answers answers{{kHighlightDialog, "", [](const Ref<Window>& dialog) {
                                   Type("a");
                                   Click(dialog, "OK");
                               }}};
        Click(album, "Open Media File");
        ClickBelowRows(album);
        Click(album, "Highlight…");
    });
    Click(application.Albums(), "Open Album");
    const Ref<aListWindow> album = application.Album(0);
    EXPECT_EQ(Names(album->TheListBox()), "sub → a.jpg");
    EXPECT_EQ(album->HighlightCountLabel()->Text(), "1 Media Files Highlighted"); // of all rows
    EXPECT_EQ(RunningApplication::Launched(), std::vector<std::string>());
}

TEST(Scan, AFailedOneRemovesItsOwnAlbum) {
    const TestFolder folder{"B/a.jpg", "C/a.jpg", "A/a.jpg", "A/b.txt"};
    const RunningApplication application;
    for (const char* name : {"A", "B", "C"}) {
        application.AddAlbum(folder.Path(name));
    }
    std::filesystem::remove(folder.Path("A/a.jpg"));
    {
        const Answers answers{{"This album no longer exists…", "OK"}};
        const DuringScan scan([&](const Ref<aListWindow>&) { ClickRow(application.Albums(), 1); });
        ClickRow(application.Albums(), 0);
        Click(application.Albums(), "Open Album");
    }
    EXPECT_EQ(application.Labels(), "B, C");
}

} // namespace
} // namespace folimark::test
