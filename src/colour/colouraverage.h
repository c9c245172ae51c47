#pragma once

#include "colour/rgbcolour.h"

#include <QVector>

// The average of a group of picked colours.
// useRgb true: per component root mean square, not rounded; empty -> black.
// useRgb false: arithmetic mean of L*a*b*, converted back (rounded and
// clamped by labToRgb); an empty list converts Lab (0,0,0), which is grey
// 0.1415 because of the linear branch.
RgbColour averageColours(const QVector<RgbColour> &colours, bool useRgb);
