#pragma once

#include "Descriptor.h"

#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/types.h>
#include <vector>

namespace folimark {

/// A limit that holds for a child from its start on, soft and hard (setrlimit(2)).
struct ChildLimit {
    __rlimit_resource resource;
    rlim_t most;
};

/// What a child is started as.
struct ChildStart {
    /// The program, which is looked for in PATH if its name has no "/", and its arguments.
    std::vector<std::string> command;
    /// The whole of its environment, as "NAME=value"; nothing for this process's own.
    std::optional<std::vector<std::string>> environment;
    /// A descriptor that the child gets as its number 3; -1 for none.
    int passed = -1;
    bool keepsErrorOutput = false;
    std::vector<ChildLimit> limits;
    bool tellsStatus = false;
};

/// A program that was started. Nobody has to wait for its end: it never stays behind as a zombie, whether it
/// ends by itself or not at all.
struct ChildProcess {
    pid_t id = -1;
    /// Stands for this very process, also when its number has been given to another (pidfd_open(2)); it is
    /// ready for reading from the process's end on.
    Descriptor handle;
    /// For who has asked for it: can be read from the process's end on (eventfd(2)), and gives 1 more than
    /// the status of waitpid(2) then.
    Descriptor status;

    /// Ends it (SIGKILL), and doesn't wait for that.
    void Kill() const;
};

/// Starts a program that has nothing of this process but what is asked for: a session of its own and so no
/// terminal, no signal blocked or ignored, its input and output nowhere, no other descriptor. Nothing, with
/// errno set, if it can't be started.
std::optional<ChildProcess> StartChild(const ChildStart& start);

} // namespace folimark
