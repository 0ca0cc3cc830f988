#include "TreeWalk.h"
#include "FileTypeRegistry.h"
#include "TestFolder.h"
#include "Yield.h"

#include <atomic>
#include <gtest/gtest.h>
#include <latch>
#include <random>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> asked = 0;
std::latch* answer = nullptr; // what a question about "hangs.jpg" waits for

} // namespace

/// In place of the C library's.
extern "C" int statx(int folder, const char* name, int flags, unsigned mask, struct statx* status) noexcept {
    asked += *name == '\0' ? 0 : 1;
    if (std::string_view(name) == "hangs.jpg") {
        answer->wait();
    }
    return static_cast<int>(syscall(SYS_statx, folder, name, flags, mask, status));
}

namespace folimark {
namespace {

using test::TestFolder;

/// What a walk looks like that asks each item, folder by folder.
void List(const Ref<FolderItem>& folder, std::string& listed) {
    for (std::int64_t i = 1; i <= folder->Count(); ++i) {
        const Ref<FolderItem> item = folder->Item(i);
        listed += item->AbsolutePath() + (item->Exists() ? " " : "?") + item->Type() + "\n";
        if (item->Directory() && !item->NativePath().ends_with("passed by")) {
            List(item, listed);
        }
    }
}

class TreeWalkTest : public testing::Test {
  protected:
    TreeWalkTest() {
        RegisterFileType("image/jpeg", "prvw", "JPEG", ".jpg", "public.jpeg");
        SetYieldHandler([] {});
    }
    ~TreeWalkTest() override {
        SetYieldHandler(nullptr);
        ForgetFileTypes();
    }
};

TEST_F(TreeWalkTest, MeetsAllInOrderAndAsksAboutEachFileOnce) {
    std::mt19937 random(3);
    const TestFolder folder{"passed by/deep/a.jpg", ".hidden folder/sub/b.jpg", "empty/"};
    int files = 0;
    for (int i = 0; i < 400; ++i) {
        const std::string inside = "f" + std::to_string(random() % 4) + (random() % 2 == 0 ? "/g/" : "/");
        folder.Write(inside + std::to_string(i) + (i % 5 == 0 ? ".txt" : ".jpg"));
        files += i % 5 == 0 ? 0 : 1;
    }
    folder.Link("f1/gone.jpg", "nothing");
    folder.Link("f2/0.jpg", "../f1");
    std::string expected;
    List(folder.Item(), expected);
    for (const bool yields : {false, true}) {
        asked = 0;
        std::string met;
        for (TreeWalk walk(folder.Item()); walk.Next();) {
            if (const Ref<FolderItem> item = walk.Item()) {
                met += item->AbsolutePath() + (item->Exists() ? " " : "?") + item->Type() + "\n";
                EXPECT_EQ(GetFolderItem(item->AbsolutePath())->NativePath(), item->NativePath());
                if (item->Directory() && !item->NativePath().ends_with("passed by")) {
                    walk.Enter();
                }
            }
            if (yields) {
                SetYieldHandler([] {}); // the next one is due
                RuntimeBackgroundTask();
            }
        }
        EXPECT_EQ(met, expected);
        EXPECT_TRUE(yields || asked <= files + 5) << asked << " questions about " << files << " files";
    }
}

TEST_F(TreeWalkTest, LeavesAReaderBehindThatHangs) {
    static std::latch released(1); // the reader may still be about it when the test has ended
    answer = &released;
    const TestFolder folder{"hangs.jpg", "sub/a.jpg"};
    {
        TreeWalk walk(folder.Item());
        bool isHanging = false;
        while (!isHanging) {
            ASSERT_TRUE(walk.Next());
            isHanging = !walk.Item() && asked > 0;
            if (walk.Item() && walk.Item()->Directory()) {
                walk.Enter();
            }
        }
        TreeWalk other(folder.Item("sub"));
        while (!other.Item()) {
            ASSERT_TRUE(other.Next());
        }
        EXPECT_TRUE(other.Item()->Exists());
    }
    released.count_down();
}

} // namespace
} // namespace folimark
