#include "Answers.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>

namespace folimark::test {
namespace {

TEST(Keyboard, NoSequenceOfMenusAndWindowsLeavesItDead) {
    const TestFolder folder{"a.mp3", "b.mp3", "c.mp3"};
    const TestFolder other{"a.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    application.AddAlbum(other.Path());
    const std::function<void()> steps[] = {
        [] { Press(Qt::Key_F, Qt::AltModifier); },
        [] { Press(Qt::Key_Alt); },
        [] { Press(Qt::Key_F10); },
        [] { Press(Qt::Key_Escape); },
        [] { Press(Qt::Key_Right); },
        [] { Press(Qt::Key_F6); },
        [] { Press(Qt::Key_F6, Qt::ShiftModifier); },
        [] { Press(Qt::Key_Tab); },
        [] { Press(Qt::Key_W, Qt::ControlModifier); },
        [] { Press(Qt::Key_R, Qt::ControlModifier); },
        [&] { album->Show(); },
        [&] { application.Albums()->Show(); },
    };
    std::uint32_t random = 1;
    for (int sequence = 0; sequence < 300; ++sequence) {
        std::string taken;
        for (int i = 0; i < 5; ++i) {
            random = random * 1664525 + 1013904223;
            const std::size_t step = (random >> 16) % std::size(steps);
            taken += std::to_string(step) + " ";
            steps[step]();
            Settle();
        }
        const auto* bar = dynamic_cast<QMainWindow&>(*QApplication::activeWindow()).menuBar();
        while (QApplication::activePopupWidget() != nullptr || bar->activeAction() != nullptr) {
            Press(Qt::Key_Escape); // what is open is in the user's sight
        }
        const Ref<Window> front = WindowTitled(FrontTitle());
        const Ref<Listbox> list = front == album ? album->TheListBox() : application.Albums()->TheListBox();
        list->ListIndex(0);
        Press(Qt::Key_Down);
        ASSERT_EQ(list->ListIndex(), 1) << sequence << ": " << taken;
    }
}

TEST(Keyboard, ShortcutsAreHeardThoughNoWindowCountsAsActive) {
    const RunningApplication application;
    PressUnannounced(application.Albums(), Qt::Key_F1);
    EXPECT_EQ(RunningApplication::Launched().size(), 1U);
}

TEST(Keyboard, TypingInADialogGoesOnWhenItsListOfCompletionsCloses) {
    const RunningApplication application;
    Answers::Look = [](QWidget& dialog) {
        auto& name = *dialog.findChild<QLineEdit*>();
        name.setFocus();
        name.clear();
        QWidget& completions = *name.completer()->popup();
        completions.show();
        completions.hide();
        QTest::keyClick(completions.windowHandle(), Qt::Key_X);
        EXPECT_EQ(name.text(), QStringLiteral("x"));
    };
    const Answers answers{{kFolderDialog, ""}};
    Press(Qt::Key_N, Qt::ControlModifier);
    Answers::Look = nullptr;
}

TEST(Keyboard, EachCommandHasItsKey) {
    const TestFolder folder{"b/zebra.mp3", "ch1.mp3", "ch2.mp3", "Zoo/a.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const Ref<Listbox> list = album->TheListBox();
    EXPECT_EQ(Names(list), "b → zebra.mp3, ch1.mp3, ch2.mp3, Zoo → a.mp3");
    Press(Qt::Key_1, Qt::ControlModifier); // sorted by it already, so this reverses
    EXPECT_EQ(Names(list), "Zoo → a.mp3, ch2.mp3, ch1.mp3, b → zebra.mp3");
    for (const auto& [typed, row] : {std::pair("zo", 0), std::pair("zeb", 3), std::pair("ch", 1)}) {
        Press(Qt::Key_Home); // ends what has been typed before
        Type(typed);
        EXPECT_EQ(list->ListIndex(), row) << typed;
    }
    // The menu bar has the keyboard then, and its commands are about the list.
    dynamic_cast<QMainWindow&>(*QApplication::activeWindow()).menuBar()->setFocus(Qt::MenuBarFocusReason);
    Choose("Edit", "Copy");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), folder.Path("ch2.mp3"));
    Press(Qt::Key_F1);
    EXPECT_EQ(RunningApplication::Launched().size(), 1U);
    for (int i = 0; qobject_cast<QAbstractButton*>(QApplication::focusWidget()) == nullptr && i < 9; ++i) {
        Press(Qt::Key_F6);
    }
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "EditPushButton");
    Press(Qt::Key_Return);
    EXPECT_EQ(RunningApplication::Launched().size(), 2U);
    Press(Qt::Key_W, Qt::ControlModifier);
    Press(Qt::Key_F6);
    album->Show();
    Settle();
    application.Albums()->Show();
    Settle();
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "TheListBox");
    const Answers answers{{kFolderDialog, ""}, {"Trash the “Album” album?", "Trash"}};
    Press(Qt::Key_N, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(application.Labels(), "");
}

} // namespace
} // namespace folimark::test
