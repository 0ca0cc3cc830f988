#include "GlobalData.h"
#include "KeyBacklog.h"
#include "Look.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>
#include <QToolTip>

#include <chrono>

namespace folimark::test {
namespace {

QImage ListOf(const Ref<Window>& window) {
    Settle();
    auto& list = dynamic_cast<QTableView&>(WidgetOf(window, "TheListBox"));
    return list.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

Color RowColor(const QImage& list, int x, int row) {
    return ColorAt(list, x, row * Listbox::kRowHeight + Listbox::kRowHeight / 2) & 0xFFFFFF;
}

TEST(Listbox, RowsAreStripedBehindTheLastToo) {
    const TestFolder folder{"a.mp3", "b.mp3", "c.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    album->Highlighted.Set(2, true);
    for (const Ref<Window>& window : {Ref<Window>(application.Albums()), Ref<Window>(album)}) {
        const QImage list = ListOf(window);
        const QSize size = list.deviceIndependentSize().toSize();
        const int rows = size.height() / Listbox::kRowHeight;
        ASSERT_GT(rows, 10);
        for (int row = 1; row < rows; ++row) {
            const bool marked = row == 2 && window == album;
            for (const int x : {size.width() / 2, size.width() - 1}) {
                EXPECT_EQ(RowColor(list, x, row), marked ? Look::kHighlightedRow : Look::Stripe(row)) << row;
            }
        }
    }
    int paints = 0;
    album->TheListBox()->CellBackgroundPaint = [&paints](auto&&...) { return ++paints > 0; };
    album->TheListBox()->Refresh(true);
    EXPECT_GT(paints, 0);
    EXPECT_THROW(album->TheListBox()->Cell(0, 5), OutOfBoundsException);
}

TEST(Listbox, HelpComesOnceAndNamesThatAreCutOffShowThemselves) {
    const std::string longName = std::string(200, 'n') + ".mp3";
    const TestFolder folder{"a.mp3", longName};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    QWidget& rows = *dynamic_cast<QTableView&>(WidgetOf(album, "TheListBox")).viewport();
    const auto tagAt = [&](int row) {
        QToolTip::hideText();
        WaitFor([] { return !QToolTip::isVisible(); }, "the last help tag has gone");
        const QPoint place(50, row * Listbox::kRowHeight + 1);
        QHelpEvent event(QEvent::ToolTip, place, rows.mapToGlobal(place));
        QApplication::sendEvent(&rows, &event);
        return QToolTip::isVisible() ? QToolTip::text().remove(QChar(0x200B)).toStdString() : "";
    };
    EXPECT_NE(tagAt(0).find("This is a list of media files"), std::string::npos);
    EXPECT_EQ(tagAt(0), "");
    EXPECT_NE(tagAt(1).find(longName), std::string::npos);
    EXPECT_EQ(tagAt(0), "");
    QEvent leaves(QEvent::Leave);
    QApplication::sendEvent(&rows, &leaves);
    EXPECT_NE(tagAt(0), "");
}

TEST(Listbox, TheSelectedRowCanBeSeenInFrontAndBehind) {
    const TestFolder folder{"WWW.mp3", "WXW.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    for (const bool inFront : {true, false}) {
        (inFront ? Ref<Window>(album) : GlobalData::CatalogsWindow)->Show();
        Settle();
        ASSERT_EQ(FrontTitle(), inFront ? "Album" : "Folimark");
        for (const bool marked : {false, true}) {
            album->Highlighted.Set(0, marked);
            const QImage list = ListOf(album);
            EXPECT_NE(RowColor(list, list.deviceIndependentSize().toSize().width() / 2, 0), Look::Stripe(0))
                << "The selection can't be seen.";
            // The row's own colour is still to be seen.
            EXPECT_EQ(RowColor(list, 1, 0), marked ? Look::kHighlightedRow : Look::Stripe(0));
        }
    }
}

TEST(Listbox, RepeatsOfAHeldKeyThatComeTooLateAreDropped) {
    const TestFolder folder;
    for (int i = 100; i < 200; ++i) {
        folder.Write(std::to_string(i) + ".mp3");
    }
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    for (int row = 0; row < 100; ++row) { // so that Tab steps from each to the next
        album->Highlighted.Set(row, true);
    }
    album->NumberHighlighted = 100;
    QWidget& list = WidgetOf(album, "TheListBox");
    constexpr std::int64_t kNow = 1'000'000; // the window system's clock, in milliseconds
    std::int64_t ahead = kNow;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Tab}) {
        const auto hold = [&](std::int64_t time, bool repeats) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeats);
            event.setTimestamp(static_cast<quint64>(time));
            QApplication::sendEvent(&list, &event);
        };
        album->TheListBox()->ListIndex(0);
        hold(kNow, false);
        EXPECT_EQ(album->TheListBox()->ListIndex(), 1);
        for (std::int64_t i = 1; i <= 20; ++i) {
            hold(kNow - 3000 + i * 30, true); // they have waited for seconds
        }
        EXPECT_EQ(album->TheListBox()->ListIndex(), 1);
        hold(ahead += 60'000, true); // far ahead of what this test takes
        EXPECT_EQ(album->TheListBox()->ListIndex(), 2);
        hold(kNow - 3000, false); // a press of its own is never dropped
        EXPECT_EQ(album->TheListBox()->ListIndex(), 3);
    }
}

TEST(KeyBacklog, ClocksThatDriftOrAreSetMakeNothingLate) {
    KeyBacklog backlog;
    std::int64_t now = 0;
    const auto comes = [&](std::int64_t stamp) { return !backlog.IsLate(stamp, true, now += 30); };
    for (std::int64_t i = 1; i < 20'000; ++i) {
        EXPECT_TRUE(comes(i * 30 - i / 10)) << i; // ten minutes with a clock that loses two seconds in them
    }
    EXPECT_FALSE(comes(now - 3000));
    constexpr std::int64_t kSet = -4'000'000'000; // back to the start of its count
    EXPECT_TRUE(comes(kSet + now));
    EXPECT_TRUE(comes(kSet + now + 30));
}

} // namespace
} // namespace folimark::test
