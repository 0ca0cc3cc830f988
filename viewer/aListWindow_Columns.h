#pragma once

#include <string_view>

namespace folimark {

/// The two states of an album's columns: name, created, modified, size and kind, in units.
inline constexpr std::string_view kColumnsShown = "710,110,110,94,70";
inline constexpr std::string_view kColumnsHidden = "1024,0,0,0,70";

/// What stands between the names of a file's path in the first of them.
inline constexpr std::string_view kPathSeparator = " → ";

} // namespace folimark
