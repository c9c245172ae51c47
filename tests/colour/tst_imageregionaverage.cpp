#include "colour/colouraverage.h"
#include "colour/colourconversion.h"
#include "colour/imageregionaverage.h"

#include "support/pixellist.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>

Q_DECLARE_METATYPE(QImage::Format)

// Averaging a rectangle of an image directly must give what averaging the
// list of its pixels (read with QImage::pixel, alpha ignored) gives.
class TestImageRegionAverage : public QObject
{
    Q_OBJECT

private:
    static QImage noisyImage(int width, int height, bool withAlpha);
    static QImage flatThenNoisyImage(int width, int height);
    static void compareRgb(const RgbColour &actual, const RgbColour &expected);
    static void compareExactly(const RgbColour &actual, const RgbColour &expected);
    static void verifyBothRulesMatchPixelList(const QImage &image, const QRect &region);

private slots:
    void regionMatchesAverageOfPixelList_data();
    void regionMatchesAverageOfPixelList();
    void largeRegionMatchesAverageOfPixelList_data();
    void largeRegionMatchesAverageOfPixelList();
    void blackAndWhiteRgbRuleIsRootHalf();
    void blackAndWhiteLabRuleIsColourOfMeanLab();
    void emptyOrInvertedRegionReturnsFalseAndLeavesResult_data();
    void emptyOrInvertedRegionReturnsFalseAndLeavesResult();
    void regionPartlyOutsideImageReadsOnlyInside();
    void nullResultPointerIsRefused();
    void everyFormatMatchesPixelReading_data();
    void everyFormatMatchesPixelReading();
    void indexedImageWithIndexBeyondPaletteReadsLikePixel();
    void meanLabOfNoiseWithinBillionthOfPixelList_data();
    void meanLabOfNoiseWithinBillionthOfPixelList();
    void meanLabOfEmptyRegionLeavesResult();
};

QImage TestImageRegionAverage::noisyImage(int width, int height, bool withAlpha)
{
    QRandomGenerator rng(42);
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int alpha = withAlpha ? rng.bounded(256) : 255;
            image.setPixel(x, y,
                           qRgba(rng.bounded(256), rng.bounded(256), rng.bounded(256), alpha));
        }
    }
    return image;
}

void TestImageRegionAverage::compareRgb(const RgbColour &actual, const RgbColour &expected)
{
    QVERIFY2(std::fabs(actual.red - expected.red) < 1e-12, qPrintable(QString::number(actual.red)));
    QVERIFY(std::fabs(actual.green - expected.green) < 1e-12);
    QVERIFY(std::fabs(actual.blue - expected.blue) < 1e-12);
}

void TestImageRegionAverage::compareExactly(const RgbColour &actual, const RgbColour &expected)
{
    QCOMPARE(actual.red, expected.red);
    QCOMPARE(actual.green, expected.green);
    QCOMPARE(actual.blue, expected.blue);
}

// The RGB rule adds squares in another order than the list does, hence the
// tolerance; the Lab rule must give the very same colour.
void TestImageRegionAverage::verifyBothRulesMatchPixelList(const QImage &image, const QRect &region)
{
    const QVector<RgbColour> list = PixelList::read(image, region);
    RgbColour rgb;
    QVERIFY(averageImageRegion(image, region, true, &rgb));
    compareRgb(rgb, averageColours(list, true));
    RgbColour lab;
    QVERIFY(averageImageRegion(image, region, false, &lab));
    compareExactly(lab, averageColours(list, false));
}

void TestImageRegionAverage::regionMatchesAverageOfPixelList_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("single pixel") << QRect(3, 4, 1, 1);
    QTest::newRow("3x3") << QRect(10, 10, 3, 3);
    QTest::newRow("9x9 at origin") << QRect(0, 0, 9, 9);
    QTest::newRow("one row") << QRect(0, 7, 64, 1);
    QTest::newRow("one column") << QRect(17, 0, 1, 48);
    QTest::newRow("whole image") << QRect(0, 0, 64, 48);
    QTest::newRow("last pixel") << QRect(63, 47, 1, 1);
}

