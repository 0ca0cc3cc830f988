#include "SampleFiles.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTransform>
#include <QtEndian>

#include <cmath>
#include <random>

namespace folimark::test {
namespace {

/// `value` in that many bytes, the lowest first.
QByteArray Little(std::uint32_t value, int bytes) {
    QByteArray result;
    for (int i = 0; i < bytes; ++i) {
        result.append(static_cast<char>(value >> (8 * i) & 0xFF));
    }
    return result;
}

std::uint32_t Size(const QByteArray& bytes) {
    return static_cast<std::uint32_t>(bytes.size());
}

/// A piece of a RIFF file.
QByteArray Chunk(const char* name, QByteArray content) {
    QByteArray chunk = QByteArray(name) + Little(Size(content), 4) + content;
    return chunk.size() % 2 == 0 ? chunk : chunk.append('\0');
}

/// An entry of a TIFF directory that holds its value itself; types are 3 (16 bits) and 4 (32 bits).
QByteArray Entry(std::uint32_t tag, std::uint32_t type, std::uint32_t value) {
    return Little(tag, 2) + Little(type, 2) + Little(1, 4) + Little(value, 4);
}

QByteArray Pixels(const QImage& image, QImage::Format format) {
    const QImage converted = image.convertToFormat(format);
    QByteArray pixels;
    for (int y = 0; y < converted.height(); ++y) {
        pixels.append(reinterpret_cast<const char*>(converted.constScanLine(y)),
                      qsizetype{3} * converted.width());
    }
    return pixels;
}

} // namespace

QByteArray JpegFile(const QImage& image, int orientation) {
    const int turn = orientation == 6 ? -90 : orientation == 8 ? 90 : orientation == 3 ? 180 : 0;
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    image.transformed(QTransform().rotate(turn)).save(&buffer, "JPG", 88);
    // EXIF is a TIFF directory in a segment of its own, behind the start of the image.
    const QByteArray exif = QByteArray("Exif\0\0", 6) + "II*" + Little(0, 1) + Little(8, 4) + Little(1, 2)
                            + Entry(0x0112, 3, static_cast<std::uint32_t>(orientation)) + Little(0, 4);
    QByteArray segment("\xFF\xE1", 2);
    segment.append(static_cast<char>((exif.size() + 2) >> 8)).append(static_cast<char>(exif.size() + 2));
    return jpeg.insert(2, segment + exif);
}

QByteArray TiffFile(const QImage& image) {
    constexpr int kEntries = 9;
    const QByteArray pixels = Pixels(image, QImage::Format_RGB888);
    const std::uint32_t start = 8 + 2 + kEntries * 12 + 4;
    const auto width = static_cast<std::uint32_t>(image.width());
    const auto height = static_cast<std::uint32_t>(image.height());
    const QByteArray bits =
        Little(258, 2) + Little(3, 2) + Little(3, 4) + Little(start, 4); // they lie outside
    return "II*" + Little(0, 1) + Little(8, 4) + Little(kEntries, 2) + Entry(256, 4, width)
           + Entry(257, 4, height) + bits + Entry(259, 3, 1) + Entry(262, 3, 2) + Entry(273, 4, start + 6)
           + Entry(277, 3, 3) + Entry(278, 4, height) + Entry(279, 4, Size(pixels)) + Little(0, 4)
           + Little(8, 2) + Little(8, 2) + Little(8, 2) + pixels;
}

QByteArray GifFile(const QImage& image) {
    QList<QRgb> colors;
    for (int i = 0; i < 256; ++i) {
        colors.append(qRgb(i / 36 % 6 * 51, i / 6 % 6 * 51, i % 6 * 51));
    }
    const QImage indexed = image.convertToFormat(QImage::Format_Indexed8, colors, Qt::DiffuseDither);
    QByteArray gif = "GIF89a" + Little(static_cast<std::uint32_t>(image.width()), 2)
                     + Little(static_cast<std::uint32_t>(image.height()), 2) + QByteArray("\xF7\0\0", 3);
    for (const QRgb color : colors) {
        gif.append(static_cast<char>(qRed(color))).append(static_cast<char>(qGreen(color)));
        gif.append(static_cast<char>(qBlue(color)));
    }
    gif += "," + Little(0, 4) + Little(static_cast<std::uint32_t>(image.width()), 2)
           + Little(static_cast<std::uint32_t>(image.height()), 2) + Little(0, 1) + Little(8, 1);
    // Each pixel is a code of 9 bits for itself. Clearing the table in time keeps the codes at that length.
    QByteArray data;
    std::uint32_t bits = 0;
    int count = 0;
    const auto put = [&](std::uint32_t code) {
        bits |= code << count;
        for (count += 9; count >= 8; count -= 8, bits >>= 8) {
            data.append(static_cast<char>(bits & 0xFF));
        }
    };
    constexpr std::uint32_t kClear = 256;
    int sinceClear = 250;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (++sinceClear > 250) {
                put(kClear);
                sinceClear = 0;
            }
            put(static_cast<std::uint32_t>(indexed.pixelIndex(x, y)));
        }
    }
    put(kClear + 1);
    data.append(static_cast<char>(bits & 0xFF));
    for (qsizetype at = 0; at < data.size(); at += 255) {
        const QByteArray piece = data.mid(at, 255);
        gif += Little(Size(piece), 1) + piece;
    }
    return gif + Little(0, 1) + ";";
}

