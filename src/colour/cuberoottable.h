#pragma once

#include <array>
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
        return fromPoint(t, bits, kPoints[index]);
    }

    // For vector code that reads the table itself and repeats fromPoint's
    // arithmetic: the point of t is (bits of t >> kShift) - kFirstIndex
    // when below kSize, and pointPairs() holds each point's root and
    // inverse one after the other.
    static constexpr int kMantissaBits = 8;
    static constexpr int kShift = 52 - kMantissaBits;
    static constexpr int kLowestExponent = -7;
    static constexpr int kSize = (1 - kLowestExponent) << kMantissaBits;
    static constexpr std::uint64_t kFirstIndex = std::uint64_t(1023 + kLowestExponent)
                                                 << kMantissaBits;
    static const double *pointPairs() { return &kPoints[0].root; }

private:

    struct Point
    {
        double root;    // cube root of the point
        double inverse; // 1 / the point
    };
    // The cube root of m > 0 by Newton's iteration from above, which falls
    // monotonically onto the root: stopped once a step no longer lowers it.
    static constexpr long double cubeRootOf(long double m)
    {
        long double x = m < 1.0L ? 1.0L : m;
        for (;;) {
            const long double next = x - (x * x * x - m) / (3.0L * x * x);
            if (!(next < x))
                return x;
            x = next;
        }
    }
    // Worked out by the compiler: the table is in place before any code
    // runs, whatever static object asks for a cube root first.
    static constexpr std::array<Point, kSize> makePoints()
    {
        std::array<Point, kSize> points{};
        for (int i = 0; i < kSize; ++i) {
            long double point = 1.0L + static_cast<long double>(i & ((1 << kMantissaBits) - 1))
                                           / (1 << kMantissaBits);
            for (int e = kLowestExponent + (i >> kMantissaBits); e < 0; ++e)
                point /= 2.0L;
            points[size_t(i)] = {static_cast<double>(cubeRootOf(point)),
                                 static_cast<double>(1.0L / point)};
        }
        return points;
    }

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

    static const std::array<Point, kSize> kPoints;
};

inline constexpr std::array<CubeRootTable::Point, CubeRootTable::kSize> CubeRootTable::kPoints =
    CubeRootTable::makePoints();
