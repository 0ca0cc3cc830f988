#include "Answers.h"
#include "Application.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

namespace folimark::test {
namespace {

TEST(AlbumWindow, RowsTellPathSizeAndKindAndSortBySize) {
    struct Case {
        const char* name;
        std::uintmax_t bytes;
        const char* shown;
        const char* size;
        const char* kind;
    };
    // In the order of their sizes, which the order of the texts has to be too.
    const Case cases[] = {{"zero.gif", 0, "zero.gif", "BY  000.0", "Image"},
                          {"A/B: 1/seven.mp3", 7, "A → B: 1 → seven.mp3", "BY  007.0", "Audio"},
                          {"k.PDF", 999, "k.PDF", "BY  999.0", "PDF"},
                          {"j.mov", 1000, "j.mov", "KB  001.0", "Video"},
                          {"i é.jpg", 999'999, "i é.jpg", "KB  999.9", "Image"},
                          {"h.png", 1'000'000, "h.png", "MB  001.0", "Image"},
                          {"g.png", 9'999'999, "g.png", "MB  009.9", "Image"},
                          {"f.png", 10'000'000, "f.png", "MB  010.0", "Image"},
                          {"e.mp4", 999'999'999, "e.mp4", "MB  999.9", "Video"},
                          {"A/d.mp4", 1'000'000'000, "A → d.mp4", "OB  001.0", "Video"},
                          {"c.mpg", 999'999'999'999, "c.mpg", "OB  999.9", "Video"},
                          {"b.avi", 1'500'000'000'000, "b.avi", "TB 001.5", "Video"}};
    const TestFolder folder{"text.txt", ".hidden.jpg", ".thumbs/a.jpg", "none/", "book.epub"};
    for (const Case& c : cases) {
        folder.Write(c.name, "");
        std::filesystem::resize_file(folder.Path(c.name), c.bytes);
    }
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const Ref<Listbox> list = album->TheListBox();
    EXPECT_EQ(album->CountLabel()->Text(), "12 media files");
    EXPECT_EQ(album->Title(), "Album");
    EXPECT_EQ(album->AlbumLabel()->Text(), ReplaceAll(folder.Item()->AbsolutePath(), ":", "→ "));
    EXPECT_EQ(Names(list),
              "A → B: 1 → seven.mp3, A → d.mp4, b.avi, c.mpg, e.mp4, f.png, g.png, h.png, i é.jpg, j.mov, "
              "k.PDF, zero.gif");
    ClickHeading(album, "File Size");
    int row = 0;
    for (const Case& c : cases) {
        EXPECT_EQ(list->Cell(row, 0), c.shown);
        EXPECT_EQ(list->Cell(row, 1).size(), 10U);
        EXPECT_EQ(list->Cell(row, 2), ""); // changed on the day of its creation
        EXPECT_EQ(list->Cell(row, 3), c.size);
        EXPECT_EQ(list->Cell(row, 4), c.kind);
        EXPECT_EQ(list->RowTag(row), folder.Item(c.name)->AbsolutePath());
        ++row;
    }
    album->ListBoxAddRow(folder.Item(), folder.Item("A/gone.jpg"));
    EXPECT_EQ(list->Cell(row, 0) + list->Cell(row, 1) + list->Cell(row, 3), "(Media file not located!)0 MB");
    EXPECT_EQ(list->RowTag(row), folder.Item("A/gone.jpg")->AbsolutePath());
}

TEST(AlbumWindow, CountsItsFiles) {
    const std::pair<int, const char*> cases[] = {
        {1, "1 media file"}, {2, "2 media files"}, {1234, "1,234 media files"}};
    for (const auto& [count, text] : cases) {
        const TestFolder folder;
        for (int i = 0; i < count; ++i) {
            folder.Write(std::to_string(i) + ".png", "");
        }
        const RunningApplication application;
        const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
        EXPECT_EQ(album->CountLabel()->Text(), text);
        EXPECT_EQ(album->Highlighted.Ubound(), count - 1);
        EXPECT_EQ(album->TheListBox()->ListIndex(), 0);
    }
}

TEST(AlbumWindow, HandsTakeTurnsEvery64Rows) {
    const TestFolder folder{"a.png"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const std::pair<int, bool> cases[] = {{0, true},    {63, true},  {64, false},
                                          {127, false}, {128, true}, {192, false}};
    for (const auto& [row, isOpen] : cases) {
        album->ShowWatchCursor(row);
        EXPECT_EQ(CurrentApplication()->MouseCursor() == System::Cursors::HandOpen, isOpen) << row;
    }
    CurrentApplication()->MouseCursor(MouseCursorShape::Default);
}

TEST(AlbumWindow, KeysAndHeadingsMoveInTheList) {
    const TestFolder folder{"apple.mp3", "apricot.mp3", "banana.mp3", "Birne.mp3", "cherry.mp3"};
    for (int i = 0; i < 95; ++i) {
        folder.Write(std::string(1, 'z').append(std::to_string(1000 + i)).append(".mp3"), "");
    }
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const Ref<Listbox> list = album->TheListBox();
    int page = 0; // what PageDown makes of it
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Down, 1},      {Qt::Key_Up, 0},    {Qt::Key_Up, 0},
                                            {Qt::Key_End, 99},      {Qt::Key_Down, 99}, {Qt::Key_Home, 0},
                                            {Qt::Key_PageDown, -1}, {Qt::Key_PageUp, 0}};
    for (const auto& [key, row] : keys) {
        Press(key);
        page = row < 0 ? static_cast<int>(list->ListIndex()) : page;
        EXPECT_EQ(list->ListIndex(), row < 0 ? page : row) << key;
    }
    EXPECT_GT(page, 20);
    EXPECT_LT(page, 40);
    const std::pair<const char*, const char*> typed[] = {
        {"b", "banana.mp3"}, {"b", "Birne.mp3"}, {"b", "banana.mp3"}};
    for (const auto& [text, name] : typed) {
        Type(text);
        EXPECT_EQ(list->Cell(list->ListIndex(), 0), name);
    }
    Press(Qt::Key_Home);
    ClickRow(album, 4);
    const Ref<Picture> preview = album->TheCanvas()->Backdrop();
    const std::string path = list->RowTag(4);
    ClickHeading(album, "Media files in this album"); // sorted by it already, so this reverses
    EXPECT_EQ(list->ListIndex(), 95);
    EXPECT_EQ(list->RowTag(95), path);
    EXPECT_TRUE(album->TheCanvas()->Backdrop() == preview);
    ClickRow(album, 95); // asks for a fresh look
    EXPECT_FALSE(album->TheCanvas()->Backdrop() == preview);
}

TEST(AlbumWindow, FilesOpenFromButtonCanvasMenuAndNotFromTheList) {
    const TestFolder folder{"a.mp3", "b.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    DoubleClickRow(album, 0);
    EXPECT_TRUE(RunningApplication::Launched().empty());
    Click(album, "Hide Columns");
    Press(Qt::Key_Down); // the list has kept the keyboard
    Click(album, "Open Audio File");
    DoubleClick(album, "TheCanvas");
    Choose("File", "Open Media File");
    EXPECT_EQ(RunningApplication::Launched(), std::vector<std::string>(3, folder.Path("b.mp3")));
    {
        folder.Write("bin/xdg-open", "#!/bin/sh\nexit 3\n");
        ASSERT_EQ(chmod(folder.Path("bin/xdg-open").c_str(), 0755), 0);
        setenv("PATH", (folder.Path("bin") + ":" + std::getenv("PATH")).c_str(), 1);
        SetLaunchHandler(nullptr);
        bool told = false;
        Answers::Look = [&](const QWidget&) { told = true; };
        const Answers answers{{"“b.mp3” could not be opened.", "OK"}};
        Press(Qt::Key_O, Qt::ControlModifier);
        WaitFor([&] { return told; }, "a failed opening is told");
        Settle();
        Answers::Look = nullptr;
    }
    Press(Qt::Key_Escape);
    EXPECT_EQ(FrontTitle(), "Folimark");
    EXPECT_GT(album->ControlCount(), 0);
}

} // namespace
} // namespace folimark::test
