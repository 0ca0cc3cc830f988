#pragma once

#include <QByteArray>
#include <QImage>

namespace folimark::test {

/// A JPEG file that says how it wants to be turned: an EXIF orientation from 1 (upright) to 8. Its points are
/// stored so that it shows `image` upright, for the orientations 1, 3 (upside down), 6 and 8 (on its sides).
QByteArray JpegFile(const QImage& image, int orientation);
QByteArray TiffFile(const QImage& image);
/// In 216 colours.
QByteArray GifFile(const QImage& image);
/// An uncompressed film of 12 pictures a second; all of one size, whose width is a multiple of 4.
QByteArray AviFile(const QList<QImage>& pictures);
/// Some seconds of waves on a shore.
QByteArray WavFile(int seconds);
/// A few pages with a title, a text and a picture.
void WritePdf(const QString& path, const QString& title, const QImage& picture, int pages);

} // namespace folimark::test
