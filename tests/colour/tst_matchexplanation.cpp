#include "colour/matchexplanation.h"

#include <QtTest>

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;

double radians(double degrees)
{
    return degrees * kPi / 180.0;
}

// Lab whose primed hue and chroma (after the a* stretch of the pair's mean
// chroma) are exactly hueDeg and chroma, when both colours of the pair share
// that chroma: G depends only on the unprimed mean chroma, found by iterating.
LabColour primedLab(double L, double chroma, double hueDeg)
{
    const double ap = chroma * std::cos(radians(hueDeg));
    const double b = chroma * std::sin(radians(hueDeg));
    double a = ap;
    for (int i = 0; i < 60; ++i) {
        const double c7 = std::pow(std::hypot(a, b), 7.0);
        const double g = 0.5 * (1.0 - std::sqrt(c7 / (c7 + std::pow(25.0, 7.0))));
        a = ap / (1.0 + g);
    }
    return {L, a, b};
}

// dH'/S_H of two colours of one primed chroma, written from the textbook
// cosine form, in degrees.
double weightedHueTerm(double chroma, double h1Deg, double h2Deg)
{
    const double H = (h1Deg + h2Deg) / 2.0;
    const double T = 1.0 - 0.17 * std::cos(radians(H - 30.0)) + 0.24 * std::cos(radians(2.0 * H))
                     + 0.32 * std::cos(radians(3.0 * H + 6.0))
                     - 0.20 * std::cos(radians(4.0 * H - 63.0));
    const double dH = 2.0 * chroma * std::sin(radians((h2Deg - h1Deg) / 2.0));
    return dH / (1.0 + 0.0075 * 2.0 * chroma * T);
}

QString sizeText(double term)
{
    const double t = std::fabs(term);
    return t >= 5.0 ? QStringLiteral("much")
                    : t >= 2.0 ? QStringLiteral("clearly")
                               : t >= 1.0 ? QStringLiteral("a little") : QStringLiteral("slightly");
}

} // namespace

class TestMatchExplanation : public QObject
{
    Q_OBJECT

private slots:
    void sizeBandsIncludeTheirLowerBound_data();
    void sizeBandsIncludeTheirLowerBound();
    void lightnessDirectionAndBand_data();
    void lightnessDirectionAndBand();
    void saturationDirectionAndBand_data();
    void saturationDirectionAndBand();
    void hueDirectionIsNamedByTheNextAnchor_data();
    void hueDirectionIsNamedByTheNextAnchor();
    void hueStandingOnAnAnchorNamesTheNextOne();
    void meanHueAboveAFullTurnIsTakenModuloATurn();
    void threeTermsAreJoinedWithCommasAndAnd();
    void twoTermsAreJoinedWithAnd();
    void identicalColoursAreBelowEveryBand();
    void notANumberSaysSoInsteadOfGuessing();
};

void TestMatchExplanation::sizeBandsIncludeTheirLowerBound_data()
{
    QTest::addColumn<double>("term");
    QTest::addColumn<int>("size");
    QTest::newRow("0.4999 unnoticed") << 0.4999 << int(CMatchExplanation::Unnoticed);
    QTest::newRow("0.5 slightly") << 0.5 << int(CMatchExplanation::Slightly);
    QTest::newRow("0.9999 slightly") << 0.9999 << int(CMatchExplanation::Slightly);
    QTest::newRow("1 a little") << 1.0 << int(CMatchExplanation::ALittle);
    QTest::newRow("2 clearly") << 2.0 << int(CMatchExplanation::Clearly);
    QTest::newRow("4.999 clearly") << 4.999 << int(CMatchExplanation::Clearly);
    QTest::newRow("5 much") << 5.0 << int(CMatchExplanation::Much);
    QTest::newRow("-1 a little (sign ignored)") << -1.0 << int(CMatchExplanation::ALittle);
    QTest::newRow("-7 much") << -7.0 << int(CMatchExplanation::Much);
}

void TestMatchExplanation::sizeBandsIncludeTheirLowerBound()
{
    QFETCH(double, term);
    QFETCH(int, size);
    QCOMPARE(int(CMatchExplanation::size(term)), size);
}

