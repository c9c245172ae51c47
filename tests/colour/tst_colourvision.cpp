#include "colour/colourconversion.h"
#include "colour/colourvision.h"
#include "colour/cvdmatrices.h"

#include <QFile>
#include <QtTest>

Q_DECLARE_METATYPE(RgbColour)

namespace {

// Reads the published table kept with the test data (a copy of the authors'
// matrices): type, severity, nine entries.
bool publishedMatrix(const QString &type, const QString &severity, CvdMatrices::Matrix *m)
{
    QFile file(QStringLiteral(VELLORA_TEST_DATA "/cvd-machado2009.tsv"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).trimmed().split('\t');
        if (cells.size() != 11 || cells.at(0) != type || cells.at(1) != severity)
            continue;
        for (int i = 0; i < 9; ++i)
            (*m)[size_t(i)] = cells.at(i + 2).toDouble();
        return true;
    }
    return false;
}

RgbColour bytes(int r, int g, int b)
{
    return {r / 255.0, g / 255.0, b / 255.0};
}

int toByte(double v)
{
    return int(std::lround(v * 255.0));
}

} // namespace

class TestColourVision : public QObject
{
    Q_OBJECT

private slots:
    void matricesMatchPublishedTable_data();
    void matricesMatchPublishedTable();
    void dichromaciesUseFullSeverity();
    void wholeColours_data();
    void wholeColours();
    void appliedToLinearNotEncodedValues();
    void normalLeavesColoursAlone();
    void severityBetweenTenthsIsInterpolated();
    void severityOutOfRangeIsClamped();
    void fastPathMatchesExactPath_data();
    void fastPathMatchesExactPath();
    void imageKeepsAlphaAndSize();
    void keysRoundTrip();
};

void TestColourVision::matricesMatchPublishedTable_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("severity");
    const QList<QPair<int, QString>> types{{ColourVision::Protanomaly, "protanomaly"},
                                           {ColourVision::Deuteranomaly, "deuteranomaly"},
                                           {ColourVision::Tritanomaly, "tritanomaly"}};
    for (const auto &type : types) {
        for (const QString severity : {"0.1", "0.5", "1.0"}) {
            QTest::addRow("%s %s", qPrintable(type.second), qPrintable(severity))
                << type.first << type.second << severity;
        }
    }
}

void TestColourVision::matricesMatchPublishedTable()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(QString, severity);
    CvdMatrices::Matrix expected{};
    QVERIFY(publishedMatrix(name, severity, &expected));
    const ColourVision vision(ColourVision::Type(type), severity.toDouble());
    for (size_t i = 0; i < 9; ++i)
        QCOMPARE(vision.matrix()[i], expected[i]);
}

void TestColourVision::dichromaciesUseFullSeverity()
{
    CvdMatrices::Matrix expected{};
    QVERIFY(publishedMatrix("deuteranomaly", "1.0", &expected));
    // The severity is ignored for a dichromacy: it is always the full loss.
    const ColourVision vision(ColourVision::Deuteranopia, 0.3);
    QCOMPARE(vision.matrix(), expected);
    QCOMPARE(vision.severity(), 1.0);
}

void TestColourVision::wholeColours_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("severity");
    QTest::addColumn<RgbColour>("in");
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("green");
    QTest::addColumn<int>("blue");
    // Pure red under protanopia: linear (1, 0, 0) picks the first column,
    // (0.152286, 0.114503, -0.003882); clamped, blue is 0. Encoded:
    // 1.055 * 0.152286^(1/2.4) - 0.055 = 0.42661 -> 108.8 -> 109;
    // 1.055 * 0.114503^(1/2.4) - 0.055 = 0.37265 -> 95.0 -> 95.
    QTest::newRow("red, protanopia") << int(ColourVision::Protanopia) << 1.0 << bytes(255, 0, 0)
                                     << 109 << 95 << 0;
    // Pure green under deuteranopia: the second column, (0.860646,
    // 0.672501, 0.042940); encoded 0.93605 -> 238.7 -> 239, 0.83925 ->
    // 214.0 -> 214, 0.22919 -> 58.4 -> 58.
    QTest::newRow("green, deuteranopia") << int(ColourVision::Deuteranopia) << 1.0
                                         << bytes(0, 255, 0) << 239 << 214 << 58;
    // Pure blue under tritanopia: the third column, (-0.178779, 0.147602,
    // 0.303900); red clamps to 0, 0.42038 -> 107.2 -> 107, 0.58728 ->
    // 149.8 -> 150.
    QTest::newRow("blue, tritanopia") << int(ColourVision::Tritanopia) << 1.0
                                      << bytes(0, 0, 255) << 0 << 107 << 150;
    // Rows of every matrix sum to about 1, so greys stay grey: white's
    // protan red row sums to 1.000001 and clamps to 1 -> 255.
    QTest::newRow("white, protanopia") << int(ColourVision::Protanopia) << 1.0
                                       << bytes(255, 255, 255) << 255 << 255 << 255;
    // Achromatopsia of green: the linear luminance 0.7152 on all channels,
    // encoded 1.055 * 0.7152^(1/2.4) - 0.055 = 0.86248 -> 219.9 -> 220.
    QTest::newRow("green, achromatopsia") << int(ColourVision::Achromatopsia) << 1.0
                                          << bytes(0, 255, 0) << 220 << 220 << 220;
    // Red: luminance 0.2126, encoded 0.49844 -> 127.1 -> 127.
    QTest::newRow("red, achromatopsia") << int(ColourVision::Achromatopsia) << 1.0
                                        << bytes(255, 0, 0) << 127 << 127 << 127;
    // Pure red under protanomaly 0.5: first column of that matrix (0.458064,
    // 0.092785, -0.007494); 1.055 * 0.458064^(1/2.4) - 0.055 = 0.70703 ->
    // 180.3 -> 180; 0.092785 -> 0.33678 -> 85.9 -> 86; blue 0.
    QTest::newRow("red, protanomaly 0.5") << int(ColourVision::Protanomaly) << 0.5
                                          << bytes(255, 0, 0) << 180 << 86 << 0;
}

