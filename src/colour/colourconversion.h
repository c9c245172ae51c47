#pragma once

#include "colour/labcolour.h"
#include "colour/rgbcolour.h"
#include "colour/xyzcolour.h"

// sRGB <-> XYZ <-> L*a*b* (D65, 2 degree observer), in double precision.
// Nothing clamps its input; only xyzToRgb clamps and rounds its output.
// The Lab -> XYZ linear branch divides f itself by 7.787 without removing
// 16/116 first: stored and averaged colours depend on that, keep it.

constexpr double kWhiteX = 95.047;
constexpr double kWhiteY = 100.0;
constexpr double kWhiteZ = 108.883;

// trunc(v * 10000 + 0.5) / 10000: the one rounding used for four decimals.
double roundToFourDecimals(double v);
// trunc(v * 255) kept to its low 8 bits: truncation, so 0.999 gives 254.
int fractionToByte(double v);

// The sRGB transfer curve one component at a time, without clamping or
// rounding. Both thresholds are strict: 0.04045 and 0.0031308 themselves
// take the linear segment.
double srgbLinearise(double c);
double srgbCompand(double v);

XyzColour rgbToXyz(double red, double green, double blue);
LabColour xyzToLab(double X, double Y, double Z);
LabColour rgbToLab(double red, double green, double blue);
LabColour rgbToLab(const RgbColour &colour);
XyzColour labToXyz(double L, double a, double b);
RgbColour xyzToRgb(double X, double Y, double Z);
RgbColour labToRgb(double L, double a, double b);
RgbColour labToRgb(const LabColour &lab);

// The cube root of t within one unit in the last place of the true root,
// about twice as fast (a table and a short polynomial, no division), in
// plain arithmetic any compiler can build. Zero, subnormal, negative,
// infinite and NaN arguments go to std::cbrt.
double cubeRoot(double t);
// xyzToLab with cubeRoot: within 1e-12 of xyzToLab for every colour of the
// 8-bit cube. For averaging millions of pixels, where the C library's cube
// root is most of the cost; single colours shown to the user use xyzToLab.
LabColour xyzToLabFast(double X, double Y, double Z);
