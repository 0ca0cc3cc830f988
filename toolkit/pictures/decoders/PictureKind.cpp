#include "PictureKind.h"

#include <algorithm>
#include <array>

namespace folimark {
namespace {

using namespace std::string_view_literals;

struct TypeName {
    std::string_view name;
    PictureKind kind;
};
constexpr std::array kTypeNames{
    TypeName{"image/jpeg", PictureKind::Jpeg},
    TypeName{"image/gif", PictureKind::Gif},
    TypeName{"image/png", PictureKind::Png},
    TypeName{"image/tiff", PictureKind::Tiff},
    TypeName{"image/pict", PictureKind::Pict},
    TypeName{"image/jpeg2000", PictureKind::Jpeg2000},
    TypeName{"image/x-bmp", PictureKind::Bmp},
    TypeName{"image/x-macpaint", PictureKind::MacPaint},
    TypeName{"image/x-quicktime", PictureKind::QuickTimeImage},
    TypeName{"book/pdf", PictureKind::Pdf},
};

struct Mark {
    std::string_view start;
    PictureKind kind;
};
constexpr std::array kMarks{
    Mark{"\xFF\xD8\xFF"sv, PictureKind::Jpeg},
    Mark{"GIF87a"sv, PictureKind::Gif},
    Mark{"GIF89a"sv, PictureKind::Gif},
    Mark{"\x89PNG\r\n\x1A\n"sv, PictureKind::Png},
    Mark{"II*\0"sv, PictureKind::Tiff},
    Mark{"MM\0*"sv, PictureKind::Tiff},
    Mark{"II+\0"sv, PictureKind::Tiff}, // with 64-bit offsets
    Mark{"MM\0+"sv, PictureKind::Tiff},
    Mark{"\0\0\0\x0CjP  \r\n\x87\n"sv, PictureKind::Jpeg2000},
    Mark{"\xFF\x4F\xFF\x51"sv, PictureKind::Jpeg2000}, // a bare codestream
    Mark{"%PDF-"sv, PictureKind::Pdf},
};

/// "BM" alone is no proof: the size of the header that follows must be one of those that exist.
bool IsBmp(Bytes bytes) {
    constexpr std::array<int, 8> kHeaderSizes{12, 16, 40, 52, 56, 64, 108, 124};
    return bytes.size() > 18 && bytes[0] == 'B' && bytes[1] == 'M'
           && std::ranges::find(kHeaderSizes, bytes[14]) != kHeaderSizes.end() && bytes[15] == 0
           && bytes[16] == 0 && bytes[17] == 0;
}

} // namespace

PictureKind KindOfType(std::string_view type) {
    const auto* found = std::ranges::find(kTypeNames, type, &TypeName::name);
    return found == kTypeNames.end() ? PictureKind::Unknown : found->kind;
}

PictureKind KindOfContent(Bytes bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const auto* found =
        std::ranges::find_if(kMarks, [text](const Mark& mark) { return text.starts_with(mark.start); });
    if (found != kMarks.end()) {
        return found->kind;
    }
    return IsBmp(bytes) ? PictureKind::Bmp : PictureKind::Unknown;
}

} // namespace folimark
