#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// Reads a picture file for sampling without trusting it: the size its
// header claims is checked before anything is decoded, so a picture too
// large for memory (or a file that only claims to be, such as a
// decompression bomb) is refused instead of exhausting memory. Used by the
// image loader of the application and by vellora-cli sample.
class CImageFile
{
public:
    enum Status
    {
        Read,       // image holds the picture
        CannotRead, // missing, not a picture, or damaged beyond decoding
        TooLarge    // its decoded size would pass kMaximumDecodedBytes
    };

    // 2 GiB: a 20000 x 20000 picture of 32-bit pixels (1.6 GB) still opens.
    static constexpr qint64 kMaximumDecodedBytes = qint64(2) << 30;

    // Reads path into image (format guessed from the contents). A refused
    // picture leaves image alone; reason, when given, says why in a few
    // words (Qt's own text for a file Qt cannot read).
    static Status read(const QString &path, QImage *image, QString *reason = nullptr);

    // Bytes a picture of this size takes decoded in this format; a format
    // Qt has not said is counted at 32 bits per pixel.
    static qint64 decodedBytes(const QSize &size, QImage::Format format);
};
