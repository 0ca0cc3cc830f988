#include "Descriptor.h"
#include "FileTypeRegistry.h"
#include "Hindrances.h"
#include "TestFolder.h"
#include "TreeWalk.h"
#include "Yield.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace folimark {
namespace {

using test::AsNobody;
using test::NoMore;
using test::TestFolder;

std::map<std::string, Ref<FolderItem>> Entries(const Ref<FolderItem>& folder) {
    std::map<std::string, Ref<FolderItem>> entries;
    for (std::int64_t i = 1; i <= folder->Count(); ++i) {
        const std::string path = folder->Item(i)->NativePath();
        entries[path.substr(path.rfind('/') + 1)] = folder->Item(i);
    }
    return entries;
}

void Yield() {
    SetYieldHandler([] {});
    RuntimeBackgroundTask();
    SetYieldHandler(nullptr);
}

struct Walked {
    int files = 0;
    int folders = 0;
    std::size_t longestPath = 0;
};

Walked Walk(const Ref<FolderItem>& root) {
    Walked walked;
    for (TreeWalk walk(root); walk.Next();) {
        if (!walk.Item()) {
            continue;
        }
        if (walk.Item()->Directory()) {
            walk.Enter();
            ++walked.folders;
        } else {
            const auto file = GetFolderItem(walk.Item()->AbsolutePath());
            walked.files += file->Exists() ? 1 : 0;
            walked.longestPath = std::max(walked.longestPath, file->NativePath().size());
        }
    }
    return walked;
}

TEST(FolderItem, TellsWhatEntriesAre) {
    RegisterFileType("image/jpeg", "prvw", "JPEG", ".jpe;.jpg", "public.jpeg");
    RegisterFileType("audio/jpeg", "prvw", "JPEG", ".jpg;.snd", "");
    const TestFolder folder{"a.JPG", "b.snd", "c.txt", ".jpg", "sub/d.jpg", "backup", "x.jpg"};
    folder.Write(".hidden", "backup\nc.txt\n");
    folder.Link("file.jpg", "a.JPG");
    folder.Link("folder.jpg", "sub");
    folder.Link("gone.jpg", "nothing");
    folder.Link("loop.jpg", "loop.jpg");
    ASSERT_EQ(mkfifo(folder.Path("pipe.jpg").c_str(), 0600), 0);
    auto entries = Entries(folder.Item());
    const struct {
        std::string name;
        bool exists;
        bool visible;
        bool directory;
        std::string type;
    } cases[] = {{"a.JPG", true, true, false, "image/jpeg"},
                 {"b.snd", true, true, false, "audio/jpeg"},
                 {"c.txt", true, false, false, ""},
                 {".jpg", true, false, false, ""},
                 {"sub", true, true, true, ""},
                 {"backup", true, false, false, ""},
                 {"file.jpg", true, true, false, "image/jpeg"},
                 {"folder.jpg", true, true, false, ""},
                 {"gone.jpg", false, true, false, ""},
                 {"loop.jpg", false, true, false, "image/jpeg"},
                 {"pipe.jpg", true, true, false, ""}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.name);
        const auto listed = entries[expected.name];
        ASSERT_TRUE(listed);
        EXPECT_EQ(listed->Directory(), expected.directory);
        const auto named = GetFolderItem(listed->AbsolutePath());
        for (const auto& item : {listed, named}) {
            EXPECT_EQ(item->Exists(), expected.exists);
            EXPECT_EQ(item->Visible(), expected.visible);
            EXPECT_EQ(item->Type(), expected.type);
        }
        EXPECT_EQ(static_cast<bool>(named->OpenForReading()),
                  (expected.exists && !expected.type.empty()) || expected.name == "c.txt"
                      || expected.name == ".jpg" || expected.name == "backup");
    }
    EXPECT_TRUE(folder.Item("folder.jpg")->Directory()) << "A link that is named itself is followed.";
    ForgetFileTypes();
    EXPECT_EQ(folder.Item("a.JPG")->Type(), "");
}

