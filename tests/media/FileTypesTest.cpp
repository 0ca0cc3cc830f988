#include "FileTypes.h"
#include "FileTypeRegistry.h"
#include "MediaStrings.h"
#include "Text.h"

#include <gtest/gtest.h>

namespace folimark {
namespace {

/// All kinds that a file of that extension counts as.
std::string KindsOf(const std::string& extension) {
    const std::string type = FileTypeOf("a name." + extension);
    return std::string(GlobalData::CheckMediaFileType(type) ? "media " : "")
           + (GlobalData::CheckImageFileType(type) ? "image" : "")
           + (GlobalData::CheckVideoFileType(type) ? "video" : "")
           + (GlobalData::CheckAudioFileType(type) ? "audio" : "")
           + (GlobalData::CheckPDFFileType(type) ? "PDF" : "");
}

TEST(FileTypes, EachExtensionHasItsKindInAnyLetterCase) {
    const std::pair<std::string, std::string> cases[] = {
        {"media image",
         "JFIF JPE Jpeg jpg gif png jfx TIF tiff pict Pic pct jp2 bmp dib pntg pnt mac qtif qti"},
        {"media video", "MP4 mpe mpeg MPG m1s m1v m1a m75 m15 mp2 mpm mpv mpa AVI vfw moov MOV qt mqv m4v"},
        {"media audio", "aac adts aiff aif aifc cdda Mp3 swa WAV bwf m2a M4P"},
        {"media PDF", "PDF pdf"},
        {"", "htm html asc ascii bas c class cp cpp h hp hpp i3 java m2 m3 mak text txt rtx epub jpgg jp"}};
    FileTypes::_Initialize();
    EXPECT_EQ(KindsOf("jpg"), "") << "The lists of kinds aren't set up yet.";
    GlobalData::SetupFileTypeStrings();
    for (const auto& [kinds, extensions] : cases) {
        for (std::int64_t i = 1; i <= CountFields(extensions, " "); ++i) {
            EXPECT_EQ(KindsOf(NthField(extensions, " ", i)), kinds) << NthField(extensions, " ", i);
        }
    }
    EXPECT_TRUE(GlobalData::CheckVideoFileType("VIDEO/mp4") && !GlobalData::CheckVideoFileType("video/jpeg"));
    ForgetFileTypes();
}

} // namespace
} // namespace folimark
