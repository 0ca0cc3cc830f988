#pragma once

#include <span>
#include <string>

namespace folimark {

/// The version of Landlock's interface that the running kernel has, from 1 on; 0 if it has none.
int LandlockVersion();

/// Takes from this process, and for good, all access to files but reading beneath `readable` (folders or
/// files; those that aren't there are passed over): as much of that as `version` of the interface knows. What
/// is open stays open. The process must have given up gaining privileges (PR_SET_NO_NEW_PRIVS). False if the
/// kernel doesn't do it.
///
/// From version 3 on files can't be truncated either, from 4 on no network port is reached, from 5 on devices
/// take no commands, and from 6 on there are no signals to processes outside and no abstract sockets of
/// theirs.
bool AllowReadingOnly(std::span<const std::string> readable, int version);

} // namespace folimark
