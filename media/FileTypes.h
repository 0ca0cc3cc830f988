#pragma once

#include "FileType.h"

#include <string_view>

/// The file types that the application knows by name. A file belongs to the first row that bears its
/// extension, so the order of the table decides where rows share one.
namespace folimark::FileTypes {

extern Ref<FileType> pJpeg;
extern Ref<FileType> pImageGif;
extern Ref<FileType> pImagePng;
extern Ref<FileType> pImageTiff;
extern Ref<FileType> pImagePict;
extern Ref<FileType> pImageJpeg2000;
extern Ref<FileType> pVideoMp4;
extern Ref<FileType> pVideoMpeg;
extern Ref<FileType> pVideoAvi;
extern Ref<FileType> pVideoQuicktime;
extern Ref<FileType> pVideoXM4v;
extern Ref<FileType> pAudioAac;
extern Ref<FileType> pAudioAiff;
extern Ref<FileType> pAudioMp3;
extern Ref<FileType> pAudioMp4;
extern Ref<FileType> pAudioWav;
extern Ref<FileType> pTextHtml;
extern Ref<FileType> pTextPlain;
extern Ref<FileType> pTextRichtext;
extern Ref<FileType> pBookPdf;
extern Ref<FileType> pBookEpub;
extern Ref<FileType> pImageXBmp;
extern Ref<FileType> pAudioMpeg3;
extern Ref<FileType> pAudioMpeg;
extern Ref<FileType> pAudioM4p;
extern Ref<FileType> pImageXMacpaint;
extern Ref<FileType> pImageXQuicktime;

/// Builds all rows and registers each, in the order of the table. The globals above are nil before.
void _Initialize();

} // namespace folimark::FileTypes
