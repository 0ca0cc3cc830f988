#include "FileTypes.h"

namespace folimark::FileTypes {

namespace {

struct Row {
    Ref<FileType>& global;
    std::string_view name;
    std::string_view extensions;
    std::string_view macType;
    std::string_view macCreator;
    std::string_view uti;
};

// A type without a uniform type identifier of its own has "".
const Row kRows[] = {
    {pJpeg, "image/jpeg", ".jfif;.jpe;.jpeg;.jpg", "JPEG", "prvw", "public.jpeg"},
    {pImageGif, "image/gif", ".gif", "GIFf", "prvw", "com.compuserve.gif"},
    {pImagePng, "image/png", ".png", "PNGf", "ogle", "public.png"},
    {pImageTiff, "image/tiff", ".jfx;.tif;.tiff", "TIFF", "????", "public.tiff"},
    {pImagePict, "image/pict", ".pict;.pic;.pct", "PICT", "ttxt", "com.apple.pict"},
    {pImageJpeg2000, "image/jpeg2000", ".jp2", "jp2 ", "ogle", "public.jpeg-2000"},
    {pVideoMp4, "video/mp4", ".mp4", "mpg4", "TVOD", ""},
    {pVideoMpeg, "video/mpeg", ".mpe;.mpeg;.mpg;.m1s;.m1v;.m1a;.m75;.m15;.mp2;.mpm;.mpv;.mpa", "MPEG", "TVOD",
     "public.mpeg"},
    {pVideoAvi, "video/avi", ".avi;.vfw;.avi", "VfW ", "TVOD", ""},
    {pVideoQuicktime, "video/quicktime", ".moov;.mov;.qt;.mqv", "MooV", "TVOD", "com.apple.quicktime-movie"},
    {pVideoXM4v, "video/x-m4v", ".m4v", "M4V ", "hook", ""},
    {pAudioAac, "audio/aac", ".aac;.adts", "adts", "TVOD", ""},
    {pAudioAiff, "audio/aiff", ".aiff;.aif;.aifc;.cdda", "AIFF", "TVOD", ""},
    {pAudioMp3, "audio/mp3", ".mp3;.swa", "Mp3 ", "TVOD", "public.mp3"},
    {pAudioMp4, "audio/mp4", ".mp4", "mpg4", "TVOD", ""},
    {pAudioWav, "audio/wav", ".wav;.bwf", ".WAV", "TVOD", ""},
    {pTextHtml, "text/html", ".htm;.html", "TEXT", "????", "public.html"},
    {pTextPlain, "text/plain",
     ".asc;.ascii;.bas;.c;.class;.cp;.cpp;.h;.hp;.hpp;.i3;.java;.m2;.m3;.mak;.text;.txt", "TEXT", "????",
     "public.text"},
    {pTextRichtext, "text/richtext", ".rtx", "TEXT", "text", ""},
    {pBookPdf, "book/pdf", ".pdf", "pdf", "prvw", ""},
    {pBookEpub, "book/epub", ".epub", "EPUB", "????", ""},
    {pImageXBmp, "image/x-bmp", ".bmp;.dib", "BMPf", "ogle", "com.microsoft.bmp"},
    {pAudioMpeg3, "audio/mpeg3", ".mp3;.swa", "Mp3 ", "TVOD", ""},
    {pAudioMpeg, "audio/mpeg", ".mpeg;.mpg;.m1s;.m1a;.mp2;.mpm;.mpa;.m2a;.mp3;.swa", "MPEG", "TVOD",
     "public.mpeg"},
    {pAudioM4p, "audio/m4p", ".m4p", "M4P ", "hook", "com.apple.protected-mpeg-4-audio"},
    {pImageXMacpaint, "image/x-macpaint", ".pntg;.pnt;.mac", "PNTG", "ogle", ""},
    {pImageXQuicktime, "image/x-quicktime", ".qtif;.qti", "qtif", "ogle", ""},
};

} // namespace

void _Initialize() {
    for (const Row& row : kRows) {
        row.global = New<FileType>();
        FileType& type = *row.global;
        type.Name = row.name;
        type.Extensions = row.extensions;
        type.MacType = row.macType;
        type.MacCreator = row.macCreator;
        type.MimeType = "";
        type.Imported = true;
        type.ConformsTo = "";
        type.UTI = row.uti;
        static_cast<void>(std::string(type)); // The conversion registers the row.
    }
}

} // namespace folimark::FileTypes
