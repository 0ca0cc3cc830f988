#include "Decoders.h"

#include <QtCore/QBuffer>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtPdf/QPdfDocument>

#include <algorithm>

namespace folimark {
namespace {

constexpr double kLargestPage = 1e6; // points; larger ones are damaged files

} // namespace

std::optional<Pixels> DecodePdf(Bytes file, Size wanted) {
    QByteArray content = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                                 static_cast<qsizetype>(file.size()));
    QBuffer device(&content);
    device.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&device);
    if (document.status() != QPdfDocument::Status::Ready || document.pageCount() < 1) {
        return std::nullopt;
    }
    const QSizeF points = document.pagePointSize(0);
    if (!(points.width() > 0 && points.height() > 0 && points.width() < kLargestPage
          && points.height() < kLargestPage)) {
        return std::nullopt;
    }
    const Size page{std::max(1, qRound(points.width())), std::max(1, qRound(points.height()))};
    const Size size = SizeFor(page, wanted, true);
    QPdfDocumentRenderOptions options;
    options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
    const QImage drawn = document.render(0, QSize(size.width, size.height), options);
    if (drawn.isNull()) {
        return std::nullopt;
    }
    Pixels pixels{page, size, std::vector<std::uint32_t>(std::size_t(size.width) * std::size_t(size.height))};
    QImage paper(reinterpret_cast<uchar*>(pixels.argb.data()), size.width, size.height,
                 QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, drawn);
    return pixels;
}

} // namespace folimark
