#include "aListWindow_Columns.h"

#include "Text.h"

namespace folimark {

std::string WidthsOfColumns(int AlbumColumn::*width) {
    std::vector<std::string> widths;
    for (const AlbumColumn& column : kAlbumColumns) {
        widths.push_back(Str(column.*width));
    }
    return Join(widths, ",");
}

} // namespace folimark
