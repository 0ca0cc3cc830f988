#pragma once

namespace folimark::Keyboard {

/// Is a Shift key held?
bool ShiftKey();

} // namespace folimark::Keyboard
