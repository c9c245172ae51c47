#include "pixellist.h"

namespace PixelList {

QVector<RgbColour> read(const QImage &image, const QRect &region)
{
    QVector<RgbColour> list;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        for (int x = region.left(); x <= region.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            list.append({qRed(p) / 255.0, qGreen(p) / 255.0, qBlue(p) / 255.0});
        }
    }
    return list;
}

} // namespace PixelList
