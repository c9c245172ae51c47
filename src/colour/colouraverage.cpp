#include "colour/colouraverage.h"

#include "colour/colourconversion.h"

#include <cmath>

namespace {

// Root mean square per component: brighter pixels weigh more than in a plain
// mean, which matches how the eye adds light better than averaging bytes.
RgbColour rootMeanSquare(const QVector<RgbColour> &colours)
{
    if (colours.isEmpty())
        return {};
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    for (const RgbColour &c : colours) {
        red += c.red * c.red;
        green += c.green * c.green;
        blue += c.blue * c.blue;
    }
    const double n = colours.size();
    return {std::sqrt(red / n), std::sqrt(green / n), std::sqrt(blue / n)};
}

// Mean of L*a*b*. An empty list keeps Lab (0, 0, 0) and still converts it
// back, so an empty selection reads as the same grey it always has.
RgbColour labMean(const QVector<RgbColour> &colours)
{
    LabColour sum;
    for (const RgbColour &c : colours) {
        const LabColour lab = rgbToLab(c);
        sum.L += lab.L;
        sum.a += lab.a;
        sum.b += lab.b;
    }
    if (!colours.isEmpty()) {
        const double n = colours.size();
        sum.L /= n;
        sum.a /= n;
        sum.b /= n;
    }
    return labToRgb(sum);
}

} // namespace

RgbColour averageColours(const QVector<RgbColour> &colours, bool useRgb)
{
    return useRgb ? rootMeanSquare(colours) : labMean(colours);
}
