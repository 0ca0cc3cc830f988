#pragma once

#include "Picture.h"

namespace folimark {

/// One of the application's own pictures. It is read from its file at the first call and kept; nil if it
/// can't be read, in which case the next call tries again.
Ref<Picture> PictureResource(const char* name);

inline Ref<Picture> AddCatalog() {
    return PictureResource("AddCatalog");
}
inline Ref<Picture> DeleteCatalog() {
    return PictureResource("DeleteCatalog");
}
inline Ref<Picture> OpenCatalog() {
    return PictureResource("OpenCatalog");
}
inline Ref<Picture> StaggerCatalogs() {
    return PictureResource("StaggerCatalogs");
}
inline Ref<Picture> CloseCatalog() {
    return PictureResource("CloseCatalog");
}
inline Ref<Picture> MoviesIcon() {
    return PictureResource("MoviesIcon");
}
inline Ref<Picture> MusicIcon() {
    return PictureResource("MusicIcon");
}

} // namespace folimark
