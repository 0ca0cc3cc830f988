#include "Answers.h"
#include "ClosedWidgets.h"
#include "ControlTable.h"
#include "EventGate.h"
#include "GlobalData.h"
#include "RunningApplication.h"
#include "Screen.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

namespace folimark::test {
namespace {

/// Where the window's content stands, as the window system has it.
QPoint PlaceOfContent(const Ref<Window>& window) {
    return FrameOf(window).Content()->mapToGlobal(QPoint(0, 0));
}

TEST(Window, APlaceThatWasSetIsReadAndIsWhereTheContentStands) {
    const TestFolder folder{"a.mp3"};
    const RunningApplication application;
    const Ref<aCatalogsWindow> albums = application.Albums();
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    for (const Ref<Window>& window : {Ref<Window>(albums), Ref<Window>(album)}) {
        window->Left(31);
        window->Top(147);
        Settle();
        EXPECT_EQ(PlaceOfContent(window), QPoint(31, 147));
        EXPECT_EQ(QPoint(window->Left(), window->Top()), QPoint(31, 147));
    }
    albums->Show();
    Settle();
    album->Show();
    Settle();
    const QRect room = FrameOf(album).screen()->availableGeometry();
    EXPECT_TRUE(room.contains(FrameOf(album).geometry()));
    FrameOf(album).move(200, 300); // as a drag of its title does
    Settle();
    EXPECT_EQ(PlaceOfContent(album), QPoint(album->Left(), album->Top()));
    EXPECT_GT(album->Top(), 300);
    EXPECT_EQ(album->Width(), 1470);
    if (room.width() > 1470) {
        EXPECT_EQ(FrameOf(album).Content()->size(), QSize(1470, 634));
        EXPECT_EQ(WidgetOf(album, "TheCanvas").mapToGlobal(QPoint(0, 0)),
                  PlaceOfContent(album) + QPoint(1150, 52));
        EXPECT_THROW(DragHeight(album, 650), RobotFailure);
    }
}

TEST(Window, BarsLieOutsideOfTheHeightAndTheListFollowsIt) {
    const TestFolder folder;
    const RunningApplication application;
    const Ref<aCatalogsWindow> albums = application.Albums();
    const WindowFrame& frame = FrameOf(albums);
    const auto check = [&](int height) {
        EXPECT_EQ(albums->Height(), height);
        EXPECT_EQ(albums->TheListBox()->Height(), height);
        EXPECT_EQ(Ref<RectControl>(albums->CatalogsToolBar())->Height(), albums->CatalogsToolBar()->Height());
        EXPECT_EQ(WidgetOf(albums, "TheListBox").height(), height);
        EXPECT_EQ(frame.height(), frame.menuBar()->height() + albums->CatalogsToolBar()->Height() + height);
        EXPECT_EQ(frame.width(), 513);
    };
    check(257);
    for (const int height : {400, 129}) {
        DragHeight(albums, height);
        check(height);
    }
    EXPECT_THROW(DragHeight(albums, 128), RobotFailure);
}

TEST(Window, TheAlbumsWindowFitsItsList) {
    const std::pair<int, int> cases[] = {{0, 257}, {15, 257}, {16, 273}, {20, 337}, {2000, -1}};
    for (const auto& [count, height] : cases) {
        const TestFolder folder;
        std::string lines;
        for (int i = 0; i < count; ++i) {
            lines += "Computer:" + std::to_string(i) + ":\n";
        }
        RunningApplication::WriteListFile(lines);
        const RunningApplication application;
        const Ref<aCatalogsWindow> albums = application.Albums();
        const int most =
            (Screen(0).AvailableHeight() - 2 * albums->CatalogsToolBar()->Height()) / 16 * 16 + 1;
        EXPECT_EQ(albums->Height(), height < 0 ? most : height) << count;
        EXPECT_EQ(albums->TheListBox()->Height(), albums->Height());
    }
}

/// Notes its events.
class Probe : public Window {
  public:
    static inline std::string events;
    static inline bool fails = false;
    bool staysOpen = false;

