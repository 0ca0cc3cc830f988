#pragma once

#include "Picture.h"

#include <string>

namespace folimark {

/// A kind of media: what the list calls it, what the preview shows for it, and how the window speaks of it.
struct MediaKind {
    bool (*isOfType)(const std::string& type);
    const char* word;       ///< in the column Media
    Ref<Picture> (*icon)(); ///< null for the kinds that show the file itself
    const char* canvasHelp;
    const char* buttonHelp;
    const char* buttonCaption;
    const char* name; ///< in a sentence
};

/// The kind of a type as FolderItem::Type gives it; null for what is no media.
const MediaKind* KindOf(const std::string& type);

} // namespace folimark
