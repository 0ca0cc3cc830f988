#pragma once

#include <string>

namespace folimark {

/// The standard editing commands, by the names that menu items bear for them ("EditUndo", "EditCut",
/// "EditCopy", "EditPaste", "EditClear", "EditSelectAll"). They act on the text field that has the keyboard;
/// a list that has it copies its selected row.
bool CanRunEditCommand(const std::string& itemName);
/// Does nothing for any other name, or without a text field.
void RunEditCommand(const std::string& itemName);

} // namespace folimark
