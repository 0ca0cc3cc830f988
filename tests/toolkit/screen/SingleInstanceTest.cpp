#include "SingleInstance.h"
#include "Hindrances.h"
#include "TestFolder.h"

#include <QCoreApplication>

#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace folimark::test {
namespace {

using Claim = SingleInstance::Claim;
using std::chrono::milliseconds;

class SingleInstanceTest : public testing::Test {
  protected:
    Claim TakeFirst() {
        return first_.Take(
            Folder(), [this] { ++shown_; }, milliseconds(60000));
    }
    std::string Folder() const { return folder_.Path(); }

    TestFolder folder_{"a.jpg"};
    SingleInstance first_;
    int shown_ = 0;
};

TEST_F(SingleInstanceTest, TheSecondShowsTheFirst) {
    ASSERT_EQ(TakeFirst(), Claim::Granted);
    const std::string link = Folder() + "-link";
    std::filesystem::create_directory_symlink(Folder(), link);
    for (const std::string& way : {Folder(), link}) {
        std::future<Claim> second = std::async(std::launch::async, [&way] {
            return SingleInstance().Take(
                way, [] {}, milliseconds(60000));
        });
        while (second.wait_for(milliseconds(1)) != std::future_status::ready) {
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(second.get(), Claim::Forwarded) << way;
    }
    std::filesystem::remove(link);
    EXPECT_EQ(shown_, 2);
    EXPECT_EQ(SingleInstance().Take(Folder() + "/other", [] {}), Claim::Granted);
}

TEST_F(SingleInstanceTest, OneThatHangsIsToldFromOneThatHasDied) {
    const pid_t child = fork();
    if (child == 0) {
        TakeFirst();
        _exit(0); // without having let go of anything
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    ASSERT_EQ(TakeFirst(), Claim::Granted);
    EXPECT_EQ(SingleInstance().Take(
                  Folder(), [] {}, milliseconds(0)),
              Claim::Unanswered);
    EXPECT_EQ(shown_, 0);
}

TEST_F(SingleInstanceTest, StrangersHaveNoSay) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "Only root can be somebody else.";
    }
    SingleInstance stranger;
    {
        const AsNobody nobody;
        ASSERT_EQ(stranger.Take(Folder(), [] {}), Claim::Granted);
    }
    EXPECT_EQ(TakeFirst(), Claim::Granted);
}

} // namespace
} // namespace folimark::test
