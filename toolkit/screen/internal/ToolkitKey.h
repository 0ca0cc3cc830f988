#pragma once

namespace folimark {

/// Opens those members of public classes that are the toolkit's own. Public headers only announce the class;
/// the application's folders have no path to this header, so they can't make a key.
class ToolkitKey {};

inline constexpr ToolkitKey kToolkit;

} // namespace folimark
