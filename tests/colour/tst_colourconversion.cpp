#include "colour/colourconversion.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

namespace {

// Solves the XYZ -> linear RGB matrix backwards, so a test can ask for the
// XYZ that lands on chosen linear components.
XyzColour xyzForLinearRgb(double r, double g, double b)
{
    const double m[3][3] = {{3.2406, -1.5372, -0.4986}, {-0.9689, 1.8758, 0.0415},
                            {0.0557, -0.2040, 1.0570}};
    const double rhs[3] = {r, g, b};
    auto det = [](const double a[3][3]) {
        return a[0][0] * (a[1][1] * a[2][2] - a[1][2] * a[2][1])
               - a[0][1] * (a[1][0] * a[2][2] - a[1][2] * a[2][0])
               + a[0][2] * (a[1][0] * a[2][1] - a[1][1] * a[2][0]);
    };
    const double d = det(m);
    double out[3];
    for (int col = 0; col < 3; ++col) {
        double mc[3][3];
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                mc[i][j] = j == col ? rhs[i] : m[i][j];
        out[col] = det(mc) / d * 100.0;
    }
    return {out[0], out[1], out[2]};
}

double powerLinearise(double c)
{
    return std::pow((c + 0.055) / 1.055, 2.4);
}

double powerCompand(double v)
{
    return 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
}

} // namespace

class TestColourConversion : public QObject
{
    Q_OBJECT

private slots:
    void whiteGivesD65WhitePointAndFullLightness();
    void blackGivesLabZero();
    void labZeroConvertsToGreyNotBlack();
    void labToXyzLinearBranchDividesFItself();
    void rgbComponentAtThresholdTakesLinearBranch();
    void rgbComponentJustAboveThresholdTakesPowerBranch();
    void compandAtThresholdTakesLinearBranch();
    void xyzToLabThresholdIsStrict();
    void componentJustAboveOneBecomesExactlyOne();
    void negativeComponentBecomesZero();
    void outputIsRoundedToFourDecimals();
    void knownColoursConvertToLab_data();
    void knownColoursConvertToLab();
    void rgbSurvivesRoundTripThroughLab_data();
    void rgbSurvivesRoundTripThroughLab();
    void inputIsNotClamped();
    void fractionToByteTruncates_data();
    void fractionToByteTruncates();
    void roundToFourDecimalsAddsHalfAndTruncates_data();
    void roundToFourDecimalsAddsHalfAndTruncates();
    void cubeRootWithinOneUnitOfTheTrueCubeRoot();
    void cubeRootOfSpecialValuesIsLibraryCubeRoot();
    void quickLabOfEveryEightBitColourWithinTrillionthOfExact();
};

void TestColourConversion::whiteGivesD65WhitePointAndFullLightness()
{
    const XyzColour xyz = rgbToXyz(1.0, 1.0, 1.0);
    QVERIFY(std::fabs(xyz.X - 95.05) < 1e-9);
    QVERIFY(std::fabs(xyz.Y - 100.00) < 1e-9);
    QVERIFY(std::fabs(xyz.Z - 108.90) < 1e-9);
    const LabColour lab = rgbToLab(1.0, 1.0, 1.0);
    QVERIFY(std::fabs(lab.L - 100.0) < 1e-9);
    // The sRGB matrix's white is not exactly D65, hence the small a and b.
    QVERIFY(std::fabs(lab.a - 0.0052605) < 1e-6);
    QVERIFY(std::fabs(lab.b + 0.0104082) < 1e-6);
}

void TestColourConversion::blackGivesLabZero()
{
    const LabColour lab = rgbToLab(RgbColour{0.0, 0.0, 0.0});
    QVERIFY(std::fabs(lab.L) < 1e-12);
    QVERIFY(std::fabs(lab.a) < 1e-12);
    QVERIFY(std::fabs(lab.b) < 1e-12);
}

void TestColourConversion::labZeroConvertsToGreyNotBlack()
{
    const RgbColour rgb = labToRgb(0.0, 0.0, 0.0);
    QCOMPARE(rgb.red, 0.1415);
    QCOMPARE(rgb.green, 0.1415);
    QCOMPARE(rgb.blue, 0.1415);
    const RgbColour viaStruct = labToRgb(LabColour{});
    QCOMPARE(viaStruct.red, 0.1415);
}

