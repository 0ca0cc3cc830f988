#include "Answers.h"
#include "Application.h"
#include "Hindrances.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <filesystem>
#include <sys/stat.h>

namespace folimark::test {
namespace {

TEST(AlbumList, RowsAreTheLinesAndLinesAreTheRows) {
    struct Case {
        std::string content;
        std::string labels;
        std::string last;  // the last row's label
        std::string saved; // the file when the last row has been trashed
    };
    const Case cases[] = {
        {"", "", "", ""},
        {"Computer:b:\nComputer:a:\n", "b, a", "a", "Computer:b:\n"},
        {"Computer:b:\n\nComputer:x:no end\nplain", "b, , x, ", "", "Computer:b:\n\nComputer:x:no end\n"},
        {"Computer:a:\rComputer:b:\r\nComputer:c:", "a, b, c", "c", "Computer:a:\nComputer:b:\n"},
        {"Computer:a:\nComputer:a:\nComputer:日本 é:\n", "a, a, 日本 é", "日本 é",
         "Computer:a:\nComputer:a:\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.content);
        const TestFolder folder;
        RunningApplication::WriteListFile(c.content);
        const RunningApplication application;
        EXPECT_EQ(application.Labels(), c.labels);
        EXPECT_EQ(RunningApplication::ListFile(), c.content);
        EXPECT_THROW(Click(application.Albums(), "Trash Album"), RobotFailure);
        const int rows = static_cast<int>(application.Albums()->TheListBox()->LastIndex()) + 1;
        if (rows > 0) {
            ClickRow(application.Albums(), rows - 1);
            if (c.last.empty()) { // what is no path is told of, and stays
                const Answers told{{"IOException\n\n…", "OK"}, {"A line of the list of albums…", "OK"}};
                Choose("File", "Reveal Album in Finder");
                EXPECT_EQ(RunningApplication::ListFile(), c.content);
            }
            const Answers answers{{"Trash the “" + c.last + "” album?", "Trash"}};
            Click(application.Albums(), "Trash Album");
            EXPECT_EQ(RunningApplication::ListFile(), c.saved);
            EXPECT_EQ(application.Albums()->CatalogWindows.Ubound(), rows - 2);
        }
        if (rows > 1) {
            const DuringYield save([] {});
            application.Albums()->PutCatalogList(folder.Item("copy"));
        }
    }
}

TEST(AlbumList, AFirstStartMakesAnEmptyFileAndClearsUp) {
    const TestFolder folder;
    folder.Write("../home/.config/.folimark-0123456789abcdef");
    folder.Write("../home/.config/.folimark-other");
    std::vector<std::string> left{".folimark-other", "Folimark.Preferences"};
    const std::string foreign = ".folimark-fedcba9876543210";
    folder.Write("../home/.config/" + foreign);
    if (chown(folder.Path("../home/.config/" + foreign).c_str(), 65534, 65534) == 0) {
        left.insert(left.begin(), foreign); // somebody else's
    }
    const RunningApplication application;
    EXPECT_EQ(folder.Names("../home/.config"), left);
    EXPECT_EQ(RunningApplication::ListFile(), "");
}

TEST(AlbumList, WithoutAPlaceForItTheApplicationStartsAllTheSame) {
    const TestFolder folder{"a.jpg"};
    setenv("XDG_CONFIG_HOME", folder.Path("a.jpg/below").c_str(), 1);
    const Answers answers{{"IOException\n\n…", "OK"},
                          {"Can't save “" + folder.Path("a.jpg") + "…", "OK"},
                          {kFolderDialog, folder.Path()},
                          {"IOException\n\n…", "OK"},
                          {"Can't save “" + folder.Path("a.jpg") + "…", "OK"}};
    const RunningApplication application;
    Click(application.Albums(), "Create Album");
    EXPECT_EQ(application.Labels(), "Album");
}

TEST(AlbumList, AFailedSaveIsToldAndLeavesTheFile) {
    const TestFolder folder{"a.jpg"};
    const std::string lines = "Computer:b:\n" + folder.Item()->AbsolutePath() + "\n";
    RunningApplication::WriteListFile(lines);
    const RunningApplication application;
    const std::string preferences = folder.Home() + "/.config";
    {
        const auto space = NoMore(RLIMIT_FSIZE); // as on a full disk
        const Answers answers{{"Trash the “b” album?", "Trash"},
                              {"IOException\n\n…", "OK"},
                              {"Can't save “" + preferences + "…", "OK"}};
        ClickRow(application.Albums(), 0);
        Click(application.Albums(), "Trash Album");
    }
    EXPECT_FALSE(IsQuitting());
    EXPECT_EQ(RunningApplication::ListFile(), lines);
    ClickRow(application.Albums(), 0);
    Click(application.Albums(), "Open Album");
    EXPECT_EQ(application.Labels(), "Album*");
}

TEST(AlbumList, AListThatCantBeReadEndsTheStart) {
    const TestFolder folder;
    const std::string file = folder.Home() + "/.config/Folimark.Preferences";
    std::filesystem::create_directories(file + "/inside");
    const Answers answers{{"IOException\n\n…", "OK"}, {"Can't open “" + file + "”…", "OK"}};
    EXPECT_EQ(RunToEnd([] { ADD_FAILURE() << "The application works without its albums."; }), 1);
    EXPECT_TRUE(std::filesystem::is_directory(file + "/inside"));
}

} // namespace
} // namespace folimark::test
