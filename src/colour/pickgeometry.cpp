#include "colour/pickgeometry.h"

#include "colour/qtversioncompat.h"

#include <algorithm>
#include <cmath>

namespace {

int truncated(double v)
{
    return static_cast<int>(std::trunc(v));
}

} // namespace

QRect clickPickRect(const QPoint &widgetPoint, double zoom, int pickSize, const QSize &imageSize)
{
    const int half = (pickSize - 1) / 2;
    int x0 = truncated(widgetPoint.x() / zoom - half);
    int y0 = truncated(widgetPoint.y() / zoom - half);

    // The right edge test uses the unclipped start, so a square hanging over
    // both edges of a tiny image still stops at the image's width.
    const bool pastRight = x0 + pickSize > imageSize.width();
    int width = pickSize;
    if (x0 < 0) {
        width = std::max(x0 + pickSize, 0);
        x0 = 0;
    }
    if (pastRight)
        width = imageSize.width() - x0;

    int bottom = y0 + pickSize;
    if (y0 < 0) {
        bottom = std::max(y0 + pickSize, 0);
        y0 = 0;
    }
    bottom = std::min(bottom, imageSize.height());
    return QRect(QPoint(x0, y0), QPoint(x0 + width - 1, bottom - 1));
}

QRect bandPickRect(const QRect &widgetBand, double zoom, const QSize &imageSize)
{
    const QRect r = VersionCompat::normalised(widgetBand);
    int x0 = truncated(r.left() / zoom);
    int y0 = truncated(r.top() / zoom);
    int w = truncated(r.width() / zoom);
    const int h = truncated(r.height() / zoom);

    // The band deliberately stops one pixel short of the right and bottom
    // edges, unlike the click square.
    if (x0 < 0) {
        w = std::max(x0 + w, 0);
        x0 = 0;
    }
    if (x0 + w >= imageSize.width())
        w = imageSize.width() - 1 - x0;
    int bottom = y0 + h;
    if (y0 < 0) {
        y0 = 0;
        bottom = std::max(bottom, 0);
    }
    if (bottom >= imageSize.height())
        bottom = imageSize.height() - 1;
    return QRect(QPoint(x0, y0), QPoint(x0 + w - 1, bottom - 1));
}