void TestColourConversion::labToXyzLinearBranchDividesFItself()
{
    // f = 16/116 has f^3 below 0.008856; a textbook inverse would give Y = 0.
    const XyzColour xyz = labToXyz(0.0, 0.0, 0.0);
    const double f = 16.0 / 116.0;
    QCOMPARE(xyz.Y, 100.0 * f / 7.787);
    QCOMPARE(xyz.X, 95.047 * f / 7.787);
    QCOMPARE(xyz.Z, 108.883 * f / 7.787);
    QVERIFY(xyz.Y > 1.7);
}

void TestColourConversion::rgbComponentAtThresholdTakesLinearBranch()
{
    const double c = 0.04045;
    QVERIFY(srgbLinearise(c) == c / 12.92);
    // The two segments meet only approximately here, so the branch shows.
    QVERIFY(std::fabs(powerLinearise(c) - c / 12.92) > 1e-9);
    const XyzColour xyz = rgbToXyz(c, 0.0, 0.0);
    QVERIFY(xyz.X == 0.4124 * (c / 12.92 * 100.0));
    QVERIFY(xyz.Y == 0.2126 * (c / 12.92 * 100.0));
}

void TestColourConversion::rgbComponentJustAboveThresholdTakesPowerBranch()
{
    const double c = std::nextafter(0.04045, 1.0);
    QVERIFY(srgbLinearise(c) == powerLinearise(c));
    QVERIFY(srgbLinearise(0.5) == powerLinearise(0.5));
}

void TestColourConversion::compandAtThresholdTakesLinearBranch()
{
    const double v = 0.0031308;
    QVERIFY(srgbCompand(v) == 12.92 * v);
    QVERIFY(std::fabs(powerCompand(v) - 12.92 * v) > 1e-8);
    const double above = std::nextafter(v, 1.0);
    QVERIFY(srgbCompand(above) == powerCompand(above));
}

void TestColourConversion::xyzToLabThresholdIsStrict()
{
    // A Y whose t_y is exactly 0.008856 takes the linear segment; the cube
    // root there differs in the fifth digit.
    const double Y = 0.008856 * 100.0;
    QVERIFY(Y / 100.0 == 0.008856);
    const LabColour lab = xyzToLab(0.0, Y, 0.0);
    const double linear = 116.0 * (7.787 * 0.008856 + 16.0 / 116.0) - 16.0;
    QVERIFY(lab.L == linear);
    QVERIFY(std::fabs(linear - (116.0 * std::cbrt(0.008856) - 16.0)) > 1e-5);
    const double above = std::nextafter(Y, 1.0);
    QVERIFY(xyzToLab(0.0, above, 0.0).L == 116.0 * std::cbrt(above / 100.0) - 16.0);
}

void TestColourConversion::componentJustAboveOneBecomesExactlyOne()
{
    const double target = 1.00004;
    const double linear = std::pow((target + 0.055) / 1.055, 2.4);
    const XyzColour xyz = xyzForLinearRgb(linear, 0.5, 0.25);
    const double x = xyz.X / 100.0, y = xyz.Y / 100.0, z = xyz.Z / 100.0;
    QVERIFY(srgbCompand(3.2406 * x - 1.5372 * y - 0.4986 * z) > 1.0);
    QVERIFY(std::fabs(srgbCompand(3.2406 * x - 1.5372 * y - 0.4986 * z) - target) < 1e-9);
    const RgbColour rgb = xyzToRgb(xyz.X, xyz.Y, xyz.Z);
    QVERIFY(rgb.red == 1.0);
    QCOMPARE(rgb.green, roundToFourDecimals(powerCompand(0.5)));
}

void TestColourConversion::negativeComponentBecomesZero()
{
    const XyzColour xyz = xyzForLinearRgb(0.5, -0.2 / 12.92, 0.5);
    const double x = xyz.X / 100.0, y = xyz.Y / 100.0, z = xyz.Z / 100.0;
    QVERIFY(std::fabs(srgbCompand(-0.9689 * x + 1.8758 * y + 0.0415 * z) + 0.2) < 1e-9);
    const RgbColour rgb = xyzToRgb(xyz.X, xyz.Y, xyz.Z);
    QVERIFY(rgb.green == 0.0);
    QVERIFY(rgb.red > 0.7);
}

void TestColourConversion::outputIsRoundedToFourDecimals()
{
    const XyzColour xyz = xyzForLinearRgb(0.2, 0.3, 0.4);
    const RgbColour rgb = xyzToRgb(xyz.X, xyz.Y, xyz.Z);
    QCOMPARE(rgb.red, std::trunc(powerCompand(0.2) * 10000.0 + 0.5) / 10000.0);
    QCOMPARE(rgb.green, std::trunc(powerCompand(0.3) * 10000.0 + 0.5) / 10000.0);
    QCOMPARE(rgb.blue, std::trunc(powerCompand(0.4) * 10000.0 + 0.5) / 10000.0);
    QVERIFY(rgb.red != powerCompand(0.2));
}

