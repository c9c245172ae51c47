#pragma once

#include "colour/cuberoottable.h"
#include "colour/labcolour.h"
#include "colour/rgbcolour.h"
#include "colour/xyzcolour.h"

#include <array>

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
// The sRGB matrix: XYZ of linearised components already scaled to 0..100.
inline XyzColour linearRgbToXyz(double r, double g, double b)
{
    return {0.4124 * r + 0.3576 * g + 0.1805 * b, 0.2126 * r + 0.7152 * g + 0.0722 * b,
            0.0193 * r + 0.1192 * g + 0.9505 * b};
}
// srgbLinearise(v / 255.0) * 100.0 for each byte value v, and rgbToXyz of
// an 8-bit colour with its components looked up there: the very values
// rgbToXyz(red / 255.0, green / 255.0, blue / 255.0) gives.
const std::array<double, 256> &linearisedBytes();
XyzColour byteRgbToXyz(int red, int green, int blue);
LabColour xyzToLab(double X, double Y, double Z);
LabColour rgbToLab(double red, double green, double blue);
LabColour rgbToLab(const RgbColour &colour);
XyzColour labToXyz(double L, double a, double b);
RgbColour xyzToRgb(double X, double Y, double Z);
RgbColour labToRgb(double L, double a, double b);
RgbColour labToRgb(const LabColour &lab);

// The cube root of t within one unit in the last place of the true root,
// about three times as fast (CubeRootTable). Zero, subnormal, negative,
// infinite and NaN arguments go to std::cbrt.
double cubeRoot(double t);
// xyzToLab with cubeRoot: within 1e-12 of xyzToLab for every colour of the
// 8-bit cube. For averaging millions of pixels, where the C library's cube
// root is most of the cost; single colours shown to the user use xyzToLab.
// Inline: the averaging loops call it for every pixel.
inline LabColour xyzToLabFast(double X, double Y, double Z)
{
    // Multiplying by the reciprocal of the white point moves t by at most a
    // unit in the last place, and its cube root by a third of that.
    const auto f = [](double t) {
        return t > 0.008856 ? CubeRootTable::cubeRoot(t) : 7.787 * t + 16.0 / 116.0;
    };
    const double fx = f(X * (1.0 / kWhiteX));
    const double fy = f(Y * (1.0 / kWhiteY));
    const double fz = f(Z * (1.0 / kWhiteZ));
    return {116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz)};
}
