#pragma once

#include <span>
#include <string>

namespace folimark {

/// What holds a process in; each can be left away, to see that the other holds alone.
struct Walls {
    bool calls = true;    // a filter of system calls (seccomp)
    bool files = true;    // Landlock, as far as the kernel has it
    int newestFiles = 99; // no newer version of Landlock's interface than that
};

/// Takes from this process, for good, what reading pictures doesn't need and a file that has taken it over
/// would like to have: all files but those beneath `readable`, and these for reading only; the network, other
/// processes and new ones, terminals, and memory without bounds. It can't be traced, and ends with its
/// parent. For a process of one thread that StartChild has started, which has a session, descriptors and
/// limits of its own from there. docs/security.md tells what remains. Ends the process if the filter of calls
/// can't be set.
void ConfineThisProcess(std::span<const std::string> readable, const Walls& walls = {});

} // namespace folimark
