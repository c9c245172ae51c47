#pragma once

// CIE L*a*b* under D65 / 2 degrees. Always derived from an RgbColour.
struct LabColour
{
    double L = 0.0;
    double a = 0.0;
    double b = 0.0;
};
