#include "Escapes.h"
#include "Landlock.h"
#include "PictureFixtures.h"
#include "PictureWorker.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>

namespace folimark::test {
namespace {

/// An abstract socket of that name that listens.
Descriptor Listening(const std::string& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::ranges::copy(name, address.sun_path + 1);
    Descriptor made(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(bind(made.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(made.Get(), 1), 0);
    return made;
}

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

/// Returns when no process of ours is left, which may take a moment; a test that has to wait for ever fails.
void WaitForLastChild() {
    siginfo_t child{};
    while (waitid(P_ALL, 0, &child, WEXITED | WNOWAIT) == 0) {
    }
}

TEST_F(PictureProcess, IsReplacedWhenItMisbehaves) {
    for (const char* how :
         {"die", "end", "lie about the size", "lie below zero", "lie about one side", "answer in part",
          "keep the memory open", "shrink the memory", "a name that is much too long for a type"}) {
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
    const auto in = [](auto time) { return PictureWorker::Clock::now() + time; };
    EXPECT_FALSE(worker.Ask(request, {file.Get(), memory.Get()}, in(std::chrono::milliseconds(100))));
    WaitForLastChild();
    request.type = {"well"};
    EXPECT_TRUE(worker.Ask(request, {file.Get(), memory.Get()}, in(std::chrono::minutes(1))));
}

TEST_F(PictureProcess, IsReplacedWhenItDiedBetweenTwoPictures) {
    EXPECT_EQ(Behave("answer and die"), kGood);
    WaitForLastChild(); // nor a zombie
    EXPECT_EQ(Behave("well"), kGood);
}

TEST_F(PictureProcess, IsReplacedWhenItHasGrown) {
    EXPECT_EQ(Behave("well"), kGood);
    EXPECT_EQ(Behave("count questions"), "1x1 as 2x1");
    EXPECT_EQ(Behave("grow"), kGood);
    EXPECT_EQ(Behave("count questions"), kGood);
}

TEST_F(PictureProcess, GivesNoAnswerToAnotherQuestion) {
    EXPECT_EQ(Sizes(Read("", "answer twice")), "7x7 as 7x7");
    EXPECT_EQ(Behave("well"), kGood);
}

TEST_F(PictureProcess, InheritsNothing) {
    const Descriptor inheritable(open("/", O_RDONLY)); // NOLINT(android-cloexec-open)
    EXPECT_EQ(Behave("count descriptors"),
              "1x1 as 6x1");                     // three standard ones, the socket, and two of the request
    EXPECT_EQ(Behave("count variables"), kGood); // one more than there are
    EXPECT_EQ(Behave("count sessions"), kGood);
}

TEST_F(PictureProcess, LeavesNothingBehind) {
    std::optional<DecodedPicture> picture = Read("", "well");
    EndPictureProcess();
    WaitForLastChild();
    EXPECT_EQ(*picture->pixels, 0xFFFFFFFF);
}

TEST_F(PictureProcess, CanDoNothingButDecode) {
    const TestFolder folder{"a.jpg", "a.jpg-folder/"};
    const Descriptor service = Listening("folimark-test-" + std::to_string(getpid()));
    const int landlock = LandlockVersion();
    const auto expectHeld = [&](const std::string& walls, auto isHeld) {
        EndPictureProcess();
        EXPECT_TRUE(ReadPicture({folder.Path("a.jpg"), walls}).picture) << walls;
        for (std::size_t i = 0; i < Escapes().size(); ++i) {
            if (isHeld(Escapes()[i])) {
                const auto reading = ReadPicture({folder.Path("a.jpg"), "try " + std::to_string(i)});
                EXPECT_EQ(Sizes(reading.picture), kGood)
                    << walls << ": " << Escapes()[i].name; // 2 wide if it could
            }
        }
    };
    expectHeld("both", [=](const Escape& escape) { return escape.heldByCalls || landlock > 0; });
    EXPECT_EQ(Behave("miss a call"), kGood);
    expectHeld("only calls", [](const Escape& escape) { return escape.heldByCalls; });
    for (const int version : {1, 2, 3, 4, 5, 6, 99}) {
        if (version <= landlock || version == 99) {
            expectHeld("only files " + std::to_string(version), [&](const Escape& escape) {
                return escape.heldByLandlock > 0 && escape.heldByLandlock <= std::min(version, landlock);
            });
        }
    }
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.jpg", "a.jpg-folder"}));
    EXPECT_EQ(folder.Read("a.jpg"), "content");
}

TEST_F(PictureProcess, IsToldFromAFileThatCantBeRead) {
    const TestFolder folder{"a.jpg"};
    const struct {
        const char* executable;
        const char* how;
        PictureRefusal refusal;
    } cases[] = {{"/nowhere", "well", PictureRefusal::ReaderIsBroken},
                 {"/bin/true", "well", PictureRefusal::ReaderIsBroken},
                 {MISBEHAVING_PICTURES, "die", PictureRefusal::Damaged},
                 {MISBEHAVING_PICTURES, "lie below zero", PictureRefusal::None}};
    for (const auto& c : cases) {
        EndPictureProcess();
        SetPictureProcessExecutable(c.executable);
        const PictureReading reading = ReadPicture({folder.Path("a.jpg"), c.how});
        EXPECT_FALSE(reading.picture);
        EXPECT_EQ(reading.refusal, c.refusal) << c.executable << ", " << c.how;
    }
}

TEST_F(PictureProcess, IsNotNeededWhereThereIsNoFile) {
    const TestFolder folder{"sub/"};
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    for (const std::string& path :
         {folder.Path("pipe"), folder.Path("sub"), folder.Path("none"), std::string()}) {
        EXPECT_EQ(ReadPicture({path, "well"}).refusal, PictureRefusal::Unreadable) << path;
    }
    WaitForLastChild();
}

} // namespace
} // namespace folimark::test
