#pragma once

#include "colour/labcolour.h"
#include "colour/rgbcolour.h"

#include <QImage>
#include <QRect>
#include <QtGlobal>

#include <array>

// Averages the pixels of `region` (already clipped, see pickgeometry.h) of a
// source image by the same rules as averageColours, reading 8-bit R, G, B
// (alpha ignored) without building a list of per-pixel colours. Returns false
// and leaves `result` alone when the region holds no pixels.
bool averageImageRegion(const QImage &image, const QRect &region, bool useRgb, RgbColour *result);

// The mean L*a*b* the Lab rule converts back: within 1e-9 of the mean of
// rgbToLab over the pixel list. False, leaving `mean` alone, for no pixels.
bool meanImageRegionLab(const QImage &image, const QRect &region, LabColour *mean);

// The pixels of region inside the image; empty when none is left. A region
// given with its corners the wrong way round holds no pixels (intersecting
// alone would turn it the right way round). Every reader of picks uses it.
QRect pixelsInside(const QImage &image, const QRect &region);
// Whether the image's pixels are packed 32-bit QRgb values (RGB32, ARGB32,
// premultiplied ARGB32) that can be read straight from its scan lines.
bool hasPackedRgbPixels(QImage::Format format);

// Pixels counted per 8-bit value of red, green and blue.
using ChannelCounts = std::array<std::array<quint64, 256>, 3>;
// The RGB rule's average of `pixels` pixels from their counts: exactly the
// colour averageImageRegion gives for the same pixels.
RgbColour rootMeanSquareOfCounts(const ChannelCounts &counts, qint64 pixels);
