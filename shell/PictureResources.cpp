#include "PictureResources.h"

#include <map>
#include <string>

namespace folimark {

Ref<Picture> PictureResource(const char* name) {
    static std::map<std::string, Ref<Picture>> kept;
    Ref<Picture>& picture = kept[name];
    if (!picture) {
        picture = Picture::FromResource(std::string(name) + ".png");
    }
    return picture;
}

} // namespace folimark
