#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

// The cube root of t within one unit in the last place of the true root,
// about three times as fast as the C library's, in plain arithmetic any
// compiler can build. The roots of the 2048 points (1 + k / 256) 2^e,
// e = -7 .. 0, are kept; between two points a short series corrects the
// root. That range holds every t of the L*a*b* conversion's cube root
// branch (0.008856 < t < 1.0001 for 8-bit colours), so averaging millions of
// pixels takes the inline path; other arguments are first scaled into it.
class CubeRootTable
{
public:
    static double cubeRoot(double t)
    {
        std::uint64_t bits;
        std::memcpy(&bits, &t, sizeof bits);
        // Negative, zero, subnormal and out-of-range arguments wrap around
        // to large indices.
        const std::uint64_t index = (bits >> kShift) - kFirstIndex;
        if (index >= std::uint64_t(kSize))
            return outsideTable(t);
        return fromPoint(t, bits, points().at(int(index)));
    }

private:
    static constexpr int kMantissaBits = 8;
    static constexpr int kShift = 52 - kMantissaBits;
    static constexpr int kLowestExponent = -7;
    static constexpr int kSize = (1 - kLowestExponent) << kMantissaBits;
    static constexpr std::uint64_t kFirstIndex = std::uint64_t(1023 + kLowestExponent)
                                                 << kMantissaBits;

    struct Point
    {
        double root;    // cube root of the point
        double inverse; // 1 / the point
    };
    class Points
    {
    public:
        Points();
        const Point &at(int index) const { return m_points[index]; }

    private:
        Point m_points[kSize];
    };

    // t from the point below it, t = point (1 + r) with 0 <= r < 1/256:
    // root (1 + r)^(1/3) by the binomial series to r^6 (the first term left
    // out is below 3e-19 of the root).
    static double fromPoint(double t, std::uint64_t bits, const Point &p)
    {
        const std::uint64_t pointBits = bits & ~((std::uint64_t(1) << kShift) - 1);
        double point;
        std::memcpy(&point, &pointBits, sizeof point);
        const double r = (t - point) * p.inverse;
        const double c1 = 1.0 / 3.0;
        const double c2 = -1.0 / 9.0;
        const double c3 = 5.0 / 81.0;
        const double c4 = -10.0 / 243.0;
        const double c5 = 22.0 / 729.0;
        const double c6 = -154.0 / 6561.0;
        const double series = r * (c1 + r * (c2 + r * (c3 + r * (c4 + r * (c5 + r * c6)))));
        return p.root + p.root * series;
    }
    static double outsideTable(double t);

    // Built on first use, so that a cube root taken while other files' static
    // objects are being built still finds the table filled in.
    static const Points &points()
    {
        static const Points table;
        return table;
    }
};
