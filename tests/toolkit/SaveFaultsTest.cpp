#include "Exceptions.h"
#include "TestFolder.h"
#include "TextStreams.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <map>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace folimark::test {
namespace {

constexpr int kEnd = 0; // the process's, in place of an error
enum Outcome { kSaved, kTold, kEnded, kNoSuchCall, kNotTold, kNoFilter };

/// Asks a listener before each system call of this thread but those for memory and threads.
/// \returns its descriptor.
int WatchCalls() {
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const unsigned call : {SYS_mmap, SYS_munmap, SYS_mprotect, SYS_madvise, SYS_brk, SYS_futex,
                                SYS_rt_sigprocmask, SYS_exit_group}) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
}

/// In a process of its own: `action` with the fault in place of its system call of that number, from 1.
Outcome RunWithFault(int number, int fault, const std::function<void()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        std::promise<int> listener;
        std::atomic<int> calls = 0;
        std::thread([&calls, number, fault, descriptor = listener.get_future()]() mutable {
            const int watched = descriptor.get();
            for (;;) {
                seccomp_notif call{};
                ioctl(watched, SECCOMP_IOCTL_NOTIF_RECV, &call);
                seccomp_notif_resp answer{call.id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE};
                if (++calls == number) {
                    if (fault == kEnd) {
                        _exit(kEnded);
                    }
                    answer = {call.id, 0, -fault, 0};
                }
                ioctl(watched, SECCOMP_IOCTL_NOTIF_SEND, &answer);
            }
        }).detach();
        const int watched = WatchCalls();
        if (watched < 0) {
            _exit(kNoFilter);
        }
        listener.set_value(watched);
        try {
            action();
            _exit(calls < number ? kNoSuchCall : kSaved);
        } catch (const IOException&) {
            _exit(kTold);
        } catch (...) {
            _exit(kNotTold);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? Outcome(WEXITSTATUS(status)) : kNotTold;
}

void Save(const Ref<FolderItem>& file, const std::string& line) {
    const auto stream = TextOutputStream::Create(file);
    stream->WriteLine(line);
    stream->Close();
}

/// Saves the list in `place` with the fault at its system call of that number, and checks what that leaves.
Outcome Play(const TestFolder& folder, const std::string& place, int fault, int number) {
    const std::string list = place + "/list";
    if (place == "made") {
        std::filesystem::remove_all(folder.Path(place));
    } else {
        folder.Write(list, "old\n");
    }
    const Ref<FolderItem> file = folder.Item(list);
    const Outcome outcome = RunWithFault(number, fault, [&] { Save(file, "new"); });
    EXPECT_TRUE(outcome == kNoSuchCall || (outcome == kEnded) == (fault == kEnd)) << outcome;
    EXPECT_LT(outcome, kNotTold);
    const std::string left = file->Exists() ? folder.Read(list) : "old\n";
    EXPECT_TRUE(left == "new\n" || (left == "old\n" && outcome != kSaved)) << left;
    if (outcome == kEnded) {
        TextOutputStream::RemoveLeftovers(file);
    }
    for (const std::string beside : {"plain", "target", "links", "made"}) {
        for (const std::string& name : folder.Names(beside)) {
            EXPECT_EQ(name, "list") << beside;
        }
    }
    Save(file, "next");
    EXPECT_EQ(folder.Read(list), "next\n");
    return outcome;
}

TEST(SaveFaults, LeaveAWholeFileAndNothingElse) {
    if (access("/dev/shm", W_OK) == 0) {
        setenv("TMPDIR", "/dev/shm", 1); // a disk takes its time to sync
    }
    const TestFolder folder{"plain/list", "target/list", "links/"};
    folder.Link("links/list", "../target/list");
    std::map<int, int> saves;
    const std::pair<std::string, std::vector<int>> cases[] = {
        {"links", {kEnd, ENOSPC}},
        {"made", {kEnd, ENOSPC}},
        {"plain", {kEnd, ENOSPC, EIO, EDQUOT, EROFS, EACCES, EINTR, EOPNOTSUPP}}};
    for (const auto& [place, faults] : cases) {
        for (const int fault : faults) {
            Outcome outcome = kSaved;
            for (int number = 1; outcome < kNoSuchCall && !HasFailure(); ++number) {
                SCOPED_TRACE(place + ", fault " + std::to_string(fault) + ", call " + std::to_string(number));
                outcome = Play(folder, place, fault, number);
                saves[fault] += outcome == kSaved ? 1 : 0;
            }
        }
    }
    // A file system needn't know owners, permissions, nor how to sync files and folders.
    EXPECT_EQ(saves[EOPNOTSUPP], saves[EIO] + 4);
}

} // namespace
} // namespace folimark::test
