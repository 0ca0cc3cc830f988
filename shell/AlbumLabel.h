#pragma once

#include "ColonPath.h"
#include "Text.h"

#include <string>

namespace folimark {

/// The name by which an album is shown: the last folder of its path in the colon form, which ends in ":". A
/// path without the final ":" gives the folder before, and one without any gives "".
inline std::string AlbumLabelOf(const std::string& path) {
    return ReadableNames(NthField(path, ":", CountFields(path, ":") - 1));
}

} // namespace folimark
