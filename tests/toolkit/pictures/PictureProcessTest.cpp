#include "PictureFixtures.h"
#include "PictureWorker.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>

namespace folimark::test {
namespace {

/// The tests here run with the process that misbehaves.
class PictureProcess : public testing::Test {
  protected:
    void SetUp() override {
        EndPictureProcess();
        SetPictureProcessExecutable(MISBEHAVING_PICTURES);
    }
    void TearDown() override {
        EndPictureProcess();
        SetPictureProcessExecutable("");
    }
    static std::string Behave(std::string_view how) { return Sizes(Read("", how)); }
    static constexpr const char* kGood = "1x1 as 1x1";
};

bool HasChild() {
    siginfo_t child{};
    return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0;
}

TEST_F(PictureProcess, IsReplacedWhenItMisbehaves) {
    for (const char* how :
         {"die", "lie about the size", "lie below zero", "answer in part", "keep the memory open",
          "shrink the memory", "a name that is much too long for a type"}) {
        EXPECT_EQ(Behave(how), "nothing") << how;
        EXPECT_EQ(Behave("well"), kGood) << "after: " << how;
    }
}

TEST_F(PictureProcess, GetsNoMoreMemoryThanItMay) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "AddressSanitizer and a limit of memory exclude each other";
#endif
    EXPECT_EQ(Behave("be greedy"), "nothing");
    EXPECT_EQ(Behave("well"), kGood);
}

TEST_F(PictureProcess, IsEndedWhenItDoesNotAnswer) {
    PictureWorker worker;
    worker.SetExecutable(MISBEHAVING_PICTURES);
    const Descriptor file = FileWith("");
    const Descriptor memory = FileWith("pixel");
    PictureRequest request{{"hang"}, 0, 0};
    EXPECT_FALSE(worker.Ask(request, {file.Get(), memory.Get()}, std::chrono::milliseconds(100)));
    EXPECT_FALSE(HasChild());
    request.type = {"well"};
    EXPECT_TRUE(worker.Ask(request, {file.Get(), memory.Get()}, std::chrono::minutes(1)));
}

TEST_F(PictureProcess, IsReplacedWhenItDiedBetweenTwoPictures) {
    EXPECT_EQ(Behave("answer and die"), kGood);
    siginfo_t child{};
    EXPECT_EQ(waitid(P_ALL, 0, &child, WEXITED | WNOWAIT), 0);
    EXPECT_EQ(Behave("well"), kGood);
}

TEST_F(PictureProcess, GivesNoAnswerToAnotherQuestion) {
    EXPECT_EQ(Sizes(Read("", "answer twice")), "7x7 as 7x7");
    EXPECT_EQ(Behave("well"), kGood);
}

TEST_F(PictureProcess, InheritsNoDescriptor) {
    const Descriptor inheritable(open("/", O_RDONLY)); // NOLINT(android-cloexec-open)
    EXPECT_EQ(Behave("count descriptors"),
              "1x1 as 6x1"); // three standard ones, the socket, and two of the request
}

TEST_F(PictureProcess, LeavesNothingBehind) {
    std::optional<DecodedPicture> picture = Read("", "well");
    EXPECT_TRUE(HasChild());
    EndPictureProcess();
    EXPECT_FALSE(HasChild());
    EXPECT_EQ(*picture->pixels, 0xFFFFFFFF);
}

TEST_F(PictureProcess, ReachesNothingOutside) {
    for (const char* how : {"start a program", "use the network", "write a file"}) {
        EXPECT_EQ(Behave(how), kGood) << how; // 2 wide if it could
    }
}

TEST_F(PictureProcess, IsNotNeededWhereThereIsNoFile) {
    SetPictureProcessExecutable("/nowhere");
    EXPECT_EQ(Behave("well"), "nothing");
    SetPictureProcessExecutable(MISBEHAVING_PICTURES);
    std::array<int, 2> pipe{};
    ASSERT_EQ(pipe2(pipe.data(), O_CLOEXEC), 0);
    const Descriptor reading(pipe[0]);
    const Descriptor writing(pipe[1]);
    const Descriptor folder(open("/", O_RDONLY | O_CLOEXEC));
    for (const int file : {reading.Get(), folder.Get(), -1}) {
        EXPECT_FALSE(ReadPicture(file, "well", 0, 0));
    }
    EXPECT_FALSE(HasChild());
}

} // namespace
} // namespace folimark::test
