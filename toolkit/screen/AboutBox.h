#pragma once

#include <string>

namespace folimark {

/// Shows the application's icon, its name and its version with a sentence of what it is and the libraries
/// that it stands on, and blocks until the box is dismissed.
void ShowAboutBox(const std::string& description, const std::string& libraries);

} // namespace folimark
