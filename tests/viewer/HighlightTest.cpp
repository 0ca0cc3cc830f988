#include "Answers.h"
#include "EventGate.h"
#include "GlobalData.h"
#include "Look.h"
#include "RunningApplication.h"
#include "TestFolder.h"
#include "aHilightWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>

namespace folimark::test {
namespace {

const char* const kConjunctions[] = {"Select any qualification",
                                     "And the phrase:", "Or the phrase:", "But not the phrase:"};

/// Clears a field and types into it.
void Enter(const Ref<Window>& dialog, const std::string& field, const std::string& text) {
    QWidget& widget = WidgetOf(dialog, field);
    ClickAt(widget, widget.rect().center());
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type(text);
}

void Search(const Ref<aListWindow>& album, const std::string& phrase1, int join, const std::string& phrase2) {
    const Answers answers{{kHighlightDialog, "", [&](const Ref<Window>& dialog) {
                               Enter(dialog, "PhraseTextField", phrase1);
                               ChooseRow(dialog, "ConjunctionPopUpMenu", kConjunctions[join]);
                               if (join > 0) {
                                   Enter(dialog, "ConjoinedPhraseTextField", phrase2);
                               }
                               Click(dialog, "OK");
                           }}};
    Click(album, "Highlight…");
}

std::string Marks(const Ref<aListWindow>& album) {
    std::string marks;
    for (std::int64_t row = 0; row <= album->Highlighted.Ubound(); ++row) {
        marks += album->Highlighted(row) ? 'x' : '.';
    }
    return marks;
}

TEST(Highlight, PhrasesAreJoined) {
    struct Case {
        const char* phrase1;
        int join;
        const char* phrase2;
        const char* marks;
    };
    const Case cases[] = {
        {"BEACH", 0, "", "xx..x."},    {"beach", 1, "sun", ".x..x."},  {"beach", 2, "sun", "xx.xx."},
        {"beach", 3, "sun", "x....."}, {"Tag 1 → S", 0, "", "....x."}, {"ß", 0, "", ".....x"},
        {"no such", 0, "", "......"},  {"beach", 1, "", "xx..x."}, // no second phrase: the first alone
        {" ", 0, "", ".x..xx"}};
    const TestFolder folder{"beach.mp3", "Beachfront sun.mp3",         "Sun.mp3",
                            "none.mp3",  "Tag 1/Sun at the Beach.mp3", "zum Spaß.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    ASSERT_EQ(Names(album->TheListBox()),
              "beach.mp3, Beachfront sun.mp3, none.mp3, Sun.mp3, Tag 1 → Sun at the Beach.mp3, zum Spaß.mp3");
    ClickRow(album, 3);
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.phrase1) + " " + std::to_string(c.join) + " " + c.phrase2);
        const DuringYield pass([] {}, [&] { return !album->TheListBox()->Visible(); });
        Search(album, c.phrase1, c.join, c.phrase2);
        EXPECT_EQ(Marks(album), c.marks);
        const auto count = std::count(c.marks, c.marks + std::strlen(c.marks), 'x');
        EXPECT_EQ(album->HighlightCountLabel()->Text(), std::to_string(count) + " Media Files Highlighted");
        EXPECT_EQ(album->RemoveHighlightingPushButton()->Enabled(), count > 0);
        EXPECT_TRUE(album->TheListBox()->Visible());
        EXPECT_EQ(album->TheListBox()->ListIndex(), 3);
    }
    Choose("Edit", "Remove Highlighting");
    EXPECT_EQ(album->TheListBox()->ListIndex(), 3);
    EXPECT_EQ(Marks(album), "......");
    EXPECT_THROW(Choose("Edit", "Remove Highlighting"), RobotFailure);
}

TEST(Highlight, TheDialogCanBeFilledInByKeysAlone) {
    const TestFolder folder{"beach.mp3", "sun.mp3", "sunny beach.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const Answers answers{{kHighlightDialog, "", [](const Ref<Window>&) {
                               Type("beach");
                               Press(Qt::Key_Tab);
                               Press(Qt::Key_Space);
                               PressInMenu(Qt::Key_Down);
                               PressInMenu(Qt::Key_Return);
                               Type("sun");
                               Press(Qt::Key_Return);
                           }}};
    Press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(Marks(album), "..x");
}

