#include "Decoders.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>

namespace folimark {
namespace {

// As much as the largest picture takes that can be handed over.
constexpr int kMostMebibytes = 256;

} // namespace

std::optional<Pixels> DecodeBmp(Bytes file, Size wanted) {
    QByteArray content = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                                 static_cast<qsizetype>(file.size()));
    QBuffer device(&content);
    QImageReader reader(&device, "bmp");
    reader.setAutoDetectImageFormat(false);
    QImageReader::setAllocationLimit(kMostMebibytes);
    QImage image = reader.read();
    if (image.isNull()) {
        return std::nullopt;
    }
    const Size picture{image.width(), image.height()};
    const Size size = SizeFor(picture, wanted);
    if (size.width != picture.width || size.height != picture.height) {
        image = image.scaled(size.width, size.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    const auto* start = reinterpret_cast<const std::uint32_t*>(image.constBits()); // rows have no gaps
    return Pixels{picture, size, {start, start + image.sizeInBytes() / qsizetype{sizeof *start}}};
}

} // namespace folimark
