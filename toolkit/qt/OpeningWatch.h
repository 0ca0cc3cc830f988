#pragma once

#include "Descriptor.h"

#include <string>

namespace folimark {

/// Watches over an opening: the pointer is busy until the opener has ended, another application has come to
/// the front, or some seconds have passed, and a failure is told. See SetLaunchWatcher for the arguments.
void WatchOpening(const std::string& nativePath, Descriptor status);

} // namespace folimark
