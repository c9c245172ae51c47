#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class QFontMetrics;

// The widest texts the sampling page's panel can come to show, measured in a
// font, so that the panel can take their width from the start: a pick or a
// match then never widens it and never moves the picture beside it. Every
// RGB display format counts, so a change of format does not either.
class CWidestTexts
{
public:
    static const int kRgbFormats = 3;

    // One value of the sample panel: R, G or B in any display format, or
    // L*, a* or b*.
    static QString sampleValue(const QFontMetrics &metrics);
    // A match row's RGB line in any display format, and its L*a*b* line.
    static QString rgbLine(const QFontMetrics &metrics);
    static QString labLine(const QFontMetrics &metrics);
    // A match row's verdict and score, by percent or by ΔE.
    static QString matchText(const QFontMetrics &metrics);

    // The widest of `texts`; of a text of several lines its widest line
    // counts. Empty for no texts.
    static QString widest(const QStringList &texts, const QFontMetrics &metrics);
    static int width(const QString &text, const QFontMetrics &metrics);
};