void TestColourConversion::knownColoursConvertToLab_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<double>("L");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    // Worked out by hand from the sRGB matrix and the D65 white point.
    QTest::newRow("red") << 1.0 << 0.0 << 0.0 << 53.23288178584245 << 80.10930952982204
                         << 67.22006831026425;
    QTest::newRow("steel blue") << 0.2 << 0.4 << 0.6 << 42.00998577686647 << -0.1447448120508732
                                << -32.85151286536059;
}

void TestColourConversion::knownColoursConvertToLab()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(double, L);
    QFETCH(double, a);
    QFETCH(double, b);
    const LabColour lab = rgbToLab(red, green, blue);
    QVERIFY2(std::fabs(lab.L - L) < 1e-9, qPrintable(QString::number(lab.L, 'g', 17)));
    QVERIFY2(std::fabs(lab.a - a) < 1e-9, qPrintable(QString::number(lab.a, 'g', 17)));
    QVERIFY2(std::fabs(lab.b - b) < 1e-9, qPrintable(QString::number(lab.b, 'g', 17)));
}

void TestColourConversion::rgbSurvivesRoundTripThroughLab_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::newRow("steel blue") << 0.2 << 0.4 << 0.6;
    QTest::newRow("limegreen") << 0.1961 << 0.8039 << 0.1961;
    QTest::newRow("mid grey") << 0.5 << 0.5 << 0.5;
    QTest::newRow("white") << 1.0 << 1.0 << 1.0;
}

void TestColourConversion::rgbSurvivesRoundTripThroughLab()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    const RgbColour back = labToRgb(rgbToLab(red, green, blue));
    QVERIFY(std::fabs(back.red - red) <= 0.0001 + 1e-12);
    QVERIFY(std::fabs(back.green - green) <= 0.0001 + 1e-12);
    QVERIFY(std::fabs(back.blue - blue) <= 0.0001 + 1e-12);
}

void TestColourConversion::inputIsNotClamped()
{
    // Tables may hold values outside 0..1; they convert as they are.
    const XyzColour over = rgbToXyz(1.2, 0.0, 0.0);
    QCOMPARE(over.X, 0.4124 * powerLinearise(1.2) * 100.0);
    const XyzColour under = rgbToXyz(-0.1, 0.0, 0.0);
    QCOMPARE(under.X, 0.4124 * (-0.1 / 12.92) * 100.0);
}

void TestColourConversion::fractionToByteTruncates_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<int>("byte");
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("half") << 0.5 << 127;
    QTest::newRow("0.999") << 0.999 << 254;
    QTest::newRow("one") << 1.0 << 255;
    QTest::newRow("just over one keeps low bits") << 1.004 << 0;
}

void TestColourConversion::fractionToByteTruncates()
{
    QFETCH(double, fraction);
    QFETCH(int, byte);
    QCOMPARE(fractionToByte(fraction), byte);
}

void TestColourConversion::roundToFourDecimalsAddsHalfAndTruncates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("rounded");
    QTest::newRow("0.12345") << 0.12345 << 0.1235;
    QTest::newRow("0.123449") << 0.123449 << 0.1234;
    QTest::newRow("0.99996") << 0.99996 << 1.0;
    QTest::newRow("0.0049996") << 0.0049996 << 0.005;
}

void TestColourConversion::roundToFourDecimalsAddsHalfAndTruncates()
{
    QFETCH(double, value);
    QFETCH(double, rounded);
    QCOMPARE(roundToFourDecimals(value), rounded);
}

namespace {

// Distance in units in the last place between two positive finite doubles.
double ulpsApart(double a, double b)
{
    return std::fabs(a - b) / (std::nextafter(std::max(a, b), std::numeric_limits<double>::infinity())
                               - std::max(a, b));
}

} // namespace

