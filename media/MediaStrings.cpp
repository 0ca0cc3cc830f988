#include "MediaStrings.h"

#include "Text.h"

namespace folimark::GlobalData {
namespace {

bool Occurs(const std::string& type, const std::string& list) {
    // The names of the table stand in the lists letter for letter. A scan asks several times a file, so they
    // are looked for before letter case is taken out.
    return !type.empty() && (list.find(type) != std::string::npos || InStr(list, type) > 0);
}

} // namespace

void SetupFileTypeStrings() {
    AudioString = Join({"audio/aac", "audio/aiff", "audio/m4p", "audio/mp3", "audio/mp4", "audio/mpeg",
                        "audio/mpeg3", "audio/wav"},
                       " ");
    BookString = Join({"book/pdf"}, " ");
    ImageString = Join({"image/gif", "image/jpeg", "image/jpeg2000", "image/pict", "image/png", "image/tiff",
                        "image/x-bmp", "image/x-macpaint", "image/x-quicktime"},
                       " ");
    VideoString = Join({"video/avi", "video/mp4", "video/mpeg", "video/quicktime", "video/x-m4v"}, " ");
    MediaString = AudioString + " " + BookString + " " + ImageString + " " + VideoString;
}

bool CheckMediaFileType(const std::string& type) {
    return Occurs(type, MediaString);
}
bool CheckImageFileType(const std::string& type) {
    return Occurs(type, ImageString);
}
bool CheckVideoFileType(const std::string& type) {
    return Occurs(type, VideoString);
}
bool CheckAudioFileType(const std::string& type) {
    return Occurs(type, AudioString);
}
bool CheckPDFFileType(const std::string& type) {
    return Occurs(type, BookString);
}

} // namespace folimark::GlobalData
