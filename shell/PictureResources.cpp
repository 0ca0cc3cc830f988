#include "PictureResources.h"

namespace folimark {
namespace {

const Ref<Picture>& Kept(Ref<Picture>& picture, const char* fileName) {
    if (!picture) {
        picture = Picture::FromResource(fileName);
    }
    return picture;
}

} // namespace

Ref<Picture> AddCatalog() {
    static Ref<Picture> picture;
    return Kept(picture, "AddCatalog.png");
}

Ref<Picture> DeleteCatalog() {
    static Ref<Picture> picture;
    return Kept(picture, "DeleteCatalog.png");
}

Ref<Picture> OpenCatalog() {
    static Ref<Picture> picture;
    return Kept(picture, "OpenCatalog.png");
}

Ref<Picture> StaggerCatalogs() {
    static Ref<Picture> picture;
    return Kept(picture, "StaggerCatalogs.png");
}

Ref<Picture> CloseCatalog() {
    static Ref<Picture> picture;
    return Kept(picture, "CloseCatalog.png");
}

Ref<Picture> MoviesIcon() {
    static Ref<Picture> picture;
    return Kept(picture, "MoviesIcon.png");
}

Ref<Picture> MusicIcon() {
    static Ref<Picture> picture;
    return Kept(picture, "MusicIcon.png");
}

} // namespace folimark
