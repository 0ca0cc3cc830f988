#pragma once

#include "Picture.h"

namespace folimark {

// The application's own pictures. Each is read from its file at the first call and kept; nil if it can't be
// read, in which case the next call tries again.
Ref<Picture> AddCatalog();
Ref<Picture> DeleteCatalog();
Ref<Picture> OpenCatalog();
Ref<Picture> StaggerCatalogs();
Ref<Picture> CloseCatalog();
Ref<Picture> MoviesIcon();
Ref<Picture> MusicIcon();

} // namespace folimark
