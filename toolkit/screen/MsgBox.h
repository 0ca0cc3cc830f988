#pragma once

#include <string>

namespace folimark {

/// Shows `text` in a simple modal box with an OK button, and blocks until it is dismissed. Raises
/// EndException if the application has ended meanwhile.
void MsgBox(const std::string& text);

} // namespace folimark
