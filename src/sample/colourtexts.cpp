#include "sample/colourtexts.h"

#include "colour/colourformat.h"

#include <QStringList>

namespace {
const int kDecimals = 2;
} // namespace

QString CColourTexts::rgbLine(const RgbColour &colour, int rgbFormat)
{
    const QStringList rgb =
        formatRgb(colour.red, colour.green, colour.blue, kDecimals, false, rgbFormat);
    return tr("R:%1, G:%2, B:%3").arg(rgb.at(0), rgb.at(1), rgb.at(2));
}

QString CColourTexts::labLine(const RgbColour &colour)
{
    const QStringList lab = formatLab(colour.red, colour.green, colour.blue, kDecimals);
    return tr("L:%1, a:%2, b:%3").arg(lab.at(0), lab.at(1), lab.at(2));
}
