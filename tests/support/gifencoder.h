#pragma once

#include <QByteArray>
#include <QImage>

// Qt reads GIF files but cannot write them: this writes an 8-bit indexed
// image as a single-frame GIF89a, so that tests can make their own fixtures.
namespace GifEncoder {

// The file's bytes; empty when the image is not Format_Indexed8 or is empty.
QByteArray encode(const QImage &indexedImage);

} // namespace GifEncoder
