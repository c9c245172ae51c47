#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// The texts a colour is copied as besides the ones the page shows:
// "#rrggbb" and "rgb(r, g, b)" with the same bytes.
class CColourCopyText
{
public:
    static QString hex(const RgbColour &colour);
    static QString cssRgb(const RgbColour &colour);
};
