#pragma once

#include <QColor>
#include <QImage>
#include <QString>

// Small fixtures that tests write themselves.
namespace ImageWriter {

// A W x H image where pixel (x, y) = (x * 10 % 256, y * 10 % 256, (x + y) % 256).
QImage gradient(int width, int height, QImage::Format format = QImage::Format_RGB32);
// Writes `image` in the format given by the file's suffix; true on success.
bool write(const QImage &image, const QString &path);
// A PNG with an alpha channel: left half transparent, right half opaque `colour`.
bool writeAlphaPng(const QString &path, int width, int height, const QColor &colour);
// An 8-bit indexed GIF with the given colours in vertical stripes.
bool writeIndexedGif(const QString &path, int width, int height, const QVector<QRgb> &palette);
bool writeJpeg(const QString &path, int width, int height, const QColor &colour);
bool writeTiff(const QString &path, int width, int height, const QColor &colour);
// A real 4 x 4 PNG whose header then claims width x height pixels (its
// checksum made right again), as a decompression bomb does.
QByteArray pngClaimingSize(quint32 width, quint32 height);

} // namespace ImageWriter
