#include "colour/colourconversion.h"

#include <cmath>
#include <cstdint>
#include <cstring>

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

// cbrt(m) for m = (1 + k / 256) 2^s: the argument's mantissa is split into
// its top 8 bits (k) and a small rest, and the rest's factor (1 + r)^(1/3)
// comes from a short series, |r| < 1/256.
class CubeRootTable
{
public:
    static constexpr int kIndexBits = 8;
    static constexpr int kSize = 1 << kIndexBits;

    CubeRootTable()
    {
        for (int k = 0; k < kSize; ++k) {
            const long double m = 1.0L + static_cast<long double>(k) / kSize;
            m_inverse[k] = static_cast<double>(1.0L / m);
            for (int s = 0; s < 3; ++s)
                m_root[s][k] = static_cast<double>(std::cbrt(m * (1 << s)));
        }
    }

    double root(int s, int k) const { return m_root[s][k]; }
    double inverse(int k) const { return m_inverse[k]; }

private:
    double m_root[3][kSize];
    double m_inverse[kSize];
};

const CubeRootTable &cubeRootTable()
{
    static const CubeRootTable table;
    return table;
}

// (1 + r)^(1/3) - 1 by its binomial series to r^6; the first term left out
// is below 3e-19 for |r| < 1/256.
double cubeRootSeries(double r)
{
    const double c1 = 1.0 / 3.0;
    const double c2 = -1.0 / 9.0;
    const double c3 = 5.0 / 81.0;
    const double c4 = -10.0 / 243.0;
    const double c5 = 22.0 / 729.0;
    const double c6 = -154.0 / 6561.0;
    return r * (c1 + r * (c2 + r * (c3 + r * (c4 + r * (c5 + r * c6)))));
}

double labFFast(double t)
{
    return t > 0.008856 ? cubeRoot(t) : 7.787 * t + 16.0 / 116.0;
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
    const double r = srgbLinearise(red) * 100.0;
    const double g = srgbLinearise(green) * 100.0;
    const double b = srgbLinearise(blue) * 100.0;
    return {0.4124 * r + 0.3576 * g + 0.1805 * b,
            0.2126 * r + 0.7152 * g + 0.0722 * b,
            0.0193 * r + 0.1192 * g + 0.9505 * b};
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
    std::uint64_t bits;
    std::memcpy(&bits, &t, sizeof bits);
    const int biased = static_cast<int>(bits >> 52); // the sign bit makes it >= 2048
    if (biased == 0 || biased >= 0x7ff)
        return std::cbrt(t);
    const int e = biased - 1023;
    const int q = (e >= 0 ? e : e - 2) / 3; // floor(e / 3)
    const int s = e - 3 * q;
    const int k = static_cast<int>((bits >> (52 - CubeRootTable::kIndexBits))
                                   & (CubeRootTable::kSize - 1));
    const std::uint64_t mantissaBits = (bits & 0x000fffffffffffffull) | 0x3ff0000000000000ull;
    double m;
    std::memcpy(&m, &mantissaBits, sizeof m);
    const CubeRootTable &table = cubeRootTable();
    const double mk = 1.0 + static_cast<double>(k) / CubeRootTable::kSize;
    const double root = table.root(s, k);
    const double scaled = root + root * cubeRootSeries((m - mk) * table.inverse(k));
    const std::uint64_t scaleBits = static_cast<std::uint64_t>(q + 1023) << 52;
    double scale;
    std::memcpy(&scale, &scaleBits, sizeof scale);
    return scaled * scale;
}

LabColour xyzToLabFast(double X, double Y, double Z)
{
    // Multiplying by the reciprocal of the white point moves t by at most a
    // unit in the last place, and its cube root by a third of that.
    const double fx = labFFast(X * (1.0 / kWhiteX));
    const double fy = labFFast(Y * (1.0 / kWhiteY));
    const double fz = labFFast(Z * (1.0 / kWhiteZ));
    return {116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz)};
}
