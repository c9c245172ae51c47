#include "colour/matchexplanation.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kAnchorDegrees[] = {35.0, 65.0, 100.0, 140.0, 200.0, 280.0, 310.0, 340.0};

QString tr(const char *text)
{
    return QCoreApplication::translate("CMatchExplanation", text);
}

// Angle from `from` to `to` in degrees, turning the given way, in [0, 360).
double turn(double from, double to, bool counterClockwise)
{
    const double d = std::fmod(counterClockwise ? to - from : from - to, 360.0);
    return d < 0.0 ? d + 360.0 : d;
}

// "slightly lighter"; empty when the term is too small to mention.
QString phrase(double term, const QString &word)
{
    const CMatchExplanation::Size size = CMatchExplanation::size(term);
    if (size == CMatchExplanation::Unnoticed)
        return QString();
    return CMatchExplanation::sizeWord(size) + QLatin1Char(' ') + word;
}

// "a", "a and b", "a, b and c".
QString joined(const QStringList &parts)
{
    if (parts.size() < 2)
        return parts.join(QString());
    return tr("%1 and %2").arg(parts.mid(0, parts.size() - 1).join(QStringLiteral(", ")),
                               parts.last());
}

} // namespace

CMatchExplanation::Size CMatchExplanation::size(double term)
{
    const double t = std::fabs(term);
    if (t >= 5.0)
        return Much;
    if (t >= 2.0)
        return Clearly;
    if (t >= 1.0)
        return ALittle;
    if (t >= 0.5)
        return Slightly;
    return Unnoticed;
}

CMatchExplanation::Hue CMatchExplanation::hueTowards(double meanHue, double towards)
{
    const double from = std::fmod(meanHue * 180.0 / kPi, 360.0);
    const bool counterClockwise = towards > 0.0;
    int best = 0;
    double bestTurn = 361.0;
    for (int i = 0; i < 8; ++i) {
        double t = turn(from, kAnchorDegrees[i], counterClockwise);
        if (t == 0.0)
            t = 360.0; // standing on an anchor: the sample moves away from it
        if (t < bestTurn) {
            bestTurn = t;
            best = i;
        }
    }
    return Hue(best);
}

QString CMatchExplanation::sizeWord(Size size)
{
    switch (size) {
    case Slightly:
        return tr("slightly");
    case ALittle:
        return tr("a little");
    case Clearly:
        return tr("clearly");
    case Much:
        return tr("much");
    case Unnoticed:
        break;
    }
    return QString();
}

QString CMatchExplanation::hueWord(Hue hue)
{
    static const char *const words[] = {"redder",      "more orange", "yellower",
                                        "greener",     "more cyan",   "bluer",
                                        "more purple", "more magenta"};
    return tr(words[hue]);
}

QString CMatchExplanation::sentence(const DeltaE2000Terms &terms, const QString &name)
{
    if (std::isnan(terms.deltaE))
        return tr("The difference between the sample and %1 cannot be worked out.").arg(name);
    QStringList parts;
    parts << phrase(terms.lightness, terms.lightness > 0.0 ? tr("lighter") : tr("darker"))
          << phrase(terms.chroma, terms.chroma > 0.0 ? tr("more saturated") : tr("less saturated"))
          << phrase(terms.hue, hueWord(hueTowards(terms.meanHue, terms.hue)));
    parts.removeAll(QString());
    if (parts.isEmpty())
        return tr("The sample and %1 differ by less than half a unit in each of lightness, "
                  "saturation and hue.")
            .arg(name);
    return tr("The sample is %1 than %2.").arg(joined(parts), name);
}

QString CMatchExplanation::explain(const LabColour &sample, const LabColour &named,
                                   const QString &name)
{
    const DeltaE2000Terms terms =
        deltaE2000Terms(float(named.L), float(named.a), float(named.b), float(sample.L),
                        float(sample.a), float(sample.b));
    return sentence(terms, name);
}