QByteArray AviFile(const QList<QImage>& pictures) {
    constexpr std::uint32_t kRate = 12;
    const auto width = static_cast<std::uint32_t>(pictures.first().width());
    const auto height = static_cast<std::uint32_t>(pictures.first().height());
    const auto count = static_cast<std::uint32_t>(pictures.size());
    const std::uint32_t bytes = width * height * 3;
    const QByteArray mainHeader = Little(1'000'000 / kRate, 4) + Little(bytes * kRate, 4) + Little(0, 4)
                                  + Little(0, 4) + Little(count, 4) + Little(0, 4) + Little(1, 4)
                                  + Little(bytes, 4) + Little(width, 4) + Little(height, 4)
                                  + QByteArray(16, '\0');
    const QByteArray streamHeader =
        "vidsDIB " + QByteArray(12, '\0') + Little(1, 4) + Little(kRate, 4) + Little(0, 4) + Little(count, 4)
        + Little(bytes, 4) + QByteArray(8, '\xFF') + Little(0, 4) + Little(width, 2) + Little(height, 2);
    const QByteArray format = Little(40, 4) + Little(width, 4) + Little(height, 4) + Little(1, 2)
                              + Little(24, 2) + Little(0, 4) + Little(bytes, 4) + QByteArray(16, '\0');
    QByteArray frames;
    for (const QImage& picture : pictures) {
        frames += Chunk("00db", Pixels(picture.mirrored(), QImage::Format_BGR888));
    }
    const QByteArray stream = Chunk("LIST", "strl" + Chunk("strh", streamHeader) + Chunk("strf", format));
    const QByteArray headers = Chunk("LIST", "hdrl" + Chunk("avih", mainHeader) + stream);
    return Chunk("RIFF", "AVI " + headers + Chunk("LIST", "movi" + frames));
}

QByteArray WavFile(int seconds) {
    constexpr std::uint32_t kRate = 22'050;
    std::minstd_rand random(7);
    QByteArray samples;
    double smooth = 0;
    for (std::uint32_t i = 0; i < kRate * static_cast<std::uint32_t>(seconds); ++i) {
        const double noise = static_cast<double>(random() % 2000) / 1000.0 - 1;
        smooth += 0.12 * (noise - smooth);
        const double swell = 0.25 + 0.75 * std::pow(std::sin(i * 0.8 / kRate), 2);
        samples += Little(static_cast<std::uint32_t>(static_cast<int>(smooth * swell * 20'000)), 2);
    }
    const QByteArray format =
        Little(1, 2) + Little(1, 2) + Little(kRate, 4) + Little(kRate * 2, 4) + Little(2, 2) + Little(16, 2);
    return Chunk("RIFF", "WAVE" + Chunk("fmt ", format) + Chunk("data", samples));
}

void WritePdf(const QString& path, const QString& title, const QImage& picture, int pages) {
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A5));
    writer.setTitle(title);
    writer.setResolution(150);
    QPainter painter(&writer);
    const QRect page = painter.viewport().adjusted(30, 30, -30, -30);
    const QFont heading(painter.font().family(), 22, QFont::Bold);
    const QFont text(painter.font().family(), 11);
    for (int number = 1; number <= pages; ++number) {
        painter.setFont(heading);
        painter.drawText(page, Qt::AlignTop | Qt::AlignHCenter, title);
        const QRect room(page.left(), page.top() + 90, page.width(), page.width() * 2 / 3);
        painter.drawImage(room, picture);
        painter.setFont(text);
        const QString line =
            QStringLiteral("Page %1. We took the early ferry and stood on deck until the hills "
                           "came out of the mist, one behind the other.  ");
        painter.drawText(page.adjusted(0, 110 + room.height(), 0, 0), Qt::AlignTop | Qt::TextWordWrap,
                         line.arg(number).repeated(3));
        if (number < pages) {
            writer.newPage();
        }
    }
}

} // namespace folimark::test
