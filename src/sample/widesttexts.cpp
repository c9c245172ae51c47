#include "sample/widesttexts.h"

#include "colour/colourformat.h"
#include "colour/matchscore.h"
#include "colour/rgbcolour.h"
#include "sample/colourtexts.h"

#include <QFontMetrics>
#include <QVector>

#include <algorithm>

namespace {

const int kDecimals = 2;
// Lab values have no simple widest case: a cube of this many levels a side
// holds the corners (white's L* of 100, green's a*, blue's b* past -100).
const int kLabLevels = 8;

RgbColour grey(int byte)
{
    const double level = byte / 255.0;
    return {level, level, level};
}

// The byte whose text is widest in a display format: a grey of it gives the
// widest RGB line of that format, as its three parts are the same.
int widestByte(int rgbFormat, const QFontMetrics &metrics)
{
    int best = 0;
    int bestWidth = -1;
    for (int byte = 0; byte < 256; ++byte) {
        const RgbColour colour = grey(byte);
        const QString text =
            formatRgb(colour.red, colour.green, colour.blue, kDecimals, false, rgbFormat).first();
        const int width = CWidestTexts::width(text, metrics);
        if (width > bestWidth) {
            best = byte;
            bestWidth = width;
        }
    }
    return best;
}

QVector<RgbColour> labCube()
{
    QVector<RgbColour> colours;
    for (int r = 0; r < kLabLevels; ++r)
        for (int g = 0; g < kLabLevels; ++g)
            for (int b = 0; b < kLabLevels; ++b)
                colours.append({r / double(kLabLevels - 1), g / double(kLabLevels - 1),
                                b / double(kLabLevels - 1)});
    return colours;
}

} // namespace

int CWidestTexts::width(const QString &text, const QFontMetrics &metrics)
{
    int widest = 0;
    for (const QString &line : text.split(QLatin1Char('\n')))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest;
}

QString CWidestTexts::widest(const QStringList &texts, const QFontMetrics &metrics)
{
    QString best;
    int bestWidth = -1;
    for (const QString &text : texts) {
        const int textWidth = width(text, metrics);
        if (textWidth > bestWidth) {
            best = text;
            bestWidth = textWidth;
        }
    }
    return best;
}

QString CWidestTexts::sampleValue(const QFontMetrics &metrics)
{
    QStringList texts;
    for (int format = 0; format < kRgbFormats; ++format) {
        const RgbColour colour = grey(widestByte(format, metrics));
        texts << formatRgb(colour.red, colour.green, colour.blue, kDecimals, false, format);
    }
    for (const RgbColour &colour : labCube())
        texts << formatLab(colour.red, colour.green, colour.blue, kDecimals);
    return widest(texts, metrics);
}

QString CWidestTexts::rgbLine(const QFontMetrics &metrics)
{
    QStringList lines;
    for (int format = 0; format < kRgbFormats; ++format)
        lines << CColourTexts::rgbLine(grey(widestByte(format, metrics)), format);
    return widest(lines, metrics);
}

QString CWidestTexts::labLine(const QFontMetrics &metrics)
{
    QStringList lines;
    for (const RgbColour &colour : labCube())
        lines << CColourTexts::labLine(colour);
    return widest(lines, metrics);
}

QString CWidestTexts::matchText(const QFontMetrics &metrics)
{
    // One ΔE of each verdict, and the ends of the scale.
    QStringList texts;
    for (float deltaE : {0.0f, 0.5f, 1.5f, 5.0f, 12.0f, 99.9f, 100.0f}) {
        texts << ::matchText(deltaE, true) << ::matchText(deltaE, false);
    }
    return widest(texts, metrics);
}
