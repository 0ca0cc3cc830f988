#include "Confinement.h"

#include "Descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace folimark {
namespace {

/// A set of rules without a rule: nothing of what it handles is allowed anywhere. What is open stays open.
void ForbidWriting() {
    landlock_ruleset_attr rules{};
    rules.handled_access_fs = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR
                              | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR
                              | LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG
                              | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO
                              | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
    const Descriptor ruleset(static_cast<int>(syscall(SYS_landlock_create_ruleset, &rules, sizeof rules, 0)));
    if (ruleset) {
        syscall(SYS_landlock_restrict_self, ruleset.Get(), 0);
    }
}

#if defined(__x86_64__)
constexpr unsigned kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned kArchitecture = AUDIT_ARCH_AARCH64;
#else
constexpr unsigned kArchitecture = 0; // matches none: no filter
#endif

/// Makes system calls fail that no decoder makes. The kernel runs the filter's instructions at each call.
void ForbidCalls() {
    constexpr std::array<unsigned, 9> kForbidden{SYS_socket,           SYS_execve,
                                                 SYS_execveat,         SYS_ptrace,
                                                 SYS_process_vm_readv, SYS_process_vm_writev,
                                                 SYS_io_uring_setup,   SYS_kill,
                                                 SYS_pidfd_send_signal};
    constexpr unsigned kOtherInterface = 0x40000000; // x86-64 has a second set of numbers from here on
    constexpr unsigned char kCount = kForbidden.size();
    std::array<sock_filter, kCount + 7> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kArchitecture, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, kOtherInterface, kCount + 1, 0),
    }};
    for (unsigned char i = 0; i < kCount; ++i) {
        filter[5 + i] =
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kForbidden[i], static_cast<unsigned char>(kCount - i), 0);
    }
    filter[kCount + 5] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    filter[kCount + 6] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM);
    const sock_fprog program{filter.size(), filter.data()};
    if (kArchitecture != 0) {
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
    }
}

} // namespace

void ConfineThisProcess() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);       // also in the middle of a file, when the socket's end isn't seen
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0); // the others ask for it
    ForbidWriting();
    ForbidCalls();
}

} // namespace folimark
