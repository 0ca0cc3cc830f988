#include "PictureFormat.h"

#include "Decoders.h"

#include <algorithm>

namespace folimark {
namespace {

using namespace std::string_view_literals;

/// "BM" alone is no proof: the size of the header that follows must be one of those that exist.
bool IsBmp(Bytes bytes) {
    constexpr std::array<int, 8> kHeaderSizes{12, 16, 40, 52, 56, 64, 108, 124};
    return bytes.size() > 18 && std::ranges::find(kHeaderSizes, bytes[14]) != kHeaderSizes.end()
           && bytes[15] == 0 && bytes[16] == 0 && bytes[17] == 0;
}

constexpr PictureFormat kFormats[] = {
    {"image/jpeg", {"\xFF\xD8\xFF"sv}, nullptr, DecodeWithVips, DecodeJpegWithMagick},
    {"image/gif", {"GIF87a"sv, "GIF89a"sv}, nullptr, DecodeWithVips, nullptr},
    {"image/png", {"\x89PNG\r\n\x1A\n"sv}, nullptr, DecodeWithVips, nullptr},
    // the two byte orders, each with offsets of 32 and of 64 bits
    {"image/tiff", {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv}, nullptr, DecodeTiff, DecodeTiffWithMagick},
    {"image/pict", {}, nullptr, DecodePict, nullptr},
    // in boxes, and a bare codestream
    {"image/jpeg2000",
     {"\0\0\0\x0CjP  \r\n\x87\n"sv, "\xFF\x4F\xFF\x51"sv},
     nullptr,
     DecodeJpeg2000,
     nullptr},
    {"image/x-bmp", {"BM"sv}, IsBmp, DecodeBmp, DecodeBmpWithMagick},
    {"image/x-macpaint", {}, nullptr, DecodeMacPaint, nullptr},
    {"image/x-quicktime", {}, nullptr, DecodeQuickTimeImage, nullptr},
    {"book/pdf", {"%PDF-"sv}, nullptr, DecodePdf, nullptr},
};

bool IsMarked(const PictureFormat& format, Bytes file) {
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    return std::ranges::any_of(
               format.marks,
               [text](std::string_view mark) { return !mark.empty() && text.starts_with(mark); })
           && (format.isReally == nullptr || format.isReally(file));
}

} // namespace

std::span<const PictureFormat> PictureFormats() {
    return kFormats;
}

const PictureFormat* FormatOfContent(Bytes file) {
    const auto* found = std::ranges::find_if(
        kFormats, [file](const PictureFormat& format) { return IsMarked(format, file); });
    return found == std::end(kFormats) ? nullptr : found;
}

std::optional<Pixels> DecodeAs(const PictureFormat& format, Bytes file, Size wanted) {
    std::optional<Pixels> first = format.decoder(file, wanted);
    if (format.second == nullptr || (first && !IsPlain(*first))) {
        return first;
    }
    std::optional<Pixels> second = format.second(file, wanted);
    return second && !IsPlain(*second) ? second : first;
}

std::optional<Pixels> DecodeFile(std::string_view type, Bytes file, Size wanted) {
    const auto* named = std::ranges::find(kFormats, type, &PictureFormat::type);
    if (named == std::end(kFormats)) {
        return std::nullopt;
    }
    const PictureFormat* found = FormatOfContent(file);
    return DecodeAs(found != nullptr ? *found : *named, file, wanted);
}

} // namespace folimark
