#include "colour/cuberoottable.h"

// A normal t = m 2^e is taken as (m 2^s) 2^(3q) with s in -3 .. -1, so that
// m 2^s lies in the table and the root is its root times 2^q, both scalings
// exact. Zero, subnormal, negative, infinite and NaN arguments go to the C
// library.
double CubeRootTable::outsideTable(double t)
{
    std::uint64_t bits;
    std::memcpy(&bits, &t, sizeof bits);
    const int biased = static_cast<int>(bits >> 52); // the sign bit makes it >= 2048
    if (biased == 0 || biased >= 0x7ff)
        return std::cbrt(t);
    const int e = biased - 1023;
    const int q = (e >= 0 ? e : e - 2) / 3 + 1; // floor(e / 3) + 1
    const int s = e - 3 * q;
    const std::uint64_t scaledBits = (bits & 0x000fffffffffffffull)
                                     | (static_cast<std::uint64_t>(s + 1023) << 52);
    double scaled;
    std::memcpy(&scaled, &scaledBits, sizeof scaled);
    const std::uint64_t factorBits = static_cast<std::uint64_t>(q + 1023) << 52;
    double factor;
    std::memcpy(&factor, &factorBits, sizeof factor);
    return cubeRoot(scaled) * factor;
}
