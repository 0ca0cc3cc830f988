#pragma once

#include <string>
#include <vector>

namespace folimark {

/// A symbol's name as the source code has it; the name itself if it isn't a mangled one.
std::string Demangled(const char* symbol);

/// The calls that are active now, innermost first, one line each. Frames of the exceptions' own
/// constructors are left out. A frame without a known name shows its binary and the offset in it.
std::vector<std::string> CallStack();

} // namespace folimark
