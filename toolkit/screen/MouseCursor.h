#pragma once

#include <cstdint>

namespace folimark {

/// The pointers that the application chooses from. `Default` leaves the choice to what lies under the mouse.
enum class MouseCursorShape : std::uint8_t { Default, HandOpen, HandClosed };

namespace System::Cursors {
inline constexpr MouseCursorShape HandOpen = MouseCursorShape::HandOpen;
inline constexpr MouseCursorShape HandClosed = MouseCursorShape::HandClosed;
} // namespace System::Cursors

} // namespace folimark
