#pragma once

namespace folimark {

/// Takes from this process, for good, what reading pictures doesn't need and a file that has taken it over
/// would like to have: to write or remove files, to reach the network, to start programs and to touch other
/// processes. It ends with its parent. Where the kernel doesn't know a means, the others still hold. For a
/// process of one thread, whose memory and files are limited by its parent.
void ConfineThisProcess();

} // namespace folimark
