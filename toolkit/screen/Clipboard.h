#pragma once

#include <string>

namespace folimark {

/// Puts a text on the clipboard.
void CopyToClipboard(const std::string& text);

} // namespace folimark
