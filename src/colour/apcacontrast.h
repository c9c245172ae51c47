#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// The lightness contrast Lc of APCA (the method of the WCAG 3 working draft),
// with the constants of APCA 0.0.98G-4g. Unlike the WCAG 2 ratio it depends
// on which colour is the text: dark text on a light background gives a
// positive Lc, light text on a dark background a negative one. It is shown
// as information beside the ratio, with the draft's guidance for its level.
class ApcaContrast
{
public:
    // About -108 .. +106; 0 for pairs too close to tell apart.
    static double lightnessContrast(const RgbColour &text, const RgbColour &background);
    // The screen luminance APCA uses (a plain 2.4 power, no linear segment),
    // clamped to 0..1 first.
    static double screenLuminance(const RgbColour &colour);

    // The guidance levels, from the highest: 90, 75, 60, 45, 30, 15.
    static int level(double lc);
    // What the level of |lc| is good for, in one sentence.
    static QString guidance(double lc);
    // Lc with one decimal, its sign kept ("Lc 63.1", "Lc -68.5").
    static QString lcText(double lc);
};
