#include "colour/apcacontrast.h"

#include <algorithm>
#include <cmath>

namespace {

// APCA 0.0.98G-4g.
const double kMainTrc = 2.4;
const double kRedCoefficient = 0.2126729;
const double kGreenCoefficient = 0.7151522;
const double kBlueCoefficient = 0.0721750;
const double kNormalBackground = 0.56;
const double kNormalText = 0.57;
const double kReverseText = 0.62;
const double kReverseBackground = 0.65;
const double kBlackThreshold = 0.022;
const double kBlackClamp = 1.414;
const double kScaleBlackOnWhite = 1.14;
const double kScaleWhiteOnBlack = 1.14;
const double kLowBlackOnWhiteOffset = 0.027;
const double kLowWhiteOnBlackOffset = 0.027;
const double kDeltaYMinimum = 0.0005;
const double kLowClip = 0.1;

double component(double c)
{
    return std::pow(std::isnan(c) ? 0.0 : std::clamp(c, 0.0, 1.0), kMainTrc);
}

// Very dark colours are lifted along a soft curve: flare and the eye's
// adaptation keep near-black from reading as black.
double softClamped(double y)
{
    return y > kBlackThreshold ? y : y + std::pow(kBlackThreshold - y, kBlackClamp);
}

} // namespace

double ApcaContrast::screenLuminance(const RgbColour &colour)
{
    return kRedCoefficient * component(colour.red) + kGreenCoefficient * component(colour.green) +
           kBlueCoefficient * component(colour.blue);
}

double ApcaContrast::lightnessContrast(const RgbColour &text, const RgbColour &background)
{
    const double textY = softClamped(screenLuminance(text));
    const double backgroundY = softClamped(screenLuminance(background));
    if (std::abs(backgroundY - textY) < kDeltaYMinimum)
        return 0.0;
    if (backgroundY > textY) {
        const double sapc = (std::pow(backgroundY, kNormalBackground) -
                             std::pow(textY, kNormalText)) *
                            kScaleBlackOnWhite;
        return sapc < kLowClip ? 0.0 : (sapc - kLowBlackOnWhiteOffset) * 100.0;
    }
    const double sapc =
        (std::pow(backgroundY, kReverseBackground) - std::pow(textY, kReverseText)) *
        kScaleWhiteOnBlack;
    return sapc > -kLowClip ? 0.0 : (sapc + kLowWhiteOnBlackOffset) * 100.0;
}

int ApcaContrast::level(double lc)
{
    const double size = std::abs(lc);
    for (const int step : {90, 75, 60, 45, 30, 15}) {
        if (size >= step)
            return step;
    }
    return 0;
}

QString ApcaContrast::guidance(double lc)
{
    switch (level(lc)) {
    case 90:
        return QStringLiteral("Lc 90: preferred for body text and columns of fluent reading");
    case 75:
        return QStringLiteral("Lc 75: the minimum for columns of body text");
    case 60:
        return QStringLiteral("Lc 60: the minimum for other content text you need to read");
    case 45:
        return QStringLiteral("Lc 45: the minimum for large text such as headlines, "
                              "and for fine pictograms");
    case 30:
        return QStringLiteral("Lc 30: the absolute minimum for any text, such as placeholder "
                              "or disabled text, and for solid icons");
    case 15:
        return QStringLiteral("Lc 15: the minimum for non-text that must be seen, such as "
                              "dividers; not for text");
    default:
        break;
    }
    return QStringLiteral("Below Lc 15: invisible for many; not for text or anything needed");
}

QString ApcaContrast::lcText(double lc)
{
    return QStringLiteral("Lc %1").arg(QString::number(lc, 'f', 1));
}
