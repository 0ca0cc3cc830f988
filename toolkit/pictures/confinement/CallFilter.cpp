#include "CallFilter.h"

#include "PictureProtocol.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace folimark {
namespace {

struct Call {
    int number;
    /// What has to hold of the arguments, all of it.
    std::vector<scmp_arg_cmp> conditions;
};

// The argument's number, which of its bits are looked at, and what they have to be.
scmp_arg_cmp Bits(unsigned argument, scmp_datum_t mask, scmp_datum_t value) {
    return {argument, SCMP_CMP_MASKED_EQ, mask, value};
}
scmp_arg_cmp Is(unsigned argument, scmp_datum_t value) {
    return {argument, SCMP_CMP_EQ, value, 0};
}

/// What glibc starts a thread with, which is no process of its own.
constexpr unsigned kThread = CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD | CLONE_SYSVSEM
                             | CLONE_SETTLS | CLONE_PARENT_SETTID | CLONE_CHILD_CLEARTID;
/// The bits of open's flags that write, make or empty files. O_TMPFILE has one bit that is none of
/// O_DIRECTORY.
constexpr unsigned kToWrite = O_ACCMODE | O_CREAT | O_TRUNC | (O_TMPFILE & ~O_DIRECTORY);

/// Found by watching the decoders at files of all types, and what their libraries may take in other versions.
std::vector<Call> AllowedCalls() {
    const auto self = static_cast<scmp_datum_t>(getpid());
    return {
        // memory: of its own, or a file's; none that others share but what the application has made
        {SCMP_SYS(brk), {}},
        {SCMP_SYS(madvise), {}},
        {SCMP_SYS(mmap), {Bits(3, MAP_SHARED | MAP_PRIVATE, MAP_PRIVATE)}},
        {SCMP_SYS(mmap), {Bits(3, MAP_SHARED | MAP_PRIVATE | MAP_ANONYMOUS, MAP_SHARED)}},
        {SCMP_SYS(mprotect), {}},
        {SCMP_SYS(mremap), {}},
        {SCMP_SYS(munmap), {}},
        // files: to find and to read them
        {SCMP_SYS(access), {}},
        {SCMP_SYS(faccessat2), {}},
        {SCMP_SYS(fstat), {}},
        {SCMP_SYS(getcwd), {}},
        {SCMP_SYS(getdents64), {}},
        {SCMP_SYS(newfstatat), {}},
        {SCMP_SYS(open), {Bits(1, kToWrite, 0)}},
        {SCMP_SYS(openat), {Bits(2, kToWrite, 0)}},
        {SCMP_SYS(readlink), {}},
        {SCMP_SYS(stat), {}},
        {SCMP_SYS(statx), {}},
        {SCMP_SYS(umask), {}},
        // descriptors: what is open for writing is the application's socket and memory, and /dev/null
        {SCMP_SYS(close), {}},
        {SCMP_SYS(dup2), {}},
        {SCMP_SYS(eventfd2), {}},
        {SCMP_SYS(fcntl), {Is(1, F_GETFD)}},
        {SCMP_SYS(fcntl), {Is(1, F_SETFD)}},
        {SCMP_SYS(fcntl), {Is(1, F_GETFL)}},
        {SCMP_SYS(ioctl), {Is(1, TCGETS)}}, // whether it is a terminal
        {SCMP_SYS(lseek), {}},
        {SCMP_SYS(pread64), {}},
        {SCMP_SYS(read), {}},
        {SCMP_SYS(write), {}},
        // the socket to the application, and no other
        {SCMP_SYS(getpeername), {}},
        {SCMP_SYS(recvmsg), {Is(0, kPictureSocket)}},
        {SCMP_SYS(sendto), {Is(0, kPictureSocket), Is(4, 0)}},
        // threads
        {SCMP_SYS(clone), {Is(0, kThread)}},
        {SCMP_SYS(exit), {}},
        {SCMP_SYS(futex), {}},
        {SCMP_SYS(gettid), {}},
        {SCMP_SYS(prctl), {Is(0, PR_SET_NAME)}},
        {SCMP_SYS(prctl), {Is(0, PR_GET_NAME)}},
        {SCMP_SYS(rseq), {}},
        {SCMP_SYS(sched_getaffinity), {}},
        {SCMP_SYS(sched_yield), {}},
        {SCMP_SYS(set_robust_list), {}},
        // itself: its limits are only asked for
        {SCMP_SYS(exit_group), {}},
        {SCMP_SYS(getpid), {}},
        {SCMP_SYS(getrusage), {}},
        {SCMP_SYS(prlimit64), {Is(0, 0), Is(2, 0)}},
        {SCMP_SYS(restart_syscall), {}},
        {SCMP_SYS(rt_sigaction), {}},
        {SCMP_SYS(rt_sigprocmask), {}},
        {SCMP_SYS(rt_sigreturn), {}},
        {SCMP_SYS(sigaltstack), {}},
        {SCMP_SYS(tgkill), {Is(0, self)}},
        {SCMP_SYS(times), {}},
        // the system
        {SCMP_SYS(clock_gettime), {}},
        {SCMP_SYS(clock_nanosleep), {}},
        {SCMP_SYS(getrandom), {}},
        {SCMP_SYS(sysinfo), {}},
        {SCMP_SYS(uname), {}},
#ifdef __SANITIZE_ADDRESS__
        {SCMP_SYS(pipe), {}}, // how the sanitizers find out whether memory may be read
        {SCMP_SYS(pipe2), {}},
#endif
    };
}

} // namespace

void AllowDecodingOnly() {
    const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)),
                                                                   &seccomp_release);
    bool isWhole = filter != nullptr;
    const auto add = [&](unsigned action, const Call& call) {
        isWhole =
            isWhole
            && seccomp_rule_add_array(filter.get(), action, call.number,
                                      static_cast<unsigned>(call.conditions.size()), call.conditions.data())
                   == 0;
    };
    for (const Call& call : AllowedCalls()) {
        add(SCMP_ACT_ALLOW, call);
    }
    // Its flags lie in memory, where no filter sees them: glibc then takes the older call for threads.
    add(SCMP_ACT_ERRNO(ENOSYS), {SCMP_SYS(clone3), {}});
    if (!isWhole || seccomp_load(filter.get()) != 0) {
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace folimark
