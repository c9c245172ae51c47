#pragma once

#include "colour/rgbcolour.h"

#include <QImage>
#include <QRect>
#include <QtGlobal>

#include <atomic>

// How far the pixels of a pick lie from their average: the single-precision
// CIEDE2000 (average first, pixel second, as matching orders entry and
// sample) of every pixel of the region, summarised as a mean and a 95th
// percentile. A pick straddling two colours shows a large percentile.
struct PickSpread
{
    qint64 pixels = 0;
    double mean = 0.0;
    // Nearest-rank 95th percentile, read from a histogram of 0.0001 wide
    // bins: the true value truncated to four decimals (values above 200 all
    // count as 200).
    double p95 = 0.0;

    // Above this the pick is called "mixed".
    static constexpr double kMixedAbove = 5.0;
    bool mixed() const { return p95 > kMixedAbove; }
};

// Reads the part of region inside the image, 8-bit R, G, B with alpha
// ignored, as averageImageRegion does. Returns false and leaves result alone
// when that holds no pixels (or result is null), or when `cancel` is set
// before it is done: it is looked at every row or group of colours, so a
// spread running on another thread stops within a millisecond or so. Its
// extra memory stays under 80 MB whatever the picture (the colour counters
// and the bins of the percentile).
bool pickSpread(const QImage &image, const QRect &region, const RgbColour &average,
                PickSpread *result, const std::atomic<bool> *cancel = nullptr);

// The average of region by the chosen rule, exactly as averageImageRegion
// gives it, and its spread as pickSpread gives it: what a pick shows. A
// large region under the RGB rule is read once for both. Returns false,
// leaving both alone, when the region holds no pixels.
bool averageWithSpread(const QImage &image, const QRect &region, bool useRgb,
                       RgbColour *average, PickSpread *spread);
