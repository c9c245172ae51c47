#pragma once

#include "colour/labcolour.h"
#include "colour/rgbcolour.h"

#include <QImage>
#include <QRect>

// Averages the pixels of `region` (already clipped, see pickgeometry.h) of a
// source image by the same rules as averageColours, reading 8-bit R, G, B
// (alpha ignored) without building a list of per-pixel colours. Returns false
// and leaves `result` alone when the region holds no pixels.
bool averageImageRegion(const QImage &image, const QRect &region, bool useRgb, RgbColour *result);

// The mean L*a*b* the Lab rule converts back: within 1e-9 of the mean of
// rgbToLab over the pixel list. False, leaving `mean` alone, for no pixels.
bool meanImageRegionLab(const QImage &image, const QRect &region, LabColour *mean);