void TestColourVision::wholeColours()
{
    QFETCH(int, type);
    QFETCH(double, severity);
    QFETCH(RgbColour, in);
    QFETCH(int, red);
    QFETCH(int, green);
    QFETCH(int, blue);
    const ColourVision vision(ColourVision::Type(type), severity);
    const RgbColour out = vision.simulate(in);
    QCOMPARE(toByte(out.red), red);
    QCOMPARE(toByte(out.green), green);
    QCOMPARE(toByte(out.blue), blue);
    const QRgb pixel = vision.simulatePixel(
        qRgb(toByte(in.red), toByte(in.green), toByte(in.blue)));
    QCOMPARE(qRed(pixel), red);
    QCOMPARE(qGreen(pixel), green);
    QCOMPARE(qBlue(pixel), blue);
}

void TestColourVision::appliedToLinearNotEncodedValues()
{
    // Applied to encoded values, protanopia would give red 0.152286 * 255
    // = 38.8; in linear light it is 109 (see wholeColours).
    const RgbColour out = ColourVision(ColourVision::Protanopia).simulate(bytes(255, 0, 0));
    QVERIFY(toByte(out.red) > 100);
}

void TestColourVision::normalLeavesColoursAlone()
{
    const ColourVision vision;
    QVERIFY(vision.isNormal());
    const RgbColour out = vision.simulate(bytes(18, 52, 86));
    QCOMPARE(toByte(out.red), 18);
    QCOMPARE(toByte(out.green), 52);
    QCOMPARE(toByte(out.blue), 86);
    QCOMPARE(vision.simulatePixel(qRgba(18, 52, 86, 200)), qRgba(18, 52, 86, 200));
}

void TestColourVision::severityBetweenTenthsIsInterpolated()
{
    CvdMatrices::Matrix low{};
    CvdMatrices::Matrix high{};
    QVERIFY(publishedMatrix("tritanomaly", "0.5", &low));
    QVERIFY(publishedMatrix("tritanomaly", "0.6", &high));
    const ColourVision vision(ColourVision::Tritanomaly, 0.55);
    for (size_t i = 0; i < 9; ++i)
        QVERIFY(qAbs(vision.matrix()[i] - (low[i] + high[i]) / 2) < 1e-9);
}

void TestColourVision::severityOutOfRangeIsClamped()
{
    CvdMatrices::Matrix first{};
    QVERIFY(publishedMatrix("protanomaly", "0.1", &first));
    QCOMPARE(ColourVision(ColourVision::Protanomaly, 0.0).matrix(), first);
    QCOMPARE(ColourVision(ColourVision::Protanomaly, -3.0).severity(), 0.1);
    QCOMPARE(ColourVision(ColourVision::Protanomaly, 7.0).severity(), 1.0);
    QCOMPARE(ColourVision(ColourVision::Protanomaly, std::nan("")).severity(), 1.0);
}

void TestColourVision::fastPathMatchesExactPath_data()
{
    QTest::addColumn<int>("type");
    for (int t = ColourVision::Normal; t < ColourVision::TypeCount; ++t)
        QTest::newRow(qPrintable(ColourVision::key(ColourVision::Type(t)))) << t;
}

void TestColourVision::fastPathMatchesExactPath()
{
    QFETCH(int, type);
    const ColourVision vision(ColourVision::Type(type), 0.7);
    int worst = 0;
    for (int r = 0; r < 256; r += 5) {
        for (int g = 0; g < 256; g += 5) {
            for (int b = 0; b < 256; b += 5) {
                const RgbColour exact = vision.simulate(bytes(r, g, b));
                const QRgb fast = vision.simulatePixel(qRgb(r, g, b));
                worst = std::max({worst, qAbs(qRed(fast) - toByte(exact.red)),
                                  qAbs(qGreen(fast) - toByte(exact.green)),
                                  qAbs(qBlue(fast) - toByte(exact.blue))});
            }
        }
    }
    QVERIFY2(worst <= 1, qPrintable(QString::number(worst)));
}

void TestColourVision::imageKeepsAlphaAndSize()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgba(255, 0, 0, 128));
    image.setPixel(1, 1, qRgba(0, 255, 0, 255));
    const ColourVision vision(ColourVision::Achromatopsia);
    const QImage out = vision.simulatedImage(image);
    QCOMPARE(out.size(), image.size());
    QCOMPARE(out.pixel(0, 0), qRgba(127, 127, 127, 128));
    QCOMPARE(out.pixel(1, 1), qRgba(220, 220, 220, 255));
    // Normal hands the very picture back.
    QCOMPARE(ColourVision().simulatedImage(image), image);
}

void TestColourVision::keysRoundTrip()
{
    for (int t = ColourVision::Normal; t < ColourVision::TypeCount; ++t) {
        ColourVision::Type type = ColourVision::Normal;
        QVERIFY(ColourVision::fromKey(ColourVision::key(ColourVision::Type(t)), &type));
        QCOMPARE(int(type), t);
    }
    ColourVision::Type type = ColourVision::Tritanopia;
    QVERIFY(!ColourVision::fromKey(QStringLiteral("colourblind"), &type));
    QCOMPARE(type, ColourVision::Tritanopia);
}

QTEST_APPLESS_MAIN(TestColourVision)
#include "tst_colourvision.moc"
