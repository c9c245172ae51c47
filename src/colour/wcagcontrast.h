#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// WCAG 2.2 contrast: the relative luminance of an sRGB colour and the ratio
// (L1 + 0.05) / (L2 + 0.05) of the lighter to the darker, with the success
// criteria that test it. A ratio passes a criterion only when it reaches the
// threshold itself, unrounded: 4.499 fails 4.5:1. Shown, a ratio keeps two
// decimals truncated, so that a failing ratio never reads as its threshold.
class WcagContrast
{
public:
    enum Criterion
    {
        MinimumNormal,  // 1.4.3 Contrast (Minimum), level AA, normal text: 4.5:1
        MinimumLarge,   // 1.4.3 Contrast (Minimum), level AA, large text: 3:1
        EnhancedNormal, // 1.4.6 Contrast (Enhanced), level AAA, normal text: 7:1
        EnhancedLarge,  // 1.4.6 Contrast (Enhanced), level AAA, large text: 4.5:1
        NonText,        // 1.4.11 Non-text Contrast, level AA: 3:1
        CriterionCount
    };

    // Components are fractions 0..1 (values outside are clamped first: the
    // criteria speak of displayable colours only).
    static double relativeLuminance(const RgbColour &colour);
    // From 1 (same luminance) to 21 (black and white), whatever the order.
    static double ratio(const RgbColour &first, const RgbColour &second);

    static double threshold(Criterion criterion);
    static bool passes(double ratio, Criterion criterion);
    // "1.4.3 AA normal text" and the like, for tables and windows.
    static QString criterionName(Criterion criterion);
    // A short key for machine-readable output: "aa_normal", "aaa_large", ...
    static QString criterionKey(Criterion criterion);
    // The ratio with two decimals, truncated: 4.478 gives "4.47".
    static QString ratioText(double ratio);
    // The ratio truncated to two decimals as a number (for JSON).
    static double truncatedRatio(double ratio);
};
