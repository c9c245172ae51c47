#include "colour/wcagcontrast.h"

#include "colour/colourconversion.h"

#include <algorithm>
#include <cmath>

namespace {

double clamped(double c)
{
    return std::isnan(c) ? 0.0 : std::clamp(c, 0.0, 1.0);
}

} // namespace

double WcagContrast::relativeLuminance(const RgbColour &colour)
{
    // WCAG 2.2 names 0.04045 as the sRGB threshold (older texts had 0.03928;
    // no 8-bit value lies between them), the very curve srgbLinearise uses.
    return 0.2126 * srgbLinearise(clamped(colour.red)) +
           0.7152 * srgbLinearise(clamped(colour.green)) +
           0.0722 * srgbLinearise(clamped(colour.blue));
}

double WcagContrast::ratio(const RgbColour &first, const RgbColour &second)
{
    const double a = relativeLuminance(first);
    const double b = relativeLuminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

double WcagContrast::threshold(Criterion criterion)
{
    switch (criterion) {
    case MinimumNormal:
    case EnhancedLarge:
        return 4.5;
    case EnhancedNormal:
        return 7.0;
    case MinimumLarge:
    case NonText:
    case CriterionCount:
        break;
    }
    return 3.0;
}

bool WcagContrast::passes(double ratio, Criterion criterion)
{
    return ratio >= threshold(criterion);
}

QString WcagContrast::criterionName(Criterion criterion)
{
    switch (criterion) {
    case MinimumNormal:
        return QStringLiteral("1.4.3 AA normal text");
    case MinimumLarge:
        return QStringLiteral("1.4.3 AA large text");
    case EnhancedNormal:
        return QStringLiteral("1.4.6 AAA normal text");
    case EnhancedLarge:
        return QStringLiteral("1.4.6 AAA large text");
    case NonText:
    case CriterionCount:
        break;
    }
    return QStringLiteral("1.4.11 AA non-text");
}

QString WcagContrast::criterionKey(Criterion criterion)
{
    switch (criterion) {
    case MinimumNormal:
        return QStringLiteral("aa_normal");
    case MinimumLarge:
        return QStringLiteral("aa_large");
    case EnhancedNormal:
        return QStringLiteral("aaa_normal");
    case EnhancedLarge:
        return QStringLiteral("aaa_large");
    case NonText:
    case CriterionCount:
        break;
    }
    return QStringLiteral("non_text");
}

double WcagContrast::truncatedRatio(double ratio)
{
    // No nudge upwards: a ratio a hair below a threshold must never read as
    // the threshold itself.
    return std::floor(ratio * 100.0) / 100.0;
}

QString WcagContrast::ratioText(double ratio)
{
    return QString::number(truncatedRatio(ratio), 'f', 2);
}
