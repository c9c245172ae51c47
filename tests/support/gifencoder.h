#pragma once

#include <QByteArray>
#include <QImage>

// A minimal GIF89a writer for 8-bit indexed images, for fixtures on systems
// whose Qt reads GIF but cannot write it. The pixel data is stored without
// real compression (a clear code before the dictionary would grow), which
// every decoder reads.
namespace GifEncoder {

// The GIF bytes of an Indexed8 image; empty for any other format.
QByteArray encode(const QImage &image);

} // namespace GifEncoder
