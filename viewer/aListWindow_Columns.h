#pragma once

#include "Listbox.h"

#include <string>

namespace folimark {

/// A column of an album's list, in its two states: the middle ones can be hidden. Widths are units.
struct AlbumColumn {
    const char* heading;
    int widthShown;
    int widthHidden;
    ColumnAlign align;
};

/// What a row's cells are, in their order.
inline constexpr AlbumColumn kAlbumColumns[] = {
    {"Media files in this album ", 710, 1024, ColumnAlign::Left},
    {"Created", 110, 0, ColumnAlign::Right},
    {"Modified", 110, 0, ColumnAlign::Right},
    {"File Size", 94, 0, ColumnAlign::Right},
    {"Media", 70, 70, ColumnAlign::Right},
};

/// The widths as a Listbox takes them; `width` says in which state.
std::string WidthsOfColumns(int AlbumColumn::*width);

/// What stands between the names of a file's path in the first of them.
inline constexpr std::string_view kPathSeparator = " → ";

} // namespace folimark
