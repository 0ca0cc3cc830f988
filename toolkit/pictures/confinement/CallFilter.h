#pragma once

namespace folimark {

/// Lets this process make only those system calls, with those arguments, that reading pictures takes; all
/// others fail with EPERM from now on, in all threads to come. Ends the process if the filter can't be set.
void AllowDecodingOnly();

} // namespace folimark
