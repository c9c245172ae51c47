#include "palette/palette.h"

#include <algorithm>
#include <cmath>

int CPalette::toByte(double fraction)
{
    if (!(fraction > 0.0)) // also NaN
        return 0;
    if (fraction >= 1.0)
        return 255;
    return int(std::lround(fraction * 255.0));
}

QString CPalette::hex(const RgbColour &colour)
{
    return QStringLiteral("#%1%2%3")
        .arg(toByte(colour.red), 2, 16, QLatin1Char('0'))
        .arg(toByte(colour.green), 2, 16, QLatin1Char('0'))
        .arg(toByte(colour.blue), 2, 16, QLatin1Char('0'));
}

bool CPalette::outOfRange(const RgbColour &colour)
{
    const auto outside = [](double v) { return !(v >= 0.0 && v <= 1.0); };
    return outside(colour.red) || outside(colour.green) || outside(colour.blue);
}

int CPalette::outOfRangeCount() const
{
    return int(std::count_if(colours.cbegin(), colours.cend(),
                             [](const PaletteColour &c) { return outOfRange(c.rgb); }));
}
