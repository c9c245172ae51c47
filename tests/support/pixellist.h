#pragma once

#include "colour/rgbcolour.h"

#include <QImage>
#include <QRect>
#include <QVector>

// The colours of a rectangle of an image, row by row, each read with
// QImage::pixel (alpha ignored) and divided by 255: the list a pick hands to
// averageColours.
namespace PixelList {

QVector<RgbColour> read(const QImage &image, const QRect &region);

} // namespace PixelList
