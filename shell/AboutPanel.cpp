#include "AboutBox.h"
#include "GlobalData.h"

namespace folimark::GlobalData {

void ShowAboutPanel() {
    ShowAboutBox(
        "Folimark keeps albums of the pictures, films, sounds and PDF files in your folders. It never "
        "copies, moves, changes or deletes any of them.",
        "It stands on Qt %1, Qt PDF, libvips, OpenJPEG, ImageMagick and ICU.");
}

} // namespace folimark::GlobalData
