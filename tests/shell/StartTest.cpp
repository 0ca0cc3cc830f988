#include "Answers.h"
#include "Application.h"
#include "EventGate.h"
#include "RunningApplication.h"
#include "TestFolder.h"
#include "Yield.h"

#include <gtest/gtest.h>

namespace folimark::test {

// Not hidden in this file, so that call stacks know its name.
void OpenNothing(Listbox& /*list*/) {
    Ref<FolderItem>()->Launch(true);
}

namespace {

void RaiseForeign(Listbox& /*list*/) {
    throw std::runtime_error("none of ours");
}

void ListOneAlbum(const TestFolder& folder) {
    RunningApplication::WriteListFile(folder.Item()->AbsolutePath() + "\n");
}

Ref<aCatalogsWindow> Albums() {
    return WindowTitled("Folimark").As<aCatalogsWindow>();
}

TEST(Start, TheApplicationEndsInOrder) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"close button", [] { CloseByFrame(Albums()); }},
        {"menu", [] { Choose("File", "Quit"); }},
        {"key", [] { Press(Qt::Key_Q, Qt::ControlModifier); }},
        {"at once", [] {
             Quit(0);
             EXPECT_THROW(LetEventsIn([] {}), EndException);
             SetYieldHandler(SetYieldHandler({})); // the next yield is due, though the application is ending
         }}};
    const TestFolder folder{"a.jpg"};
    ListOneAlbum(folder);
    for (const auto& [name, way] : ways) {
        Ref<aListWindow> album;
        EXPECT_EQ(RunToEnd([&, end = way] {
                      DoubleClickRow(Albums(), 0);
                      album = WindowTitled("Album").As<aListWindow>();
                      end();
                  }),
                  0)
            << name;
        EXPECT_EQ(album->ControlCount(), 0) << name;
        EXPECT_FALSE(RunningApplication::ListFile().empty()) << name;
    }
}

TEST(Start, TheWindowSystemMayEndTheProcess) {
    const TestFolder folder{"a.jpg"};
    ListOneAlbum(folder);
    EXPECT_EXIT(RunToEnd([] {
                    DoubleClickRow(Albums(), 0);
                    std::exit(1); // as it does when its server has gone
                }),
                testing::ExitedWithCode(1), "");
}

TEST(Start, AnExceptionInAHandlerIsShownOnceAndEndsTheApplication) {
    const TestFolder folder{"a.jpg"};
    ListOneAlbum(folder);
    std::vector<std::string> shown;
    Answers::Look = [&](QWidget& dialog) {
        shown.push_back(TextOf(dialog));
        EnterApplication([] { ADD_FAILURE() << "An event has entered."; });
    };
    const Answers answers{{"NilObjectException\n\n…", "OK"}, {"runtime_error\n\n…", "OK"}};
    for (void (*handler)(Listbox&) : {OpenNothing, RaiseForeign}) {
        EXPECT_EQ(RunToEnd([handler] {
                      Albums()->TheListBox()->DoubleClick = handler;
                      DoubleClickRow(Albums(), 0);
                  }),
                  1);
    }
    Answers::Look = nullptr;
    ASSERT_EQ(shown.size(), 2U);
    const std::string::size_type stack = shown.front().find("\n\n") + 2;
    const std::string::size_type name = shown.front().find("folimark::test::OpenNothing(folimark::Listbox&)");
    ASSERT_NE(name, std::string::npos) << shown.front();
    EXPECT_EQ(std::count(shown.front().begin() + static_cast<std::ptrdiff_t>(stack),
                         shown.front().begin() + static_cast<std::ptrdiff_t>(name), '\n'),
              0)
        << shown.front();
    EXPECT_EQ(RunningApplication::ListFile(), folder.Item()->AbsolutePath() + "\n");
}

} // namespace
} // namespace folimark::test
