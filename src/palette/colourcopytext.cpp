#include "palette/colourcopytext.h"

#include "colour/colourformat.h"

#include <QColor>
#include <QCoreApplication>
#include <QStringList>

namespace {

// Samples are always in range; a table entry may not be, and QColor takes
// only 0..1.
RgbColour clamped(const RgbColour &c)
{
    const auto unit = [](double v) { return v > 0.0 ? (v < 1.0 ? v : 1.0) : 0.0; };
    return {unit(c.red), unit(c.green), unit(c.blue)};
}

} // namespace

QString CColourCopyText::hex(const RgbColour &colour)
{
    const RgbColour c = clamped(colour);
    return colourName(c.red, c.green, c.blue);
}

QString CColourCopyText::cssRgb(const RgbColour &colour)
{
    const RgbColour c = clamped(colour);
    const QColor q = QColor::fromRgbF(c.red, c.green, c.blue);
    return QStringLiteral("rgb(%1, %2, %3)").arg(q.red()).arg(q.green()).arg(q.blue());
}

QString CColourCopyText::rgbText(const RgbColour &colour, int rgbFormat)
{
    const QStringList rgb = formatRgb(colour.red, colour.green, colour.blue, 2, false, rgbFormat);
    return QCoreApplication::translate("CColourImageWindow", "R:%1, G:%2, B:%3")
        .arg(rgb.at(0), rgb.at(1), rgb.at(2));
}

QString CColourCopyText::labText(const RgbColour &colour)
{
    const QStringList lab = formatLab(colour.red, colour.green, colour.blue, 2);
    return QCoreApplication::translate("CColourImageWindow", "L:%1, a:%2, b:%3")
        .arg(lab.at(0), lab.at(1), lab.at(2));
}
