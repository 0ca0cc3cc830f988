#pragma once

#include "Descriptor.h"

#include <string>

namespace folimark {

/// Opens the regular file at a native path for reading (O_CLOEXEC, O_NONBLOCK). None, with errno set, if it
/// can't be opened or is something else: pipes, sockets and devices aren't touched.
Descriptor OpenRegularFile(const std::string& path);

} // namespace folimark