// Two greys around L 50, where S_L is exactly 1: the lightness term is dL.
void TestMatchExplanation::lightnessDirectionAndBand_data()
{
    QTest::addColumn<double>("dL");
    QTest::addColumn<QString>("expected");
    const QString t = QStringLiteral("The sample is %1 than Slate.");
    QTest::newRow("0.75 slightly lighter") << 0.75 << t.arg(QStringLiteral("slightly lighter"));
    QTest::newRow("-0.75 slightly darker") << -0.75 << t.arg(QStringLiteral("slightly darker"));
    QTest::newRow("1.5 a little lighter") << 1.5 << t.arg(QStringLiteral("a little lighter"));
    QTest::newRow("-3 clearly darker") << -3.0 << t.arg(QStringLiteral("clearly darker"));
    QTest::newRow("8 much lighter") << 8.0 << t.arg(QStringLiteral("much lighter"));
    QTest::newRow("0.4 not mentioned")
        << 0.4
        << QStringLiteral("The sample and Slate differ by less than half a unit in each of "
                          "lightness, saturation and hue.");
}

void TestMatchExplanation::lightnessDirectionAndBand()
{
    QFETCH(double, dL);
    QFETCH(QString, expected);
    const LabColour named{50.0 - dL / 2.0, 0.0, 0.0};
    const LabColour sample{50.0 + dL / 2.0, 0.0, 0.0};
    QCOMPARE(CMatchExplanation::explain(sample, named, QStringLiteral("Slate")), expected);
}

// One hue on the b* axis (a' = a = 0), chroma 20 against 20 + d:
// dC'/S_C = d / (1 + 0.0225 (40 + d)).
void TestMatchExplanation::saturationDirectionAndBand_data()
{
    QTest::addColumn<double>("term");
    QTest::addColumn<QString>("words");
    QTest::newRow("0.7 slightly more") << 0.7 << QStringLiteral("slightly more saturated");
    QTest::newRow("-0.7 slightly less") << -0.7 << QStringLiteral("slightly less saturated");
    QTest::newRow("1.4 a little more") << 1.4 << QStringLiteral("a little more saturated");
    QTest::newRow("-3.5 clearly less") << -3.5 << QStringLiteral("clearly less saturated");
    QTest::newRow("6 much more") << 6.0 << QStringLiteral("much more saturated");
}

void TestMatchExplanation::saturationDirectionAndBand()
{
    QFETCH(double, term);
    QFETCH(QString, words);
    // Solve term = d / (1.9 + 0.0225 d) for d.
    const double d = term * 1.9 / (1.0 - 0.0225 * term);
    const LabColour named{50.0, 0.0, 20.0};
    const LabColour sample{50.0, 0.0, 20.0 + d};
    QCOMPARE(CMatchExplanation::explain(sample, named, QStringLiteral("Mustard")),
             QStringLiteral("The sample is %1 than Mustard.").arg(words));
}

void TestMatchExplanation::hueDirectionIsNamedByTheNextAnchor_data()
{
    QTest::addColumn<double>("meanHue");
    QTest::addColumn<double>("turn");
    QTest::addColumn<QString>("word");
    QTest::newRow("from 20 forward: redder") << 20.0 << 3.0 << QStringLiteral("redder");
    QTest::newRow("from 50 forward: more orange") << 50.0 << 3.0 << QStringLiteral("more orange");
    QTest::newRow("from 50 back: redder") << 50.0 << -3.0 << QStringLiteral("redder");
    QTest::newRow("from 80 forward: yellower") << 80.0 << 4.0 << QStringLiteral("yellower");
    QTest::newRow("from 80 back: more orange") << 80.0 << -4.0 << QStringLiteral("more orange");
    QTest::newRow("from 120 forward: greener") << 120.0 << 4.0 << QStringLiteral("greener");
    QTest::newRow("from 120 back: yellower") << 120.0 << -4.0 << QStringLiteral("yellower");
    QTest::newRow("from 170 forward: more cyan") << 170.0 << 4.0 << QStringLiteral("more cyan");
    QTest::newRow("from 240 forward: bluer") << 240.0 << 6.0 << QStringLiteral("bluer");
    QTest::newRow("from 240 back: more cyan") << 240.0 << -6.0 << QStringLiteral("more cyan");
    QTest::newRow("from 295 forward: more purple") << 295.0 << 4.0 << QStringLiteral("more purple");
    QTest::newRow("from 325 forward: more magenta")
        << 325.0 << 4.0 << QStringLiteral("more magenta");
    QTest::newRow("from 350 forward wraps: redder") << 350.0 << 4.0 << QStringLiteral("redder");
    QTest::newRow("from 10 back wraps: more magenta")
        << 10.0 << -4.0 << QStringLiteral("more magenta");
}

