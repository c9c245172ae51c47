#pragma once

// CIE XYZ on the 0..100 scale (Y = 100 for the D65 white point).
struct XyzColour
{
    double X = 0.0;
    double Y = 0.0;
    double Z = 0.0;
};
