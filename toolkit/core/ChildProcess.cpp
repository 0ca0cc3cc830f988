#include "ChildProcess.h"

#include "Finally.h"

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

/// Says what the child's descriptors become.
void SetDescriptors(posix_spawn_file_actions_t& actions, const ChildStart& start) {
    if (start.passed >= 0) {
        posix_spawn_file_actions_adddup2(&actions, start.passed, kPassed);
    }
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
        if (number != STDERR_FILENO || !start.keepsErrorOutput) {
            posix_spawn_file_actions_addopen(&actions, number, "/dev/null", O_RDWR, 0);
        }
    }
    posix_spawn_file_actions_addclosefrom_np(&actions, start.passed >= 0 ? kPassed + 1 : kPassed);
}

void SetSignals(posix_spawnattr_t& attributes) {
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    std::memset(&signals, 0xFF, sizeof signals); // sigfillset leaves out those that the C library uses
    posix_spawnattr_setsigdefault(&attributes, &signals);
}

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
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    const Finally endActions([&] { posix_spawn_file_actions_destroy(&actions); });
    SetDescriptors(actions, start);
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    const Finally endAttributes([&] { posix_spawnattr_destroy(&attributes); });
    SetSignals(attributes);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    ChildProcess child;
    errno = posix_spawnp(&child.id, arguments[0], &actions, &attributes, arguments.data(),
                         start.environment ? environment.data() : environ);
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
