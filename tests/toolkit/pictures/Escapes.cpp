#include "Escapes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <netinet/in.h>
#include <sched.h>
#include <seccomp.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace folimark::test {
namespace {

using Path = const std::string&;

long Map(int flags, std::size_t size = 4096, int access = PROT_READ | PROT_WRITE) {
    return mmap(nullptr, size, access, flags, -1, 0) == MAP_FAILED ? -1 : 0;
}
template <class Address>
long Connect(const Address& address, int (*call)(int, const sockaddr*, socklen_t)) {
    const int made = socket(reinterpret_cast<const sockaddr&>(address).sa_family, SOCK_STREAM, 0);
    return made < 0 ? -1 : call(made, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}
sockaddr_in Port() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}
/// The test listens there.
sockaddr_un AbstractName() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::ranges::copy("folimark-test-" + std::to_string(getppid()), address.sun_path + 1);
    return address;
}
long PassDescriptor(Path /*path*/) {
    msghdr message{};
    return sendmsg(3, &message, MSG_NOSIGNAL);
}
long ReceiveElsewhere(Path /*path*/) {
    msghdr message{};
    return recvmsg(STDIN_FILENO, &message, 0);
}
long SendTo(Path /*path*/) {
    const sockaddr_un address = AbstractName();
    return sendto(3, "", 1, MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}
long Execute(Path /*path*/) {
    char* const none[] = {nullptr};
    return execve("/usr/bin/true", none, none);
}
long ChangeLimit(pid_t process) {
    const rlimit none{0, 0};
    return prlimit(process, RLIMIT_CORE, &none, nullptr);
}

constexpr Escape kEscapes[] = {
    {"truncate", [](Path p) -> long { return truncate(p.c_str(), 0); }, 3},
    {"open and empty", [](Path p) -> long { return open(p.c_str(), O_RDONLY | O_TRUNC); }, 1},
    {"open for writing", [](Path p) -> long { return open(p.c_str(), O_WRONLY | O_APPEND); }, 1},
    {"open for both", [](Path p) -> long { return syscall(SYS_openat, -1, p.c_str(), O_RDWR); }, 1},
#ifdef SYS_open
    {"open by the older call", [](Path p) -> long { return syscall(SYS_open, p.c_str(), O_WRONLY); }, 1},
#endif
    {"reopen for writing", [](Path) -> long { return open("/proc/self/fd/4", O_WRONLY); }, 1},
    {"make a file", [](Path p) -> long { return open((p + "2").c_str(), O_CREAT | O_RDONLY, 0600); }, 1},
    {"make one without a name", [](Path) -> long { return open("/tmp", O_TMPFILE | O_WRONLY, 0600); }, 1},
    {"read another file", [](Path p) -> long { return open(p.c_str(), O_RDONLY); }, 1, false},
    {"read a folder", [](Path) -> long { return open("/", O_RDONLY | O_DIRECTORY); }, 1, false},
    {"command a device", [](Path) -> long { return ioctl(open("/dev/zero", O_RDONLY), TIOCGPGRP); }, 5},
    {"type into a terminal", [](Path) -> long { return ioctl(STDIN_FILENO, TIOCSTI, "x"); }},
    {"get the terminal back", [](Path) -> long { return open("/dev/tty", O_RDONLY); }, 1},
    {"change the mode", [](Path p) -> long { return chmod(p.c_str(), 0777); }},
    {"change the owner", [](Path p) -> long { return chown(p.c_str(), getuid(), getgid()); }},
    {"change the times", [](Path p) -> long { return utimensat(-1, p.c_str(), nullptr, 0); }},
    {"change an attribute", [](Path p) -> long { return setxattr(p.c_str(), "user.a", "", 0, 0); }},
    {"remove", [](Path p) -> long { return unlink(p.c_str()); }, 1},
    {"remove a folder", [](Path p) -> long { return rmdir((p + "-folder").c_str()); }, 1},
    {"rename", [](Path p) -> long { return rename(p.c_str(), (p + "3").c_str()); }, 1},
    {"link", [](Path p) -> long { return link(p.c_str(), (p + "4").c_str()); }, 1},
    {"link by name", [](Path p) -> long { return symlink("a", (p + "5").c_str()); }, 1},
    {"make a folder", [](Path p) -> long { return mkdir((p + "6").c_str(), 0700); }, 1},
    {"make a pipe", [](Path p) -> long { return mkfifo((p + "7").c_str(), 0600); }, 1},
    {"make a socket", [](Path p) -> long { return mknod((p + "8").c_str(), S_IFSOCK | 0600, 0); }, 1},
    {"make a device", [](Path p) -> long { return mknod((p + "9").c_str(), S_IFCHR | 0600, 0x103); }, 1},
    {"make a disk", [](Path p) -> long { return mknod((p + "0").c_str(), S_IFBLK | 0600, 0x700); }, 1},
    {"reach the network", [](Path) -> long { return Connect(Port(), connect); }, 4},
    {"serve the network", [](Path) -> long { return Connect(Port(), bind); }, 4},
    {"reach a local service", [](Path) -> long { return Connect(AbstractName(), connect); }, 6},
    {"make a pair of sockets",
     [](Path) -> long {
         int pair[2];
         return socketpair(AF_UNIX, SOCK_DGRAM, 0, pair);
     }},
    {"pass a descriptor", PassDescriptor},
    {"send elsewhere", SendTo},
    {"receive elsewhere", ReceiveElsewhere},
    {"signal the parent", [](Path) -> long { return kill(getppid(), 0); }, 6},
    {"signal a thread of it", [](Path) -> long { return syscall(SYS_tgkill, getppid(), getppid(), 0); }, 6},
    {"limit the parent", [](Path) -> long { return ChangeLimit(getppid()); }},
    {"limit itself", [](Path) -> long { return ChangeLimit(0); }},
    {"slow the parent", [](Path) -> long { return setpriority(PRIO_PROCESS, unsigned(getppid()), 0); }},
    {"look into the parent", [](Path) -> long { return ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr); }},
    {"read the parent", [](Path) -> long { return syscall(SYS_process_vm_readv, getppid(), 0, 0, 0, 0, 0); }},
    {"fork", [](Path) -> long { return fork(); }},
    {"fork by the newer call", [](Path) -> long { return syscall(SYS_clone3, nullptr, 0); }},
    {"start a program", Execute, 1},
    {"share memory", [](Path) -> long { return Map(MAP_SHARED | MAP_ANONYMOUS); }},
    {"share it otherwise", [](Path) -> long { return Map(MAP_SHARED_VALIDATE | MAP_ANONYMOUS); }},
#ifndef __SANITIZE_ADDRESS__ // which needs as much itself
    {"map without end", [](Path) -> long { return Map(MAP_PRIVATE | MAP_ANONYMOUS, 1UL << 36, PROT_READ); }},
#endif
    {"make a file of memory", [](Path) -> long { return memfd_create("a", 0); }},
    {"make a segment", [](Path) -> long { return shmget(IPC_PRIVATE, 4096, IPC_CREAT | 0600); }},
    {"outlive the parent", [](Path) -> long { return prctl(PR_SET_PDEATHSIG, 0); }},
    {"be looked into", [](Path) -> long { return prctl(PR_SET_DUMPABLE, 1, 0, 0, 0); }},
    {"change a file's flags", [](Path) -> long { return fcntl(4, F_SETFL, O_ASYNC); }},
    {"watch a file", [](Path) -> long { return fcntl(4, F_SETLEASE, F_UNLCK); }},
    {"be in another system", [](Path) -> long { return unshare(CLONE_NEWUSER); }},
    {"queue calls", [](Path) -> long { return syscall(SYS_io_uring_setup, 1, nullptr); }},
};