TEST(FolderItem, EndsFoldersInColons) {
    const TestFolder folder{"sub/", "a"};
    const std::string path = folder.Item()->AbsolutePath();
    EXPECT_TRUE(path.starts_with("Computer:") && path.ends_with(":Album:"));
    const std::pair<std::string, std::string> cases[] = {{"sub", "sub:"},
                                                         {"sub:", "sub:"},
                                                         {"a", "a"},
                                                         {"a:", "a"},
                                                         {"gone", "gone"},
                                                         {"gone:", "gone:"},
                                                         {"no:thing", "no:thing"},
                                                         {"a:thing:", "a:thing:"}};
    for (const auto& [asked, answered] : cases) {
        EXPECT_EQ(GetFolderItem(path + asked)->AbsolutePath(), path + answered);
    }
    EXPECT_EQ(GetFolderItem("Computer")->AbsolutePath(), "Computer:");
    EXPECT_EQ(GetFolderItem("Computer:")->NativePath(), "/");
    EXPECT_TRUE(GetFolderItem("Computer:")->Directory());
    EXPECT_FALSE(GetFolderItem("Computer:")->Parent());
    EXPECT_EQ(folder.Item("sub")->Parent()->AbsolutePath(), path);
    EXPECT_EQ(Entries(folder.Item())["sub"]->Child("x")->AbsolutePath(), path + "sub:x");
    EXPECT_FALSE(folder.Item()->Child(".."));
    EXPECT_FALSE(folder.Item()->Child("a:b"));
}

TEST(FolderItem, TakesNativePaths) {
    const TestFolder folder{"sub/a"};
    EXPECT_EQ(FolderItem::FromNativePath(folder.Path() + "//./sub/")->NativePath(), folder.Path("sub"));
    EXPECT_EQ(FolderItem::FromNativePath(folder.Path("sub/../sub/a"))->NativePath(), folder.Path("sub/a"));
    EXPECT_FALSE(FolderItem::FromNativePath(folder.Path("gone/../sub")));
    EXPECT_FALSE(FolderItem::FromNativePath("sub"));
    EXPECT_FALSE(FolderItem::FromNativePath(""));
    EXPECT_EQ(FolderItem::FromNativePath("/")->AbsolutePath(), "Computer:");
}

TEST(FolderItem, ReadsEntriesOnceAndExistenceAgain) {
    const TestFolder folder{"a", "b"};
    const auto item = folder.Item();
    EXPECT_EQ(item->Count(), 2);
    EXPECT_FALSE(item->Item(0) || item->Item(3));
    EXPECT_EQ(item->Item(1)->NativePath(), item->Item(1)->NativePath());
    const auto later = item->Child("later");
    EXPECT_FALSE(later->Exists());
    folder.Write("later", "12345");
    EXPECT_EQ(item->Count(), 2);
    EXPECT_TRUE(later->Exists());
    EXPECT_EQ(later->Length(), 5U);
    EXPECT_TRUE(later->ModificationDate());
    const auto gone = item->Child("gone");
    EXPECT_FALSE(gone->ModificationDate() || gone->CreationDate());
    EXPECT_EQ(gone->Length() + gone->Parent()->Length(), 0U);
}

TEST(FolderItem, TellsUnreadableFromEmptyAndGone) {
    const TestFolder folder{"locked/a", "empty/", "file"};
    ASSERT_EQ(chmod(folder.Path("locked").c_str(), 0), 0);
    {
        const AsNobody nobody;
        const std::pair<std::string, bool> cases[] = {
            {"locked", true}, {"locked/sub", true}, {"empty", false}, {"file", false}, {"gone", false}};
        for (const auto& [name, unreadable] : cases) {
            EXPECT_EQ(folder.Item(name)->Count(), 0) << name;
            EXPECT_EQ(folder.Item(name)->Unreadable(), unreadable) << name;
        }
    }
    ASSERT_EQ(chmod(folder.Path("locked").c_str(), 0700), 0);
    {
        const auto descriptors = NoMore(RLIMIT_NOFILE);
        EXPECT_TRUE(folder.Item("locked")->Unreadable());
    }
    EXPECT_EQ(folder.Item("locked")->Count(), 1);
}

TEST(FolderItem, WalksTreesOfAnyDepth) {
    constexpr int kDepth = 10000;
    if (access("/dev/shm", W_OK) == 0) {
        setenv("TMPDIR", "/dev/shm", 1); // a disk takes seconds for so many folders
    }
    const TestFolder folder;
    folder.MakeChain(kDepth, "d", "a.jpg", 1000);
    const Walked walked = Walk(folder.Item());
    EXPECT_EQ(walked.folders, kDepth);
    EXPECT_EQ(walked.files, kDepth / 1000);
    EXPECT_GT(walked.longestPath, 2U * kDepth);
}

TEST(FolderItem, AWalkFollowsNoLinkThatTookAFoldersName) {
    for (const char* reached : {"/a", "/b"}) { // the folder that is about to be entered, and the one above it
        for (const bool yields : {false, true}) {
            const TestFolder folder{"album/a/b/", "elsewhere/b/x.jpg"};
            for (TreeWalk walk(folder.Item("album")); walk.Next(); walk.Enter()) {
                if (!walk.Item()) {
                    continue;
                }
                EXPECT_FALSE(walk.Item()->NativePath().ends_with("x.jpg")) << reached << yields;
                if (walk.Item()->NativePath().ends_with(reached)) {
                    ASSERT_EQ(rename(folder.Path("album/a").c_str(), folder.Path("old").c_str()), 0);
                    folder.Link("album/a", "../elsewhere");
                }
                if (yields) {
                    Yield();
                }
            }
        }
    }
}

