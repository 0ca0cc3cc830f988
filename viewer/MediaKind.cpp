#include "MediaKind.h"

#include "MediaStrings.h"
#include "PictureResources.h"

#include <algorithm>
#include <iterator>

namespace folimark {
namespace {

constexpr MediaKind kKinds[] = {
    {GlobalData::CheckImageFileType, "Image", nullptr,
     "Double-click this large thumbnail of the selected image file to open it in its default application "
     "(for example, Preview, Photoshop, Photoshop Elements, Pixelmator, GraphicConverter or another "
     "appropriate application).\r\r"
     "If the image file is modified and saved in its default application, click again on its entry in the "
     "list to the left to update its thumbnail.",
     "Click this button to open the selected image displayed above in its default application (for example, "
     "Preview, Photoshop, Photoshop Elements, Pixelmator, GraphicConverter or another appropriate "
     "application).",
     "Open Image File  ⌘O", "image"},
    {GlobalData::CheckVideoFileType, "Video", MoviesIcon,
     "Double-click this movies icon to open the selected video file in its default application (usually "
     "QuickTime Player, but also could be iMovie, VLC, RealPlayer or another appropriate application).",
     "Click this button to open the selected video file in its default application (usually QuickTime "
     "Player, but also could be iMovie, VLC, RealPlayer or another appropriate application).",
     "Open Video File  ⌘O", "video"},
    {GlobalData::CheckAudioFileType, "Audio", MusicIcon,
     "Double-click this music icon to open the selected audio file in its default application (usually "
     "QuickTime Player or iTunes, but also could be VLC, RealPlayer or another appropriate application).",
     "Click this button to open the selected audio file in its default application (usually QuickTime "
     "Player or iTunes, but also could be VLC, RealPlayer or another appropriate application).",
     "Open Audio File  ⌘O", "audio"},
    {GlobalData::CheckPDFFileType, "PDF", nullptr,
     "Double-click this large thumbnail of the selected PDF file to open it in its default application (for "
     "example, Preview, Adobe Reader or another appropriate application).\r\r"
     "If the PDF file is modified and saved in its default application, click again on its entry in the "
     "list to the left to update its thumbnail.",
     "Click this button to open the selected PDF file displayed above in its default application (for "
     "example, Preview, Adobe Reader or another appropriate application).",
     "Open PDF file  ⌘O", "PDF"},
};

} // namespace

const MediaKind* KindOf(const std::string& type) {
    const auto* const kind =
        std::ranges::find_if(kKinds, [&](const MediaKind& k) { return k.isOfType(type); });
    return kind == std::end(kKinds) ? nullptr : kind;
}

} // namespace folimark
