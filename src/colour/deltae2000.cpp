#include "colour/deltae2000.h"

#include <cmath>

namespace {

// One formula for both precisions: every literal goes through Real, so the
// float variant works with the single-precision rounding of each constant.
template <typename Real>
struct Constants
{
    static constexpr Real pi = Real(3.14159265358979323846);
    static constexpr Real twoPi = Real(6.28318530717958647692);
    static constexpr Real twentyFiveToSeventh = Real(6103515625.0);
    static constexpr Real deg96 = Real(1.6755160819145563);
    static constexpr Real deg90 = Real(1.5707963267948966);
    static constexpr Real deg60 = Real(1.0471975511965976);
    static constexpr Real deg27 = Real(0.47123889803846897);
    static constexpr Real rotationCentre = Real(172.78759594743863);
    static constexpr Real rotationWidth = Real(246.74011002723395);
};

// Single precision: strictly greater than float pi.
bool hueDifferenceExceedsPi(float d)
{
    return d > Constants<float>::pi;
}

// Double precision: a difference within 1e-14 of pi is taken as pi itself,
// so rounding noise in atan2 cannot flip the mean hue by half a turn.
bool hueDifferenceExceedsPi(double d)
{
    return d >= 3.1415926535898033;
}

template <typename Real>
Real seventhPower(Real x)
{
    return x * x * x * x * x * x * x;
}

// sqrt(C^7 / (C^7 + 25^7)): shared by the a* stretch and the rotation term.
template <typename Real>
Real chromaWeight(Real c)
{
    const Real c7 = seventhPower(c);
    return std::sqrt(c7 / (c7 + Constants<Real>::twentyFiveToSeventh));
}

template <typename Real>
Real hueAngle(Real b, Real aPrime)
{
    const Real h = std::atan2(b, aPrime);
    return h < Real(0) ? h + Constants<Real>::twoPi : h;
}

// cos terms written as sines of shifted angles, H in radians.
template <typename Real>
Real hueWeighting(Real H)
{
    using K = Constants<Real>;
    return Real(1) + Real(0.32) * std::sin(Real(3) * H + K::deg96)
           + Real(0.24) * std::sin(Real(2) * H + K::deg90)
           - Real(0.17) * std::sin(H + K::deg60) - Real(0.2) * std::sin(Real(4) * H + K::deg27);
}

// -R_C sin(2 dTheta): exp(-((H - 275 deg) / 25 deg)^2) written in radians.
template <typename Real>
Real rotationTerm(Real H, Real meanChroma)
{
    using K = Constants<Real>;
    const Real x = Real(36) * H - K::rotationCentre;
    const Real e = std::exp(-(x * x) / K::rotationWidth);
    const Real rc = Real(2) * chromaWeight(meanChroma);
    return -rc * std::sin(K::deg60 * e);
}

template <typename Real>
Real lightnessWeighting(Real meanL)
{
    const Real d = meanL - Real(50);
    return Real(1) + Real(0.015) * d * d / std::sqrt(Real(20) + d * d);
}

template <typename Real>
DeltaE2000Terms evaluate(Real L1, Real a1, Real b1, Real L2, Real a2, Real b2)
{
    const Real C1 = std::sqrt(a1 * a1 + b1 * b1);
    const Real C2 = std::sqrt(a2 * a2 + b2 * b2);
    const Real G = Real(0.5) * (Real(1) - chromaWeight((C1 + C2) / Real(2)));

    const Real a1p = (Real(1) + G) * a1;
    const Real a2p = (Real(1) + G) * a2;
    const Real C1p = std::sqrt(a1p * a1p + b1 * b1);
    const Real C2p = std::sqrt(a2p * a2p + b2 * b2);
    const Real h1p = hueAngle(b1, a1p);
    const Real h2p = hueAngle(b2, a2p);

    const Real dh = h2p - h1p;
    const Real dL = L2 - L1;
    const Real dC = C2p - C1p;

    // Half a turn is always added, never subtracted: the mean hue may exceed
    // 2 pi, which only the (non-periodic) rotation term can tell.
    const Real offset = hueDifferenceExceedsPi(std::fabs(dh)) ? Constants<Real>::pi : Real(0);
    const Real meanH = (h1p + h2p) / Real(2) + offset;
    const Real dH = Real(2) * std::sqrt(C1p * C2p) * std::sin(dh / Real(2) + offset);

    const Real sumCp = C1p + C2p;
    const Real SL = lightnessWeighting((L1 + L2) / Real(2));
    const Real SC = Real(1) + Real(0.0225) * sumCp;
    const Real SH = Real(1) + Real(0.0075) * sumCp * hueWeighting(meanH);
    const Real RT = rotationTerm(meanH, sumCp / Real(2));

    const Real l = dL / SL;
    const Real c = dC / SC;
    const Real h = dH / SH;
    return {h1p, h2p, meanH, RT, std::sqrt(l * l + c * c + h * h + RT * c * h), l, c, h};
}

} // namespace

float deltaE2000(float L1, float a1, float b1, float L2, float a2, float b2)
{
    return float(evaluate<float>(L1, a1, b1, L2, a2, b2).deltaE);
}

double deltaE2000(double L1, double a1, double b1, double L2, double a2, double b2)
{
    return evaluate<double>(L1, a1, b1, L2, a2, b2).deltaE;
}

DeltaE2000Terms deltaE2000Terms(float L1, float a1, float b1, float L2, float a2, float b2)
{
    return evaluate<float>(L1, a1, b1, L2, a2, b2);
}

DeltaE2000Terms deltaE2000Terms(double L1, double a1, double b1, double L2, double a2, double b2)
{
    return evaluate<double>(L1, a1, b1, L2, a2, b2);
}