TEST(FolderItem, AWalkMeetsWhatIsThereAtItsTurn) {
    RegisterFileType("image/jpeg", "prvw", "JPEG", ".jpg", "public.jpeg");
    const TestFolder folder{"a.jpg", "b.jpg", "c.jpg", "d.txt"};
    int there = 0;
    for (TreeWalk walk(folder.Item()); walk.Next();) {
        if (!walk.Item()) {
            continue;
        }
        const auto named = GetFolderItem(walk.Item()->AbsolutePath());
        EXPECT_EQ(named->Exists(), walk.Item()->Exists());
        if (walk.Item()->Exists() && !walk.Item()->Type().empty() && ++there == 1) {
            for (const char* other : {"a.jpg", "b.jpg", "c.jpg"}) {
                if (!walk.Item()->NativePath().ends_with(other)) {
                    ASSERT_EQ(unlink(folder.Path(other).c_str()), 0);
                }
            }
            Yield();
            folder.Write("e.jpg");
            ASSERT_EQ(unlink(walk.Item()->NativePath().c_str()), 0);
            EXPECT_FALSE(GetFolderItem(walk.Item()->AbsolutePath())->Exists()) << "Events have run.";
        }
        EXPECT_EQ(walk.Unreadable(), "");
    }
    EXPECT_EQ(there, 1);
    ForgetFileTypes();
}

TEST(FolderItem, WalksLongNames) {
    const TestFolder folder;
    folder.MakeChain(100, std::string(255, '\xE4'), "a", 1);
    EXPECT_EQ(Walk(folder.Item()).files, 100);
    EXPECT_FALSE(folder.Item(std::string(256, 'x'))->Exists());
}

TEST(FolderItem, KnowsThePreferencesFolder) {
    const TestFolder folder;
    EXPECT_EQ(SpecialFolder::Preferences()->NativePath(), folder.Home() + "/.config");
    setenv("XDG_CONFIG_HOME", (folder.Home() + "/elsewhere/").c_str(), 1);
    EXPECT_EQ(SpecialFolder::Preferences()->NativePath(), folder.Home() + "/elsewhere");
    setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SpecialFolder::Preferences()->NativePath(), folder.Home() + "/.config");
    unsetenv("HOME");
    EXPECT_TRUE(SpecialFolder::Preferences()->NativePath().ends_with("/.config"));
}

TEST(FolderItem, LaunchesCleanly) {
    // The opener tells its surroundings: its argument, its open descriptors, the signals it blocks, and
    // whether it leads a session. A pipe with a name tells the test that it has come to its end.
    const TestFolder folder{"a file \xFF; $(true)"};
    const std::string opener = folder.Path("xdg-open");
    folder.Write("xdg-open",
                 "#!/bin/sh\n{ echo \"$1\"; ls /proc/$$/fd | tr '\\n' ' '; grep SigIgn /proc/$$/status;\n"
                 "[ \"$(cut -d' ' -f6 /proc/$$/stat)\" != \"$TEST_SESSION\" ] && echo own session; } >\""
                     + folder.Path("answer") + "\"\n");
    ASSERT_EQ(chmod(opener.c_str(), 0755), 0);
    ASSERT_EQ(mkfifo(folder.Path("answer").c_str(), 0600), 0);
    setenv("TEST_SESSION", std::to_string(getsid(0)).c_str(), 1);
    setenv("PATH", (folder.Path() + ":" + std::getenv("PATH")).c_str(), 1);
    signal(SIGPIPE, SIG_IGN);
    ASSERT_EQ(dup2(STDERR_FILENO, 77), 77);
    const std::string file = folder.Path("a file \xFF; $(true)");
    FolderItem::FromNativePath(file)->Launch(true);
    close(77);
    const std::string answer = folder.Read("answer");
    siginfo_t child{};
    while (waitid(P_ALL, 0, &child, WEXITED | WNOWAIT) == 0) { // until no child is left behind
    }
    EXPECT_TRUE(answer.starts_with(file + "\n0 1 ")) << answer;
    EXPECT_EQ(answer.find(" 77 "), std::string::npos) << answer;
    EXPECT_TRUE(answer.ends_with("SigIgn:\t0000000000000000\nown session\n")) << answer;

    std::string launched;
    SetLaunchHandler([&launched](const std::string& path) { launched = path; });
    GetFolderItem("Computer:a/b")->Launch(true);
    SetLaunchHandler(nullptr);
    EXPECT_EQ(launched, "/a:b");
}

} // namespace
} // namespace folimark