    void Event_Open() override { events += "Open "; }
    void Event_Activate() override {
        events += "Activate ";
        if (fails) {
            throw OutOfBoundsException("on purpose");
        }
    }
    bool Event_CancelClose(bool appQuitting) override {
        events += appQuitting ? "CancelClose(quitting) " : "CancelClose ";
        Close(); // of no effect, as long as this is asked
        return staysOpen;
    }
    void Event_Close() override { events += "Close "; }

  protected:
    void Layout() override {
        Apply({.title = "Probe", .width = 100, .height = 80, .minHeight = 10, .maxHeight = 90});
    }
    void CreateControls() override {
        static constexpr ControlRow kControls[] = {{.name = "Button",
                                                    .controlClass = ControlClass::PushButton,
                                                    .bounds = {0, 0, 80, 20},
                                                    .text = "Go"}};
        BuildControls(*this, kControls);
        Control<PushButton>("Button")->Open = [] { events += "Button.Open "; };
        EXPECT_THROW(Control<PushButton>("Other"), NameNotFoundException);
        EXPECT_THROW(Control<Label>("Button"), NameNotFoundException);
    }
};

TEST(Window, EventsComeInTheirOrder) {
    const TestFolder folder;
    const RunningApplication application;
    const auto events = [] { return std::exchange(Probe::events, ""); };
    Probe::fails = false;
    const Ref<Probe> probe = New<Probe>();
    EXPECT_EQ(events(), "Button.Open Open ");
    probe->Show();
    EXPECT_EQ(events(), "Activate "); // inside Show
    Settle();
    events();
    probe->staysOpen = true;
    CloseByFrame(probe);
    EXPECT_EQ(events(), "CancelClose ");
    EXPECT_EQ(probe->ControlCount(), 1);
    application.Albums()->Show();
    Settle();
    probe->Show();
    Settle();
    EXPECT_EQ(events(), "Activate "); // each time that it comes to the front
    probe->staysOpen = false;
    CloseByFrame(probe);
    EXPECT_EQ(events(), "CancelClose Close ");
    probe->Close();
    probe->Show();
    probe->Left(5);
    probe->Title("closed");
    EXPECT_EQ(probe->ControlCount(), 0);
    EXPECT_EQ(events(), "");

    Probe::fails = true;
    const Ref<Probe> failing = New<Probe>();
    EXPECT_THROW(failing->Show(), OutOfBoundsException);
    Probe::fails = false;
    failing->Close();
    EXPECT_EQ(events(), "Button.Open Open Activate CancelClose Close ");
}

TEST(Window, AClosedWidgetOutlivesTheEventsThatMayHoldIt) {
    const TestFolder folder;
    const RunningApplication application;
    Probe::fails = false;
    const Ref<Probe> probe = New<Probe>();
    probe->Show();
    const QPointer<WindowFrame> frame = &FrameOf(probe);
    const QPointer<QWidget> menu(new QWidget); // of a text field, say, which the window system deletes itself
    bool outlived = false;
    QEventLoop loop;
    QTimer::singleShot(0, [&] {
        frame->close();
        // The next event, which may hold the window as the one that was active before, yields.
        EnterApplication([&] {
            QTimer::singleShot(0, menu, &QObject::deleteLater);
            for (int yields = 0; yields < 3; ++yields) {
                QCoreApplication::processEvents();
            }
            DeleteClosedWidgets();
            outlived = !frame.isNull() && !menu.isNull();
        });
        loop.quit();
    });
    loop.exec();
    EXPECT_TRUE(outlived);
    EXPECT_EQ(probe->ControlCount(), 0);
    WaitFor([&] { return frame.isNull() && menu.isNull(); }, "the widgets have gone");
}

} // namespace
} // namespace folimark::test