// Each is called with arguments that it refuses by itself, or that do no harm.
constexpr const char* kNeeded =
    "access brk clock_gettime clock_nanosleep close dup2 faccessat2 fstat futex getcwd getdents64 "
    "getpeername getpid getrandom getrusage gettid lseek madvise mprotect mremap munmap newfstatat "
    "open openat pread64 read readlink restart_syscall rseq rt_sigaction rt_sigprocmask "
    "sched_getaffinity sched_yield set_robust_list sigaltstack stat statx sysinfo times umask uname "
    "write";

volatile std::sig_atomic_t signalled = 0;

} // namespace

std::span<const Escape> Escapes() {
    return kEscapes;
}

std::string MissingCall() {
    std::istringstream needed(kNeeded);
    for (std::string name; needed >> name;) {
        const int number = seccomp_syscall_resolve_name(name.c_str());
        if (number == __NR_SCMP_ERROR || (syscall(number, -1, 0, 0, 0, 0, 0) < 0 && errno == EPERM)) {
            return name;
        }
    }
    rlimit limit{};
    std::signal(SIGUSR1, [](int) { signalled = 1; });
    int threads = 0;
    std::array<char, 16> name{};
    std::thread([&] {
        threads += prctl(PR_SET_NAME, "a") == 0 && prctl(PR_GET_NAME, name.data()) == 0 ? 1 : 0;
    }).join();
    const std::pair<const char*, bool> others[] = {
        {"tgkill", raise(SIGUSR1) == 0 && signalled != 0},
        {"prlimit64", prlimit(0, RLIMIT_CORE, nullptr, &limit) == 0},
        {"clone, prctl", threads == 1},
        {"fcntl", fcntl(3, F_GETFL) >= 0 && fcntl(3, F_SETFD, fcntl(3, F_GETFD)) == 0},
        {"ioctl", isatty(3) == 0 && errno == ENOTTY},
        {"eventfd2", close(static_cast<int>(syscall(SYS_eventfd2, 0, 0))) == 0},
        {"reading /usr", close(open("/usr/bin", O_RDONLY)) == 0},
        {"mmap", munmap(mmap(nullptr, 1, PROT_READ, MAP_SHARED, 5, 0), 1) == 0}};
    for (const auto& [what, works] : others) {
        if (!works) {
            return what;
        }
    }
    return "";
}

} // namespace folimark::test
