#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// The texts a colour is copied as: "#rrggbb", "rgb(r, g, b)" with the same
// bytes, and the RGB and L*a*b* texts the match panel shows.
class CColourCopyText
{
public:
    static QString hex(const RgbColour &colour);
    static QString cssRgb(const RgbColour &colour);
    // "R:%1, G:%2, B:%3" in the user's display format, two decimals.
    static QString rgbText(const RgbColour &colour, int rgbFormat);
    // "L:%1, a:%2, b:%3", two decimals.
    static QString labText(const RgbColour &colour);
};