// Two colours of primed chroma 30, hues meanHue -/+ turn/2: only the hue term
// is left, and its size is the textbook formula's.
void TestMatchExplanation::hueDirectionIsNamedByTheNextAnchor()
{
    QFETCH(double, meanHue);
    QFETCH(double, turn);
    QFETCH(QString, word);
    const double h1 = meanHue - turn / 2.0;
    const double h2 = meanHue + turn / 2.0;
    const LabColour named = primedLab(50.0, 30.0, h1 < 0.0 ? h1 + 360.0 : h1);
    const LabColour sample = primedLab(50.0, 30.0, h2 >= 360.0 ? h2 - 360.0 : h2);
    const double term = weightedHueTerm(30.0, h1, h2);
    QCOMPARE(CMatchExplanation::explain(sample, named, QStringLiteral("Teal")),
             QStringLiteral("The sample is %1 %2 than Teal.").arg(sizeText(term), word));
}

void TestMatchExplanation::hueStandingOnAnAnchorNamesTheNextOne()
{
    QCOMPARE(CMatchExplanation::hueTowards(radians(100.0), 1.0), CMatchExplanation::Green);
    QCOMPARE(CMatchExplanation::hueTowards(radians(100.0), -1.0), CMatchExplanation::Orange);
}

// The mean hue may carry an extra half turn (up to 3 pi): 442.5 deg is 82.5.
void TestMatchExplanation::meanHueAboveAFullTurnIsTakenModuloATurn()
{
    QCOMPARE(CMatchExplanation::hueTowards(radians(442.5), 1.0), CMatchExplanation::Yellow);
    QCOMPARE(CMatchExplanation::hueTowards(radians(442.5), -1.0), CMatchExplanation::Orange);
}

void TestMatchExplanation::threeTermsAreJoinedWithCommasAndAnd()
{
    DeltaE2000Terms terms;
    terms.deltaE = 4.0;
    terms.lightness = 0.6;
    terms.chroma = -2.5;
    terms.hue = 1.2;
    terms.meanHue = radians(80.0);
    QCOMPARE(CMatchExplanation::sentence(terms, QStringLiteral("Dark Khaki")),
             QStringLiteral("The sample is slightly lighter, clearly less saturated and a "
                            "little yellower than Dark Khaki."));
}

void TestMatchExplanation::twoTermsAreJoinedWithAnd()
{
    DeltaE2000Terms terms;
    terms.deltaE = 4.0;
    terms.lightness = -6.0;
    terms.chroma = 0.1;
    terms.hue = -0.5;
    terms.meanHue = radians(250.0);
    QCOMPARE(CMatchExplanation::sentence(terms, QStringLiteral("Navy")),
             QStringLiteral("The sample is much darker and slightly more cyan than Navy."));
}

void TestMatchExplanation::identicalColoursAreBelowEveryBand()
{
    const LabColour lab{61.0, 12.0, -30.0};
    QCOMPARE(CMatchExplanation::explain(lab, lab, QStringLiteral("Iris")),
             QStringLiteral("The sample and Iris differ by less than half a unit in each of "
                            "lightness, saturation and hue."));
}

void TestMatchExplanation::notANumberSaysSoInsteadOfGuessing()
{
    DeltaE2000Terms terms;
    terms.deltaE = std::nan("");
    QCOMPARE(CMatchExplanation::sentence(terms, QStringLiteral("Odd")),
             QStringLiteral("The difference between the sample and Odd cannot be worked out."));
}

QTEST_GUILESS_MAIN(TestMatchExplanation)
#include "tst_matchexplanation.moc"
