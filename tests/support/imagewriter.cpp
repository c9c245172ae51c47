#include "imagewriter.h"

#include "gifencoder.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QtEndian>

namespace {

quint32 crc32(const QByteArray &bytes)
{
    quint32 crc = 0xffffffffu;
    for (const char c : bytes) {
        crc ^= quint8(c);
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xedb88320u & (0u - (crc & 1u)));
    }
    return ~crc;
}

QByteArray bigEndian(quint32 value)
{
    QByteArray out(4, '\0');
    qToBigEndian(value, out.data());
    return out;
}

} // namespace

namespace ImageWriter {

QByteArray pngClaimingSize(quint32 width, quint32 height)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    gradient(4, 4, QImage::Format_ARGB32).save(&buffer, "PNG");
    // Signature (8), length (4), "IHDR" (4), width, height, ... and the
    // chunk's checksum over its type and data.
    png.replace(16, 4, bigEndian(width));
    png.replace(20, 4, bigEndian(height));
    png.replace(29, 4, bigEndian(crc32(png.mid(12, 17))));
    return png;
}

QImage gradient(int width, int height, QImage::Format format)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 10 % 256, y * 10 % 256, (x + y) % 256));
    return image.convertToFormat(format);
}

bool write(const QImage &image, const QString &path)
{
    QImageWriter writer(path);
    if (path.endsWith(".jpg", Qt::CaseInsensitive) || path.endsWith(".jpeg", Qt::CaseInsensitive))
        writer.setQuality(100);
    return writer.write(image);
}

static QImage filled(int width, int height, const QColor &colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

bool writeAlphaPng(const QString &path, int width, int height, const QColor &colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixel(x, y, colour.rgba());
    return write(image, path);
}

bool writeIndexedGif(const QString &path, int width, int height, const QVector<QRgb> &palette)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorTable(palette);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, uint(x * palette.size() / width));
    // Qt reads GIF but usually has no writer for it.
    if (QImageWriter::supportedImageFormats().contains("gif"))
        return write(image, path);
    QFile file(path);
    const QByteArray bytes = GifEncoder::encode(image);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool writeJpeg(const QString &path, int width, int height, const QColor &colour)
{
    return write(filled(width, height, colour), path);
}

bool writeTiff(const QString &path, int width, int height, const QColor &colour)
{
    return write(filled(width, height, colour), path);
}

} // namespace ImageWriter