void TestColourConversion::cubeRootWithinOneUnitOfTheTrueCubeRoot()
{
    QRandomGenerator random(3);
    std::vector<double> values{0.008856, 0.0088560000001, 1.0, 2.0, 4.0, 8.0, 0.5, 0.25, 0.125,
                               1.0 - 1e-16, 1.0 + 2e-16, 27.0, 1e-300, 1e300,
                               std::numeric_limits<double>::min(),
                               std::numeric_limits<double>::max()};
    for (int i = 0; i < 200000; ++i) {
        values.push_back(random.generateDouble() * 1.1);                      // the Lab range
        values.push_back(std::ldexp(1.0 + random.generateDouble(), random.bounded(-1000, 1000)));
    }
    double worst = 0.0;
    for (const double t : values) {
        const double quick = cubeRoot(t);
        // The C library's double cbrt is itself up to about 3 units off;
        // the extended-precision one, rounded, is the true root.
        const double exact = static_cast<double>(std::cbrt(static_cast<long double>(t)));
        worst = std::max(worst, ulpsApart(quick, exact));
        QVERIFY2(ulpsApart(quick, exact) <= 1.0,
                 qPrintable(QStringLiteral("cbrt(%1): %2 against %3")
                                .arg(t, 0, 'g', 17)
                                .arg(quick, 0, 'g', 17)
                                .arg(exact, 0, 'g', 17)));
    }
    QVERIFY(worst > 0.0); // not the extended-precision cbrt itself
}

void TestColourConversion::cubeRootOfSpecialValuesIsLibraryCubeRoot()
{
    const double inf = std::numeric_limits<double>::infinity();
    QCOMPARE(cubeRoot(0.0), 0.0);
    QVERIFY(std::signbit(cubeRoot(-0.0)));
    QCOMPARE(cubeRoot(-8.0), -2.0);
    QCOMPARE(cubeRoot(inf), inf);
    QCOMPARE(cubeRoot(-inf), -inf);
    QVERIFY(std::isnan(cubeRoot(std::numeric_limits<double>::quiet_NaN())));
    const double subnormal = std::numeric_limits<double>::denorm_min() * 12345.0;
    QCOMPARE(cubeRoot(subnormal), std::cbrt(subnormal));
    QCOMPARE(cubeRoot(8.0), 2.0);
    QCOMPARE(cubeRoot(0.001), std::cbrt(0.001));
}

// All 16,777,216 colours of the 8-bit cube, shared among the cores: the
// quick conversion that averaging uses against the exact one.
void TestColourConversion::quickLabOfEveryEightBitColourWithinTrillionthOfExact()
{
    double linear[256];
    for (int v = 0; v < 256; ++v)
        linear[v] = srgbLinearise(v / 255.0) * 100.0;
    // The loop below builds XYZ as rgbToXyz does.
    const XyzColour check = rgbToXyz(51 / 255.0, 102 / 255.0, 153 / 255.0);
    QCOMPARE(0.4124 * linear[51] + 0.3576 * linear[102] + 0.1805 * linear[153], check.X);
    QCOMPARE(0.0193 * linear[51] + 0.1192 * linear[102] + 0.9505 * linear[153], check.Z);
    const int threads = int(std::max(1u, std::thread::hardware_concurrency()));
    std::vector<double> worst(size_t(threads), 0.0);
    std::vector<int> failedAt(size_t(threads), -1);
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int red = t; red < 256; red += threads) {
                for (int green = 0; green < 256; ++green) {
                    for (int blue = 0; blue < 256; ++blue) {
                        // The same XYZ arithmetic as rgbToXyz, linearisation looked up.
                        const double r = linear[red], g = linear[green], b = linear[blue];
                        const double X = 0.4124 * r + 0.3576 * g + 0.1805 * b;
                        const double Y = 0.2126 * r + 0.7152 * g + 0.0722 * b;
                        const double Z = 0.0193 * r + 0.1192 * g + 0.9505 * b;
                        const LabColour exact = xyzToLab(X, Y, Z);
                        const LabColour quick = xyzToLabFast(X, Y, Z);
                        const double d = std::max({std::fabs(quick.L - exact.L),
                                                   std::fabs(quick.a - exact.a),
                                                   std::fabs(quick.b - exact.b)});
                        worst[size_t(t)] = std::max(worst[size_t(t)], d);
                        if (!(d <= 1e-12) && failedAt[size_t(t)] < 0)
                            failedAt[size_t(t)] = (red << 16) | (green << 8) | blue;
                    }
                }
            }
        });
    }
    for (std::thread &w : workers)
        w.join();
    for (int t = 0; t < threads; ++t) {
        QVERIFY2(failedAt[size_t(t)] < 0,
                 qPrintable(QStringLiteral("colour %1 differs by %2")
                                .arg(failedAt[size_t(t)], 6, 16, QLatin1Char('0'))
                                .arg(worst[size_t(t)])));
    }
    qInfo("largest difference over the cube: %g",
          *std::max_element(worst.begin(), worst.end()));
}

QTEST_GUILESS_MAIN(TestColourConversion)
#include "tst_colourconversion.moc"
