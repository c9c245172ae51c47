#pragma once

#include "colour/deltae2000.h"
#include "colour/labcolour.h"

#include <QString>

// Puts a match's colour difference into plain words: which way and how far
// the sample's lightness, saturation and hue lie from a named colour, e.g.
// "The sample is slightly lighter, clearly less saturated and a little
// yellower than Dark Khaki."
//
// The words come from the weighted terms of the single-precision CIEDE2000
// that matching uses (first colour the named one, second the sample), so the
// three terms squared plus the rotation term give back that match's dE^2.
//
// Size words, by the absolute value of each weighted term (dE units):
//   below 0.5   not mentioned (too small to see)
//   0.5 to 1    "slightly"
//   1 to 2      "a little"
//   2 to 5      "clearly"
//   5 and more  "much"
// Each lower bound belongs to its band. The hue direction is named after the
// first of eight hue anchors met when turning from the mean hue h' the way
// the sample's hue lies (at most half a turn): red 35, orange 65, yellow 100,
// green 140, cyan 200, blue 280, purple 310, magenta 340 degrees.
class CMatchExplanation
{
public:
    enum Size { Unnoticed, Slightly, ALittle, Clearly, Much };
    enum Hue { Red, Orange, Yellow, Green, Cyan, Blue, Purple, Magenta };

    static Size size(double term);
    // The anchor met first when turning from meanHue (radians, any number of
    // turns) counter-clockwise when towards is positive, clockwise otherwise.
    static Hue hueTowards(double meanHue, double towards);
    static QString sizeWord(Size size);
    static QString hueWord(Hue hue);

    // The sentence for terms computed with the named colour first.
    static QString sentence(const DeltaE2000Terms &terms, const QString &name);
    // Scores sample against the named colour as matching does, then words it.
    static QString explain(const LabColour &sample, const LabColour &named, const QString &name);
};
