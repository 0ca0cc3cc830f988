#include "Decoders.h"

namespace folimark {

std::optional<Pixels> DecodeAs(PictureKind kind, Bytes file, Size wanted) {
    switch (kind) {
    case PictureKind::Jpeg:
    case PictureKind::Gif:
    case PictureKind::Png:
    case PictureKind::Tiff:
        return DecodeWithVips(kind, file, wanted);
    case PictureKind::Jpeg2000:
        return DecodeJpeg2000(file, wanted);
    case PictureKind::Bmp:
        return DecodeBmp(file, wanted);
    case PictureKind::Pict:
        return DecodePict(file, wanted);
    case PictureKind::MacPaint:
        return DecodeMacPaint(file, wanted);
    case PictureKind::QuickTimeImage:
        return DecodeQuickTimeImage(file, wanted);
    case PictureKind::Pdf:
        return DecodePdf(file, wanted);
    case PictureKind::Unknown:
        break;
    }
    return std::nullopt;
}

std::optional<Pixels> DecodeFile(std::string_view type, Bytes file, Size wanted) {
    const PictureKind named = KindOfType(type);
    const PictureKind found = KindOfContent(file);
    const bool isOther = named != PictureKind::Unknown && found != PictureKind::Unknown;
    return DecodeAs(isOther ? found : named, file, wanted);
}

} // namespace folimark
