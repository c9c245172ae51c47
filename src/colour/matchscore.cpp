#include "colour/matchscore.h"

#include <QCoreApplication>

namespace {

// Translated in the "QObject" context, where the translation files keep them.
const char *const kShortVerdicts[] = {
    QT_TRANSLATE_NOOP("QObject", "Visually identical"),
    QT_TRANSLATE_NOOP("QObject", "Visually similar"),
    QT_TRANSLATE_NOOP("QObject", "Noticably different"),
    QT_TRANSLATE_NOOP("QObject", "Significantly Different"),
};

const char *const kLongVerdicts[] = {
    QT_TRANSLATE_NOOP("QObject", "Visually identical - colours appear identical to the human eye"),
    QT_TRANSLATE_NOOP("QObject",
                      "Visually similar - colour differences only perceptible through close "
                      "observation"),
    QT_TRANSLATE_NOOP("QObject",
                      "Noticably different - colour differences are apparent at a glance"),
    QT_TRANSLATE_NOOP("QObject", "Significantly Different - colours are clearly different"),
};

constexpr int kVerdictCount = 4;

QString translated(const char *text)
{
    return QCoreApplication::translate("QObject", text);
}

// Negative values count as a perfect match, values past 100 as 100. NaN is
// left alone: it is neither, and falls through to the last band.
float clampedDeltaE(float deltaE)
{
    if (deltaE < 0.0f)
        return 0.0f;
    if (deltaE > 100.0f)
        return 100.0f;
    return deltaE;
}

} // namespace

float matchPercent(float deltaE)
{
    if (deltaE < 0.0f)
        return 100.0f;
    if (deltaE > 100.0f)
        return 0.16f;
    if (deltaE < 1.0f)
        return 100.0f - deltaE;
    if (deltaE < 2.0f)
        return 100.0f - ((deltaE - 1.0f) * 4.0f + 1.0f);
    if (deltaE < 3.0f)
        return 100.0f - ((deltaE - 2.0f) * 5.0f + 5.0f);
    // 3.33 rather than 10/3: the percent steps by 0.01 at 6 and at 12.
    if (deltaE < 6.0f)
        return 100.0f - ((deltaE - 3.0f) * 3.33f + 10.0f);
    if (deltaE < 12.0f)
        return 100.0f - ((deltaE - 6.0f) * 3.33f + 20.0f);
    return 100.0f - ((deltaE - 12.0f) * 0.68f + 40.0f);
}

int verdict(float deltaE)
{
    if (deltaE < 1.0f)
        return 0;
    if (deltaE < 2.0f)
        return 1;
    if (deltaE < 10.0f)
        return 2;
    return 3;
}

QString verdictShortText(int verdictIndex)
{
    if (verdictIndex < 0 || verdictIndex >= kVerdictCount)
        return QString();
    return translated(kShortVerdicts[verdictIndex]);
}

QString verdictLongText(int verdictIndex)
{
    if (verdictIndex < 0 || verdictIndex >= kVerdictCount)
        return QString();
    return translated(kLongVerdicts[verdictIndex]);
}

QString matchText(float deltaE, bool asPercent)
{
    const float clamped = clampedDeltaE(deltaE);
    const QString value = asPercent
                              ? translated(QT_TRANSLATE_NOOP("QObject", "%1% match"))
                                    .arg(double(matchPercent(deltaE)), 0, 'f', 0)
                              : translated(QT_TRANSLATE_NOOP("QObject", "\u0394E:%1"))
                                    .arg(double(clamped), 0, 'f', 1);
    return translated(QT_TRANSLATE_NOOP("QObject", "%1\n%2"))
        .arg(verdictShortText(verdict(clamped)), value);
}
