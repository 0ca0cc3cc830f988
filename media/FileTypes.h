#pragma once

#include "FileType.h"

#include <string_view>

/// The file types that the application knows by name. A file belongs to the first row that bears its
/// extension, so the order of the table decides where rows share one.
namespace folimark::FileTypes {

inline Ref<FileType> pJpeg;
inline Ref<FileType> pImageGif;
inline Ref<FileType> pImagePng;
inline Ref<FileType> pImageTiff;
inline Ref<FileType> pImagePict;
inline Ref<FileType> pImageJpeg2000;
inline Ref<FileType> pVideoMp4;
inline Ref<FileType> pVideoMpeg;
inline Ref<FileType> pVideoAvi;
inline Ref<FileType> pVideoQuicktime;
inline Ref<FileType> pVideoXM4v;
inline Ref<FileType> pAudioAac;
inline Ref<FileType> pAudioAiff;
inline Ref<FileType> pAudioMp3;
inline Ref<FileType> pAudioMp4;
inline Ref<FileType> pAudioWav;
inline Ref<FileType> pTextHtml;
inline Ref<FileType> pTextPlain;
inline Ref<FileType> pTextRichtext;
inline Ref<FileType> pBookPdf;
inline Ref<FileType> pBookEpub;
inline Ref<FileType> pImageXBmp;
inline Ref<FileType> pAudioMpeg3;
inline Ref<FileType> pAudioMpeg;
inline Ref<FileType> pAudioM4p;
inline Ref<FileType> pImageXMacpaint;
inline Ref<FileType> pImageXQuicktime;

/// Builds all rows and registers each, in the order of the table. The globals above are nil before.
void _Initialize();

} // namespace folimark::FileTypes
