#pragma once

#include "Color.h"

#include <cstdint>

/// The look that the application's windows share.
namespace folimark::Look {

/// The pale yellow of the windows.
inline constexpr Color kTint = RGB(255, 255, 204);
inline constexpr Color kEvenRow = RGB(255, 255, 255);
inline constexpr Color kOddRow = RGB(243, 246, 255);
/// "Cantaloupe".
inline constexpr Color kHighlightedRow = RGB(255, 204, 102);

/// The stripe of a row, counted from 0, whether or not the list has it.
constexpr Color Stripe(std::int64_t row) {
    return row % 2 == 1 ? kOddRow : kEvenRow;
}

} // namespace folimark::Look
