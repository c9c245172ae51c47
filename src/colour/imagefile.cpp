#include "colour/imagefile.h"

#include "colour/qtversioncompat.h"

#include <QImageReader>

#include <algorithm>

namespace {

const int kDefaultBitsPerPixel = 32;

} // namespace

qint64 CImageFile::decodedBytes(const QSize &size, QImage::Format format)
{
    int bits = kDefaultBitsPerPixel;
    if (format != QImage::Format_Invalid)
        bits = std::max(1, int(QImage::toPixelFormat(format).bitsPerPixel()));
    // Rows are padded to whole 32-bit words.
    const qint64 bytesPerLine = (qint64(size.width()) * bits + 31) / 32 * 4;
    return bytesPerLine * size.height();
}

CImageFile::Status CImageFile::read(const QString &path, QImage *image, QString *reason)
{
    QImageReader reader(path);
    VersionCompat::setAllocationLimit(reader, kMaximumDecodedBytes);
    const QSize size = reader.size();
    if (size.isValid()) {
        // A palette picture is shown with 32-bit pixels, so count at least those.
        const QImage::Format format = reader.imageFormat();
        const qint64 bytes = std::max(decodedBytes(size, format),
                                      decodedBytes(size, QImage::Format_ARGB32));
        if (bytes > kMaximumDecodedBytes) {
            if (reason) {
                *reason = QStringLiteral("a picture of %1 x %2 pixels would take more than 2 GiB")
                              .arg(size.width())
                              .arg(size.height());
            }
            return TooLarge;
        }
    }
    QImage decoded;
    if (!reader.read(&decoded) || decoded.isNull()) {
        if (reason)
            *reason = reader.errorString();
        return CannotRead;
    }
    *image = decoded;
    return Read;
}
