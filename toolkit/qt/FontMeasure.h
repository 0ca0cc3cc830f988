#pragma once

#include <QFont>

namespace folimark {

/// How high the rows of a list are in that font, in logical pixels: as high as a line of text, and higher if
/// the font is wide, so that whatever grows with the rows has room for its captions. 16 in the reference
/// font, which is DejaVu Sans of 9 points at 96 dots an inch.
int RowHeightIn(const QFont& font);

/// The same, in the desktop's font; the largest one, if it has several for windows.
int RowHeight();

/// The desktop's font, made smaller until its rows are no higher than `rowHeight`.
QFont FontForRows(int rowHeight);

} // namespace folimark
