#include "colour/colourconversion.h"

#include <cmath>

namespace {

double labF(double t)
{
    return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0;
}

// Deliberately not the inverse of labF in its linear branch: f / 7.787.
double labFInverse(double f)
{
    const double cube = f * f * f;
    return cube > 0.008856 ? cube : f / 7.787;
}

double compandClampAndRound(double v)
{
    v = srgbCompand(v);
    if (v < 0.0)
        return 0.0;
    if (v > 1.0)
        return 1.0;
    return roundToFourDecimals(v);
}

} // namespace

double srgbLinearise(double c)
{
    return c > 0.04045 ? std::pow((c + 0.055) / 1.055, 2.4) : c / 12.92;
}

double srgbCompand(double v)
{
    return v > 0.0031308 ? 1.055 * std::pow(v, 1.0 / 2.4) - 0.055 : 12.92 * v;
}

double roundToFourDecimals(double v)
{
    return std::trunc(v * 10000.0 + 0.5) / 10000.0;
}

int fractionToByte(double v)
{
    return static_cast<int>(static_cast<long long>(std::trunc(v * 255.0)) & 0xff);
}

XyzColour rgbToXyz(double red, double green, double blue)
{
    return linearRgbToXyz(srgbLinearise(red) * 100.0, srgbLinearise(green) * 100.0,
                          srgbLinearise(blue) * 100.0);
}

const std::array<double, 256> &linearisedBytes()
{
    static const std::array<double, 256> table = [] {
        std::array<double, 256> t{};
        for (int v = 0; v < 256; ++v)
            t[size_t(v)] = srgbLinearise(v / 255.0) * 100.0;
        return t;
    }();
    return table;
}

XyzColour byteRgbToXyz(int red, int green, int blue)
{
    const std::array<double, 256> &linear = linearisedBytes();
    return linearRgbToXyz(linear[size_t(red & 0xff)], linear[size_t(green & 0xff)],
                          linear[size_t(blue & 0xff)]);
}

LabColour xyzToLab(double X, double Y, double Z)
{
    const double fx = labF(X / kWhiteX);
    const double fy = labF(Y / kWhiteY);
    const double fz = labF(Z / kWhiteZ);
    return {116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz)};
}

LabColour rgbToLab(double red, double green, double blue)
{
    const XyzColour xyz = rgbToXyz(red, green, blue);
    return xyzToLab(xyz.X, xyz.Y, xyz.Z);
}

LabColour rgbToLab(const RgbColour &colour)
{
    return rgbToLab(colour.red, colour.green, colour.blue);
}

XyzColour labToXyz(double L, double a, double b)
{
    const double fy = (L + 16.0) / 116.0;
    const double fx = a / 500.0 + fy;
    const double fz = fy - b / 200.0;
    return {kWhiteX * labFInverse(fx), kWhiteY * labFInverse(fy), kWhiteZ * labFInverse(fz)};
}

RgbColour xyzToRgb(double X, double Y, double Z)
{
    const double x = X / 100.0;
    const double y = Y / 100.0;
    const double z = Z / 100.0;
    return {compandClampAndRound(3.2406 * x - 1.5372 * y - 0.4986 * z),
            compandClampAndRound(-0.9689 * x + 1.8758 * y + 0.0415 * z),
            compandClampAndRound(0.0557 * x - 0.2040 * y + 1.0570 * z)};
}

RgbColour labToRgb(double L, double a, double b)
{
    const XyzColour xyz = labToXyz(L, a, b);
    return xyzToRgb(xyz.X, xyz.Y, xyz.Z);
}

RgbColour labToRgb(const LabColour &lab)
{
    return labToRgb(lab.L, lab.a, lab.b);
}

double cubeRoot(double t)
{
    return CubeRootTable::cubeRoot(t);
}
