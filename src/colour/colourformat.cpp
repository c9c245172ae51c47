#include "colour/colourformat.h"

#include "colour/colourconversion.h"
#include "colour/rgbdisplayformat.h"

#include <QColor>

namespace {

QString decimalText(double v, int decimals)
{
    return QString::number(roundToFourDecimals(v), 'f', decimals);
}

QString integerText(double v)
{
    return QString::number(fractionToByte(v));
}

QString hexText(double v)
{
    return QStringLiteral("0x%1").arg(fractionToByte(v), 2, 16, QLatin1Char('0'));
}

QString componentText(double v, int decimals, bool forceDecimal, int rgbFormat)
{
    if (forceDecimal || rgbFormat == RgbFormatDecimal)
        return decimalText(v, decimals);
    if (rgbFormat == RgbFormatInteger)
        return integerText(v);
    return hexText(v);
}

} // namespace

QStringList formatRgb(double red, double green, double blue, int decimals, bool forceDecimal,
                      int rgbFormat)
{
    return {componentText(red, decimals, forceDecimal, rgbFormat),
            componentText(green, decimals, forceDecimal, rgbFormat),
            componentText(blue, decimals, forceDecimal, rgbFormat)};
}

QStringList formatLab(double red, double green, double blue, int decimals)
{
    const LabColour lab = rgbToLab(red, green, blue);
    return {QString::number(lab.L, 'f', decimals), QString::number(lab.a, 'f', decimals),
            QString::number(lab.b, 'f', decimals)};
}

QString colourName(double red, double green, double blue)
{
    return QColor::fromRgbF(red, green, blue, 1.0).name();
}