void TestImageRegionAverage::regionMatchesAverageOfPixelList()
{
    QFETCH(QRect, region);
    const QImage image = noisyImage(64, 48, false);
    verifyBothRulesMatchPixelList(image, region);
}

void TestImageRegionAverage::largeRegionMatchesAverageOfPixelList_data()
{
    QTest::addColumn<QRect>("region");
    // Large regions are averaged in two halves, one on a second thread; the
    // halves differ by a row here.
    QTest::newRow("whole large image") << QRect(0, 0, 1100, 700);
    QTest::newRow("odd-sized part") << QRect(13, 7, 1031, 661);
    QTest::newRow("narrow and tall") << QRect(500, 0, 1, 700);
}

void TestImageRegionAverage::largeRegionMatchesAverageOfPixelList()
{
    QFETCH(QRect, region);
    static const QImage image = noisyImage(1100, 700, false);
    verifyBothRulesMatchPixelList(image, region);
}

void TestImageRegionAverage::blackAndWhiteRgbRuleIsRootHalf()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    RgbColour c;
    QVERIFY(averageImageRegion(image, image.rect(), true, &c));
    QVERIFY(std::fabs(c.red - 0.7071) < 0.0001);
    QVERIFY(std::fabs(c.green - std::sqrt(0.5)) < 1e-12);
    QVERIFY(std::fabs(c.blue - std::sqrt(0.5)) < 1e-12);
}

void TestImageRegionAverage::blackAndWhiteLabRuleIsColourOfMeanLab()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    const LabColour black = rgbToLab(0.0, 0.0, 0.0);
    const LabColour white = rgbToLab(1.0, 1.0, 1.0);
    const RgbColour expected =
        labToRgb((black.L + white.L) / 2, (black.a + white.a) / 2, (black.b + white.b) / 2);
    RgbColour c;
    QVERIFY(averageImageRegion(image, image.rect(), false, &c));
    compareExactly(c, expected);
    QVERIFY(std::fabs(c.red - 0.7071) > 0.1); // not the RGB rule's answer
}

void TestImageRegionAverage::emptyOrInvertedRegionReturnsFalseAndLeavesResult_data()
{
    QTest::addColumn<QRect>("region");
    QTest::addColumn<bool>("useRgb");
    QTest::newRow("zero width, rgb") << QRect(2, 2, 0, 5) << true;
    QTest::newRow("zero height, lab") << QRect(2, 2, 5, 0) << false;
    QTest::newRow("inverted, rgb") << QRect(QPoint(8, 8), QPoint(2, 2)) << true;
    QTest::newRow("inverted, lab") << QRect(QPoint(8, 8), QPoint(2, 2)) << false;
    QTest::newRow("outside the image") << QRect(20, 20, 3, 3) << true;
    QTest::newRow("negative coordinates") << QRect(-9, -9, 5, 5) << false;
}

void TestImageRegionAverage::emptyOrInvertedRegionReturnsFalseAndLeavesResult()
{
    QFETCH(QRect, region);
    QFETCH(bool, useRgb);
    const QImage image = noisyImage(10, 10, false);
    RgbColour result{0.25, 0.5, 0.75};
    QVERIFY(!averageImageRegion(image, region, useRgb, &result));
    QCOMPARE(result.red, 0.25);
    QCOMPARE(result.green, 0.5);
    QCOMPARE(result.blue, 0.75);
}

void TestImageRegionAverage::regionPartlyOutsideImageReadsOnlyInside()
{
    const QImage image = noisyImage(10, 10, false);
    RgbColour clipped;
    RgbColour inside;
    QVERIFY(averageImageRegion(image, QRect(5, 5, 20, 20), false, &clipped));
    QVERIFY(averageImageRegion(image, QRect(5, 5, 5, 5), false, &inside));
    compareExactly(clipped, inside);
}

void TestImageRegionAverage::nullResultPointerIsRefused()
{
    QVERIFY(!averageImageRegion(noisyImage(4, 4, false), QRect(0, 0, 2, 2), true, nullptr));
}

