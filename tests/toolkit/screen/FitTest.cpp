#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTableView>

namespace folimark::test {
namespace {

/// All of a window is on that screen, nothing in it reaches out of it, and each caption has its room.
void ExpectWhole(const Ref<Window>& window, const QRect& screen, const std::string& when) {
    const QWidget& frame = *WidgetOf(window, "TheListBox").window();
    EXPECT_TRUE(screen.contains(QRect(frame.mapToGlobal(QPoint(0, 0)), frame.size()))) << when;
    for (QWidget* widget : frame.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* label = qobject_cast<QLabel*>(widget);
        if (!widget->isVisible() || (button == nullptr && label == nullptr)) {
            continue;
        }
        const std::string what = when + ": " + widget->objectName().toStdString();
        EXPECT_NE(widget->objectName(), "qt_toolbar_ext_button") << what;
        EXPECT_TRUE(frame.rect().contains(QRect(widget->mapTo(&frame, QPoint(0, 0)), widget->size())))
            << what;
        const QString caption = button != nullptr ? button->text() : label->text();
        const QFontMetrics metrics = widget->fontMetrics();
        EXPECT_GE(widget->width(), metrics.horizontalAdvance(caption)) << what;
        EXPECT_GE(widget->height(), metrics.height()) << what;
    }
    const auto& list = dynamic_cast<QTableView&>(WidgetOf(window, "TheListBox"));
    EXPECT_GE(list.rowHeight(0), list.fontMetrics().height()) << when;
    const QModelIndex selected = list.selectionModel()->currentIndex();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(selected))) << when;
    const int row = list.rowHeight(0);
    const int cut = list.viewport()->height() % row;
    EXPECT_TRUE(cut == 0 || cut == row - 1 || (3 * cut >= row && 3 * cut <= 2 * row)) << when << ": " << cut;
    const QHeaderView& headings = *list.horizontalHeader();
    EXPECT_TRUE(headings.isHidden() || headings.height() >= headings.fontMetrics().height()) << when;
}

TEST(Fit, WindowsAreWholeInEachFontAndOnEachScreen) {
    const TestFolder folder;
    for (int i = 100; i < 200; ++i) {
        folder.Write("Day 1/" + std::to_string(i) + ".mp3", "");
    }
    const QFont before = QApplication::font();
    for (const auto& [family, points] :
         {std::pair("", 8), std::pair("", 9), std::pair("", 11), std::pair("", 13), std::pair("", 17),
          std::pair("Noto Sans CJK JP", 11)}) {
        QFont font = before;
        font.setPointSize(points);
        font.setFamily(*family == '\0' ? before.family() : QString::fromLatin1(family));
        QApplication::setFont(font);
        RunningApplication::WriteListFile(std::string(59, '\n') + folder.Item()->AbsolutePath() + "\n");
        const RunningApplication application;
        const Ref<aCatalogsWindow> albums = application.Albums();
        for (const QScreen* screen : QApplication::screens()) {
            const QRect room = screen->geometry();
            for (const QPoint place : {QPoint(24, 100), QPoint(room.width() / 2, room.height() / 2)}) {
                const std::string when = std::string(family) + " " + std::to_string(points) + " on "
                                         + screen->name().toStdString() + " at " + std::to_string(place.x());
                const int row = dynamic_cast<QTableView&>(WidgetOf(albums, "TheListBox")).rowHeight(0);
                albums->Left((room.x() + place.x()) * 16 / row);
                albums->Top((room.y() + place.y()) * 16 / row);
                ClickRow(albums, 59);
                ExpectWhole(albums, room, when);
                Click(albums, "Open Album");
                const Ref<aListWindow> album = application.Album(59);
                Press(Qt::Key_End);
                ExpectWhole(album, room, when);
                album->Close();
                Settle();
            }
        }
    }
    QApplication::setFont(before);
}

TEST(Fit, OpenWindowsFollowTheFont) {
    const TestFolder folder{"a.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const auto& list = dynamic_cast<QTableView&>(WidgetOf(album, "TheListBox"));
    const QSize size = list.size();
    const QFont before = QApplication::font();
    for (const int points : {13, before.pointSize()}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        Settle();
        ExpectWhole(album, list.screen()->geometry(), std::to_string(points));
    }
    EXPECT_EQ(list.size(), size);
}

} // namespace
} // namespace folimark::test
