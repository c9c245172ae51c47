#pragma once

// A colour as three fractions 0.0 .. 1.0; an 8-bit component divided by 255.
// Values are never clamped on the way in: tables may hold anything.
struct RgbColour
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};
