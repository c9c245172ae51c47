#include "benchpictures.h"

namespace BenchPictures {

QImage grainyGradient(const QSize &size, int xStep, int yStep, int diagonalStep)
{
    QImage image(size, QImage::Format_RGB32);
    quint32 noise = 12345;
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            noise = noise * 1664525u + 1013904223u;
            const int n = int(noise >> 28);
            line[x] = qRgb((x / xStep + n) & 0xff, (y / yStep + n) & 0xff,
                           ((x + y) / diagonalStep + n) & 0xff);
        }
    }
    return image;
}

} // namespace BenchPictures
