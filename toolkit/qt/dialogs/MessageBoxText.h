#pragma once

#include <string>

class QMessageBox;

namespace folimark {

/// Gives the box the application's name as its title, and its texts. These may hold folders' names, which are
/// no markup.
void SetTexts(QMessageBox& box, const std::string& message, const std::string& explanation = "");

} // namespace folimark
