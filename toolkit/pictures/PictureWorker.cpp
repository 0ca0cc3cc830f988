#include "PictureWorker.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace folimark {
namespace {

using Clock = std::chrono::steady_clock;

std::string DefaultExecutable() {
    std::array<char, PATH_MAX> own{};
    const ssize_t length = readlink("/proc/self/exe", own.data(), own.size());
    const std::string path(own.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    return path.substr(0, path.rfind('/') + 1) + "folimark-pictures";
}

/// Sets the limits from outside, so that they hold for whatever was started, before it sees a file.
void Limit(pid_t process) {
    const auto set = [process](__rlimit_resource resource, rlim_t most) {
        const rlimit limit{most, most};
        prlimit(process, resource, &limit, nullptr);
    };
    set(RLIMIT_CORE, 0);
    set(RLIMIT_NOFILE, 128);
    // AddressSanitizer reserves terabytes, and writes its reports to files.
#ifndef __SANITIZE_ADDRESS__
    // A library's temporary files can't fill the disk; shared memory isn't written but mapped.
    set(RLIMIT_FSIZE, 0);
    set(RLIMIT_DATA, rlim_t{3} << 29); // 1.5 GiB
#endif
}

/// Waits until `socket` has something to read, or has been closed by the other side.
bool WaitFor(int socket, Clock::time_point end) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd wanted{socket, POLLIN, 0};
        const int ready = poll(&wanted, 1, left > 0 ? static_cast<int>(left) : 0);
        if (ready >= 0 || errno != EINTR) {
            return ready > 0;
        }
    }
}

} // namespace

bool PictureWorker::Start() {
    std::array<int, 2> pair{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0) {
        return false;
    }
    Descriptor ours(pair[0]);
    const Descriptor theirs(pair[1]);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, theirs.Get(), kPictureSocket);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, kPictureSocket + 1);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::string path = executable_.empty() ? DefaultExecutable() : executable_;
    const std::array<char*, 2> arguments{path.data(), nullptr};
    const int failure =
        posix_spawn(&process_, path.c_str(), &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        process_ = -1;
        return false;
    }
    Limit(process_);
    socket_ = std::move(ours);
    return true;
}

void PictureWorker::End() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    process_ = -1;
    socket_ = Descriptor();
}

/// It runs, and hasn't said a word that nobody asked for.
bool PictureWorker::IsQuiet() const {
    return process_ > 0 && !WaitFor(socket_.Get(), Clock::now());
}

std::optional<PictureAnswer> PictureWorker::Ask(const PictureRequest& request,
                                                const std::array<int, kRequestDescriptors>& descriptors,
                                                std::chrono::milliseconds patience) {
    const auto end = Clock::now() + patience;
    // A process that dies of a question may have been dying before (the system's memory ran out, say), so a
    // fresh one gets the question too. One that takes too long has no such excuse.
    for (bool isFresh = false; !isFresh;) {
        if (!IsQuiet()) {
            End();
            if (!Start()) {
                break;
            }
            isFresh = true;
        }
        if (SendRequest(socket_.Get(), request, descriptors)) {
            PictureAnswer answer;
            if (!WaitFor(socket_.Get(), end)) {
                break;
            }
            if (recv(socket_.Get(), &answer, sizeof answer, MSG_DONTWAIT | MSG_TRUNC)
                == ssize_t{sizeof answer}) {
                return answer;
            }
        }
        End();
    }
    End();
    return std::nullopt;
}

} // namespace folimark
