#include "Graphics.h"

#include "Picture.h"

namespace folimark {

void Graphics::DrawPicture(const Ref<Picture>& picture, int x, int y, int width, int height, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight) {
    const auto orOwn = [](int size, int own) { return size == kOwnSize ? own : size; };
    surface_->DrawPicture(*picture, x, y, orOwn(width, picture->Width()), orOwn(height, picture->Height()),
                          sourceX, sourceY, orOwn(sourceWidth, picture->Width()),
                          orOwn(sourceHeight, picture->Height()));
}

} // namespace folimark
