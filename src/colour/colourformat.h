#pragma once

#include <QStringList>

// Texts shown for a colour. formatRgb returns three strings (R, G, B):
// decimals (rounded to four places first, then `decimals` digits) when
// forceDecimal is set, otherwise by rgbFormat (0 integer, 1 decimal, other
// values hex "0x%02x"). Bytes are truncated, not rounded.
QStringList formatRgb(double red, double green, double blue, int decimals, bool forceDecimal,
                      int rgbFormat);
// L, a, b with `decimals` digits, no four-decimal pre-rounding.
QStringList formatLab(double red, double green, double blue, int decimals);
// "#rrggbb" as QColor names it.
QString colourName(double red, double green, double blue);
