#include "imagewriter.h"

#include "gifencoder.h"

#include <QFile>
#include <QImageWriter>

namespace ImageWriter {

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
