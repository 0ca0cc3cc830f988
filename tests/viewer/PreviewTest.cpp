#include "Answers.h"
#include "Hindrances.h"
#include "PictureProcess.h"
#include "PictureService.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace folimark::test {
namespace {

constexpr QRgb kTint = 0xFFFFFFCC;

TEST(Preview, PicturesAreFitted) {
    struct Case {
        int width, height;
        std::array<int, 4> fitted;
    };
    const Case cases[] = {{1024, 768, {0, 75, 300, 225}},  {4000, 3000, {0, 74, 300, 225}},
                          {3000, 4000, {37, 0, 225, 300}}, {1200, 1600, {37, 0, 225, 300}},
                          {100, 50, {0, 150, 300, 150}},   {50, 100, {75, 0, 150, 300}},
                          {300, 300, {0, 0, 300, 300}},    {1, 1, {0, 0, 300, 300}},
                          {291, 100, {0, 196, 299, 103}},  {32767, 1, {0, 299, 300, 0}}};
    const TestFolder folder{"a.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    for (const Case& c : cases) {
        std::array<int, 4> fitted{};
        album->ResizeAndRepositionImage(New<Picture>(c.width, c.height, 8), fitted[0], fitted[1], fitted[2],
                                        fitted[3]);
        EXPECT_EQ(fitted, c.fitted) << c.width << " by " << c.height;
    }
}

QImage Preview(const Ref<aListWindow>& album) {
    Settle();
    return WidgetOf(album, "TheCanvas").grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(Preview, IsAsSharpAsTheScreen) {
    const TestFolder folder;
    QImage stripes(600, 600, QImage::Format_RGB32);
    for (int x = 0; x < 600; ++x) {
        for (int y = 0; y < 600; ++y) {
            stripes.setPixel(x, y, x % 2 == 0 ? 0x000000 : 0xFFFFFF);
        }
    }
    ASSERT_TRUE(stripes.save(QString::fromStdString(folder.Path("stripes.png"))));
    const RunningApplication application;
    const QImage preview = Preview(application.AddAndOpenAlbum(folder.Path()));
    const int step = qGray(preview.pixel(101, 200)) - qGray(preview.pixel(100, 200));
    EXPECT_EQ(step > 200, preview.devicePixelRatio() == 2) << step;
}

TEST(Preview, ShowsTheSelectedFileAndNothingOfTheLast) {
    const TestFolder folder{"b broken.jpg", "d film.mp4", "e sound.wav"};
    QImage red(100, 50, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(QString::fromStdString(folder.Path("a red.png"))));
    std::filesystem::copy(PICTURE_FILES "page.pdf", folder.Path("c page.pdf"));
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const QImage first = Preview(album);
    EXPECT_EQ(ColorAt(first, 150, 140), kTint); // it stands on the lower edge
    EXPECT_EQ(ColorAt(first, 10, 160), QColor(Qt::red).rgba());
    EXPECT_EQ(ColorAt(first, 290, 290), QColor(Qt::red).rgba());
    EXPECT_EQ(album->EditPushButton()->Caption(), "Open Image File  ⌘O");
    const char* captions[] = {"Open Image File  ⌘O", "Open PDF file  ⌘O", "Open Video File  ⌘O",
                              "Open Audio File  ⌘O"};
    QImage last = first;
    for (int row = 1; row <= 4; ++row) {
        Press(Qt::Key_Down);
        const QImage now = Preview(album);
        EXPECT_NE(now, last) << row;
        QImage blank(now.size(), now.format());
        blank.fill(kTint);
        EXPECT_NE(now, blank) << row;
        EXPECT_EQ(album->EditPushButton()->Caption(), captions[row - 1]);
        last = now;
    }
}

TEST(Preview, ARowDoesNotWaitForItsPicture) {
    const TestFolder folder{"a.mp3", "b.pdf"};
    const std::string silent = folder.Path("silent"); // ends with the test, and never answers
    std::ofstream(silent) << "#!/bin/sh\nexec sleep 20\n";
    std::filesystem::permissions(silent, std::filesystem::perms::owner_all);
    SetPictureProcessExecutable(silent);
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const QImage icon = Preview(album);
    const auto look = [&] {
        return WidgetOf(album, "TheCanvas").grab().toImage().convertToFormat(QImage::Format_ARGB32);
    };
    album->TheListBox()->ListIndex(1);
    EXPECT_EQ(album->EditPushButton()->Caption(), "Open PDF file  ⌘O");
    const auto isAwaited = [] { return PictureService::The().IsAwaited(); };
    WaitFor([&] { return look() != icon && isAwaited(); }, "the preview says that it is being read");
    album->TheListBox()->ListIndex(0);
    EXPECT_EQ(Preview(album), icon);
    album->TheListBox()->ListIndex(1);
    album->Close(); // Nobody waits for the picture now.
    SetPictureProcessExecutable("");
}

TEST(Preview, ShowsThePartOfAHugePictureThatFits) {
    const TestFolder folder;
    QImage wide(40000, 10, QImage::Format_RGB32);
    wide.fill(Qt::black);
    QPainter(&wide).fillRect(0, 0, 100, 10, Qt::red);
    ASSERT_TRUE(wide.save(QString::fromStdString(folder.Path("wide.png"))));
    const RunningApplication application;
    const QImage preview = Preview(application.AddAndOpenAlbum(folder.Path()));
    EXPECT_EQ(ColorAt(preview, 97, 5), QColor(Qt::red).rgba());
    EXPECT_EQ(ColorAt(preview, 102, 5), QColor(Qt::black).rgba());
}

TEST(Preview, AMissingReaderIsToldOnce) {
    const TestFolder folder{"a.jpg", "b.jpg"};
    EndPictureProcess();
    SetPictureProcessExecutable("/nowhere");
    const RunningApplication application;
    const Answers answers{{"Folimark can’t show pictures and PDF files.", "OK"}};
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    ClickRow(album, 1);
    SetPictureProcessExecutable("");
}

TEST(Preview, AFileThatHasGoneClosesTheAlbum) {
    const TestFolder folder{"a.mp3", "b.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const QImage icon = Preview(album);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0), 0);
    {
        const AsNobody nobody;
        ClickRow(album, 1); // It may well be there: nobody can tell.
    }
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    EXPECT_NE(Preview(album), icon);
    ClickRow(album, 0);
    EXPECT_EQ(Preview(album), icon);
    std::filesystem::remove(folder.Path("b.mp3"));
    {
        const Answers answers{
            {"This media file no longer exists in this album. It has been removed from this "
             "album, renamed or deleted.",
             "OK"}};
        ClickRow(album, 1);
    }
    EXPECT_EQ(album->ControlCount(), 0);
    EXPECT_EQ(application.Labels(), "Album");
    Click(application.Albums(), "Open Album");
    EXPECT_EQ(Names(application.Album(0)->TheListBox()), "a.mp3");
}

} // namespace
} // namespace folimark::test
