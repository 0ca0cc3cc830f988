#include "PictureResources.h"

#include <map>
#include <string>

namespace folimark {
namespace {

Ref<Picture> Resource(const char* name) {
    static std::map<std::string, Ref<Picture>> kept;
    Ref<Picture>& picture = kept[name];
    if (!picture) {
        picture = Picture::FromResource(std::string(name) + ".png");
    }
    return picture;
}

} // namespace

Ref<Picture> AddCatalog() {
    return Resource("AddCatalog");
}
Ref<Picture> DeleteCatalog() {
    return Resource("DeleteCatalog");
}
Ref<Picture> OpenCatalog() {
    return Resource("OpenCatalog");
}
Ref<Picture> StaggerCatalogs() {
    return Resource("StaggerCatalogs");
}
Ref<Picture> CloseCatalog() {
    return Resource("CloseCatalog");
}
Ref<Picture> MoviesIcon() {
    return Resource("MoviesIcon");
}
Ref<Picture> MusicIcon() {
    return Resource("MusicIcon");
}

} // namespace folimark