void TestImageRegionAverage::everyFormatMatchesPixelReading_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("RGB32") << QImage::Format_RGB32;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8;
    QTest::newRow("RGB888") << QImage::Format_RGB888;
    QTest::newRow("Grayscale8") << QImage::Format_Grayscale8;
}

void TestImageRegionAverage::everyFormatMatchesPixelReading()
{
    QFETCH(QImage::Format, format);
    // Semi-transparent pixels: their colour must be read as QImage::pixel
    // reports it, whatever the format keeps in memory.
    const QImage image = noisyImage(40, 30, true).convertToFormat(format);
    QCOMPARE(image.format(), format);
    const QRect region(3, 2, 31, 25);
    verifyBothRulesMatchPixelList(image, region);
}

void TestImageRegionAverage::indexedImageWithIndexBeyondPaletteReadsLikePixel()
{
    QImage image(4, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgb(200, 10, 10), qRgb(10, 200, 10)});
    uchar *row = image.scanLine(0);
    row[0] = 0;
    row[1] = 1;
    row[2] = 7; // no such palette entry
    row[3] = 1;
    const QVector<RgbColour> list = PixelList::read(image, image.rect());
    RgbColour lab;
    QVERIFY(averageImageRegion(image, image.rect(), false, &lab));
    compareExactly(lab, averageColours(list, false));
}

void TestImageRegionAverage::meanLabOfNoiseWithinBillionthOfPixelList_data()
{
    QTest::addColumn<QRect>("region");
    QTest::addColumn<bool>("flatBands");
    QTest::newRow("small") << QRect(3, 5, 40, 30) << false;
    QTest::newRow("whole picture, on two threads") << QRect(0, 0, 1100, 700) << false;
    // Rows that repeat colours and rows that never do, in turn: the rows
    // go through the colour cache or past it as it pays, and back.
    QTest::newRow("flat bands between noise") << QRect(0, 0, 1100, 700) << true;
}

// Bands of 100 rows: flat blocks of four colours, then noise, in turn.
QImage TestImageRegionAverage::flatThenNoisyImage(int width, int height)
{
    QImage image = noisyImage(width, height, false);
    const QRgb flat[4] = {qRgb(240, 240, 240), qRgb(30, 90, 200), qRgb(5, 5, 5),
                          qRgb(250, 200, 60)};
    for (int y = 0; y < height; y += 200) {
        for (int row = y; row < std::min(y + 100, height); ++row) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, row, flat[(x / 50) % 4]);
        }
    }
    return image;
}

void TestImageRegionAverage::meanLabOfNoiseWithinBillionthOfPixelList()
{
    QFETCH(QRect, region);
    QFETCH(bool, flatBands);
    static const QImage noise = noisyImage(1100, 700, false);
    static const QImage bands = flatThenNoisyImage(1100, 700);
    const QImage &image = flatBands ? bands : noise;
    LabColour sum;
    for (const RgbColour &c : PixelList::read(image, region)) {
        const LabColour lab = rgbToLab(c);
        sum.L += lab.L;
        sum.a += lab.a;
        sum.b += lab.b;
    }
    const double n = double(region.width()) * region.height();
    LabColour mean;
    QVERIFY(meanImageRegionLab(image, region, &mean));
    QVERIFY2(std::fabs(mean.L - sum.L / n) < 1e-9, qPrintable(QString::number(mean.L - sum.L / n)));
    QVERIFY(std::fabs(mean.a - sum.a / n) < 1e-9);
    QVERIFY(std::fabs(mean.b - sum.b / n) < 1e-9);
    QVERIFY(mean.L > 1.0); // noise is not black
}

void TestImageRegionAverage::meanLabOfEmptyRegionLeavesResult()
{
    const QImage image = noisyImage(8, 8, false);
    LabColour mean{1.0, 2.0, 3.0};
    QVERIFY(!meanImageRegionLab(image, QRect(20, 20, 4, 4), &mean));
    QVERIFY(!meanImageRegionLab(image, QRect(2, 2, 0, 3), &mean));
    QCOMPARE(mean.L, 1.0);
    QCOMPARE(mean.b, 3.0);
}

QTEST_GUILESS_MAIN(TestImageRegionAverage)
#include "tst_imageregionaverage.moc"
