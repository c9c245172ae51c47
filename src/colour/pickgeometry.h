#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Which image pixels a pick reads, from a point or band in (zoomed) widget
// coordinates. The result is the inclusive rectangle (x0, y0, x0+w-1,
// bottom-1); it may be empty (width or height <= 0), and then nothing is read.
//
// Click: a pickSize square around the pixel under the point, clipped to the
// image (the full square at the far edges).
QRect clickPickRect(const QPoint &widgetPoint, double zoom, int pickSize, const QSize &imageSize);
// Rubber band (normalised widget rectangle): the band stops one pixel short of
// the right and bottom edges, so it never includes the last column or row.
QRect bandPickRect(const QRect &widgetBand, double zoom, const QSize &imageSize);
