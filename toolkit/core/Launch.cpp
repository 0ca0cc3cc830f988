#include "FolderItem.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace folimark {
namespace {

std::function<void(const std::string&)>& Handler() {
    static std::function<void(const std::string&)> handler;
    return handler;
}

/// In the process to be: a session of its own, with no signal, descriptor or terminal of ours. Between fork
/// and exec only calls that need no memory are allowed.
[[noreturn]] void BecomeOpener(const std::array<char*, 3>& arguments) {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) {
        sigaction(number, &standard, nullptr);
    }
    sigset_t none{};
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = open("/dev/null", O_RDWR);
    if (nothing >= 0) {
        dup2(nothing, STDIN_FILENO);
        dup2(nothing, STDOUT_FILENO);
        dup2(nothing, STDERR_FILENO);
    }
    close_range(STDERR_FILENO + 1, ~0U, 0);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

/// The opener is the child of a child that ends at once, so that the system's first process looks after it
/// and it never stays behind as a zombie of ours.
void OpenOnDesktop(const std::string& nativePath) {
    std::string program = "xdg-open";
    std::string path = nativePath;
    const std::array<char*, 3> arguments{program.data(), path.data(), nullptr};
    const pid_t child = fork();
    if (child == 0) {
        setsid();
        if (fork() == 0) {
            BecomeOpener(arguments);
        }
        _exit(0);
    }
    if (child > 0) {
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

} // namespace

void SetLaunchHandler(std::function<void(const std::string& nativePath)> handler) {
    Handler() = std::move(handler);
}

// The application that opens the item decides by itself to come to the front.
void FolderItem::Launch(bool /*activate*/) const {
    if (Handler()) {
        Handler()(NativePath());
    } else {
        OpenOnDesktop(NativePath());
    }
}

} // namespace folimark
