#include "ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>

namespace folimark {
namespace {

constexpr int kPassed = STDERR_FILENO + 1;

/// What the child's descriptors become; 0, or the number of an error.
class FileActions {
  public:
    explicit FileActions(const ChildStart& start) {
        posix_spawn_file_actions_init(&actions_);
        if (start.passed >= 0) {
            posix_spawn_file_actions_adddup2(&actions_, start.passed, kPassed);
        }
        for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
            if (number != STDERR_FILENO || !start.keepsErrorOutput) {
                posix_spawn_file_actions_addopen(&actions_, number, "/dev/null", O_RDWR, 0);
            }
        }
        posix_spawn_file_actions_addclosefrom_np(&actions_, start.passed >= 0 ? kPassed + 1 : kPassed);
    }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    const posix_spawn_file_actions_t* Get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

class Attributes {
  public:
    Attributes() {
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        std::memset(&signals, 0xFF, sizeof signals); // sigfillset leaves out those that the C library uses
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { posix_spawnattr_destroy(&attributes_); }
    const posix_spawnattr_t* Get() const { return &attributes_; }

  private:
    posix_spawnattr_t attributes_{};
};

/// As the system takes lists of strings: it reads them only, and a null pointer ends them.
std::vector<char*> Pointers(const std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (const std::string& string : strings) {
        pointers.push_back(const_cast<char*>(string.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// The thread waits in the system for as long as the child lives, and touches nothing of ours.
void ReapAtItsEnd(pid_t child, Descriptor told) {
    std::thread([child, told = std::move(told)] {
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        if (told) {
            eventfd_write(told.Get(), static_cast<eventfd_t>(status) + 1);
        }
    }).detach();
}

} // namespace

void ChildProcess::Kill() const {
    syscall(SYS_pidfd_send_signal, handle.Get(), SIGKILL, nullptr, 0);
}

std::optional<ChildProcess> StartChild(const ChildStart& start) {
    const std::vector<char*> arguments = Pointers(start.command);
    const std::vector<char*> environment =
        start.environment ? Pointers(*start.environment) : std::vector<char*>();
    ChildProcess child;
    errno = posix_spawnp(&child.id, arguments[0], FileActions(start).Get(), Attributes().Get(),
                         arguments.data(), start.environment ? environment.data() : environ);
    if (errno != 0) {
        return std::nullopt;
    }
    // From outside, so that the limits hold for whatever was started. Until it is waited for, the number is
    // its own.
    for (const ChildLimit& limit : start.limits) {
        const rlimit both{limit.most, limit.most};
        prlimit(child.id, limit.resource, &both, nullptr);
    }
    child.handle = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, child.id, 0)));
    if (start.tellsStatus) {
        child.status = Descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    }
    ReapAtItsEnd(child.id, Descriptor(child.status ? fcntl(child.status.Get(), F_DUPFD_CLOEXEC, 0) : -1));
    return child;
}

} // namespace folimark
