#include "palette/colourcopytext.h"

#include "colour/colourformat.h"

#include <QColor>

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
