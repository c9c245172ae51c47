#pragma once

#include <QString>

// Turning a Delta E into what the user reads: a verdict (0..3) and a
// percentage. The slope 3.33 (not 10/3) makes the percent jump by 0.01 at
// 6 and 12; that is deliberate.
float matchPercent(float deltaE);
int verdict(float deltaE);
// "Visually identical", "Visually similar", "Noticably different",
// "Significantly Different" (translated in context "QObject").
QString verdictShortText(int verdictIndex);
QString verdictLongText(int verdictIndex);
// "<short verdict>\n<value>" where value is "%1% match" (no decimals) or
// "ΔE:%1" (one decimal, clamped to 0..100).
QString matchText(float deltaE, bool asPercent);