TEST(Highlight, TabGoesRoundTheMarkedRows) {
    struct Case {
        const char* marked; // the phrase
        int from;
        bool back;
        int to;
    };
    const Case cases[] = {{"x", 5, false, 9}, {"x", 9, false, 2}, {"x", 2, true, 9},  {"x", 9, true, 5},
                          {"y", 4, false, 4}, {"y", 4, true, 4},  {"y", 7, false, 4}, {"none", 3, false, 3}};
    const TestFolder folder;
    for (int i = 0; i < 10; ++i) {
        folder.Write(std::to_string(i) + (i == 2 || i == 5 || i == 9 ? " x" : "") + (i == 4 ? " y" : "")
                     + ".wav");
    }
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    for (const Case& c : cases) {
        Search(album, c.marked, 0, "");
        ClickRow(album, c.from);
        Press(c.back ? Qt::Key_Backtab : Qt::Key_Tab, c.back ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_EQ(album->TheListBox()->ListIndex(), c.to) << c.marked << " from " << c.from;
        EXPECT_TRUE(WidgetOf(album, "TheListBox").hasFocus());
    }
    Search(album, "x", 0, "");
    ClickRow(album, 2);
    {
        const DuringYield onTheWay([] {}, IsInputHeld); // Else a second Tab would start where this one did.
        Press(Qt::Key_Tab);
    }
    // Marks belong to positions: sorting moves the rows and not the marks.
    Search(album, "x", 0, "");
    ClickHeading(album, "Media files in this album");
    EXPECT_EQ(Marks(album), "..x..x...x");
    Press(Qt::Key_R, Qt::ControlModifier); // hides the list for a while
    EXPECT_TRUE(WidgetOf(album, "TheListBox").hasFocus());
}

TEST(Highlight, MarksOnTheScrollBarLeadToTheirRows) {
    const TestFolder folder;
    for (int i = 1000; i < 1300; ++i) {
        folder.Write(std::to_string(i) + ".wav");
    }
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    Search(album, "1200", 0, "");
    auto& bar = *dynamic_cast<QTableView&>(WidgetOf(album, "TheListBox")).verticalScrollBar();
    const QImage picture = bar.grab().toImage();
    int mark = bar.height() - 1;
    while (mark > 0 && (ColorAt(picture, bar.width() / 2, mark) & 0xFFFFFF) != Look::kHighlightedRow) {
        --mark;
    }
    ClickAt(bar, QPoint(bar.width() / 2, mark));
    EXPECT_EQ(album->TheListBox()->ListIndex(), 200);
    Choose("Edit", "Remove Highlighting");
    EXPECT_NE(ColorAt(bar.grab().toImage(), bar.width() / 2, mark), ColorAt(picture, bar.width() / 2, mark));
}

TEST(Highlight, TheDialogKeepsTheLastAcceptedSearch) {
    using namespace GlobalData;
    const TestFolder folder{"a.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    const auto ask = [&](const std::function<void(const Ref<aHilightWindow>&)>& use) {
        const Answers answers{
            {kHighlightDialog, "", [&](const Ref<Window>& window) { use(window.As<aHilightWindow>()); }}};
        Press(Qt::Key_L, Qt::ControlModifier);
        return HighlightPhrase1 + "|" + std::to_string(HighlightType) + "|" + HighlightPhrase2 + "|"
               + (HighlightOK ? "OK" : "Cancel");
    };
    Search(album, "a", 2, "b");
    EXPECT_EQ(ask([&](const auto& dialog) {
                  EXPECT_EQ(dialog->PhraseTextField()->Text(), "a");
                  EXPECT_EQ(dialog->ConjunctionPopUpMenu()->ListIndex(), 2);
                  EXPECT_EQ(dialog->ConjoinedPhraseTextField()->Text(), "b");
                  EXPECT_EQ(QApplication::focusWidget(), &WidgetOf(dialog, "ConjoinedPhraseTextField"));
                  QApplication::clipboard()->setText(QStringLiteral("\nne\r\nw\n"));
                  Press(Qt::Key_V, Qt::ControlModifier); // It replaces what stands there, and is one line.
                  EXPECT_EQ(dialog->ConjoinedPhraseTextField()->Text(), "ne w");
                  Press(Qt::Key_Z, Qt::ControlModifier);
                  EXPECT_EQ(dialog->ConjoinedPhraseTextField()->Text(), "b");
                  const auto windowOf = [](const Ref<Window>& window, const char* control) {
                      return WidgetOf(window, control).window()->windowHandle();
                  };
                  EXPECT_EQ(windowOf(dialog, "OKPushButton")->transientParent(),
                            windowOf(album, "TheCanvas"));
                  WidgetOf(dialog, "OKPushButton").window()->close(); // as a window manager's key asks for it
                  Enter(dialog, "PhraseTextField", "other");
                  EXPECT_THROW(Click(album, "Show Folimark Window"), RobotFailure); // it is modal
                  Press(Qt::Key_Escape);
              }),
              "a|2|b|Cancel");
    EXPECT_EQ(ask([](const auto& dialog) {
                  ChooseRow(dialog, "ConjunctionPopUpMenu", kConjunctions[0]);
                  EXPECT_THROW(Enter(dialog, "ConjoinedPhraseTextField", "hidden"), RobotFailure);
                  Press(Qt::Key_Return);
              }),
              "a|0||OK");
    EXPECT_EQ(ask([](const auto& dialog) {
                  ChooseRow(dialog, "ConjunctionPopUpMenu", kConjunctions[1]);
                  Enter(dialog, "ConjoinedPhraseTextField", "b");
                  Enter(dialog, "PhraseTextField", "");
                  {
                      const Answers answers{{"No phrase has been entered", "OK"}};
                      Click(dialog, "OK");
                  }
                  EXPECT_EQ(dialog->ConjunctionPopUpMenu()->ListIndex(), 1);
                  EXPECT_GT(dialog->ControlCount(), 0);
                  Click(dialog, "Cancel");
              }),
              "a|0||Cancel");
}

} // namespace
} // namespace folimark::test
