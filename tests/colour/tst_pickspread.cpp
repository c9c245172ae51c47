#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"

#include "support/pixellist.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

namespace {

struct Expected
{
    double mean = 0.0;
    double p95 = 0.0;
};

// Every pixel's difference from the average, sorted: the nearest-rank 95th
// percentile is the value at rank ceil(0.95 n).
Expected bySorting(const QImage &image, const QRect &region, const RgbColour &average)
{
    const LabColour ref = rgbToLab(average);
    std::vector<double> values;
    double sum = 0.0;
    for (const RgbColour &c : PixelList::read(image, region)) {
        const LabColour lab = rgbToLab(c);
        const float d = deltaE2000(float(ref.L), float(ref.a), float(ref.b), float(lab.L),
                                   float(lab.a), float(lab.b));
        values.push_back(double(d));
        sum += double(d);
    }
    std::sort(values.begin(), values.end());
    const size_t rank = size_t(std::ceil(0.95 * double(values.size())));
    return {sum / double(values.size()), values[rank - 1]};
}

QImage noise(int width, int height, quint32 seed, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator rng(seed);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, 0xff000000u | rng.bounded(0x1000000u));
    return image.convertToFormat(format);
}

QImage halves(int width, int height, QRgb left, QRgb right)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(left);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixel(x, y, right);
    return image;
}

void verifyAgainstSorting(const QImage &image, const QRect &region, const RgbColour &average)
{
    PickSpread spread;
    QVERIFY(pickSpread(image, region, average, &spread));
    const Expected expected = bySorting(image, region, average);
    QCOMPARE(spread.pixels, qint64(region.width()) * region.height());
    QVERIFY2(std::fabs(spread.mean - expected.mean) < 1e-9 * std::max(1.0, expected.mean),
             qPrintable(QStringLiteral("%1 vs %2").arg(spread.mean).arg(expected.mean)));
    // The histogram keeps 0.0001 wide bins: the percentile is truncated.
    QVERIFY2(spread.p95 <= expected.p95 + 1e-9 && spread.p95 > expected.p95 - 1.0001e-4,
             qPrintable(QStringLiteral("%1 vs %2").arg(spread.p95).arg(expected.p95)));
}

} // namespace

Q_DECLARE_METATYPE(QImage::Format)

class TestPickSpread : public QObject
{
    Q_OBJECT

private slots:
    void uniformPickHasNoSpread();
    void meanAndPercentileMatchSortingEveryDifference_data();
    void meanAndPercentileMatchSortingEveryDifference();
    void largeRegionSplitInTwoMatchesSorting();
    void largeRegionsMatchSorting_data();
    void largeRegionsMatchSorting();
    void averageWithSpreadIsAverageThenSpread_data();
    void averageWithSpreadIsAverageThenSpread();
    void averageWithSpreadOfNoPixelsLeavesBoth();
    void percentileIsTheNearestRankOfNinetyFivePercent();
    void twoColourBandIsMixed();
    void mixedOnlyAboveFive();
    void emptyRegionReturnsFalseAndLeavesResult();
    void regionPartlyOutsideCountsOnlyInside();
    void everyFormatReadsLikePixel_data();
    void everyFormatReadsLikePixel();
    void noiseOfAMillionColoursMatchesSorting_data();
    void noiseOfAMillionColoursMatchesSorting();
    void cancelledBeforeItStartsLeavesResult_data();
    void cancelledBeforeItStartsLeavesResult();
    void cancelledWhileRunningReturnsFalse_data();
    void cancelledWhileRunningReturnsFalse();
    void notCancelledGivesTheSameNumbers();
};

void TestPickSpread::uniformPickHasNoSpread()
{
    QImage image(9, 9, QImage::Format_RGB32);
    image.fill(qRgb(200, 120, 40));
    PickSpread spread;
    QVERIFY(pickSpread(image, QRect(0, 0, 9, 9), {200 / 255.0, 120 / 255.0, 40 / 255.0}, &spread));
    QCOMPARE(spread.pixels, qint64(81));
    QCOMPARE(spread.mean, 0.0);
    QCOMPARE(spread.p95, 0.0);
    QVERIFY(!spread.mixed());
}

void TestPickSpread::meanAndPercentileMatchSortingEveryDifference_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("1x1 click") << QRect(5, 5, 1, 1);
    QTest::newRow("9x9 click") << QRect(10, 3, 9, 9);
    QTest::newRow("band 60x40") << QRect(2, 4, 60, 40);
}

void TestPickSpread::meanAndPercentileMatchSortingEveryDifference()
{
    QFETCH(QRect, region);
    const QImage image = noise(64, 48, 5);
    verifyAgainstSorting(image, region, {0.4, 0.5, 0.3});
}

// Over a million pixels two threads share the rows; a 256-colour pattern
// keeps the reference quick to sort.
void TestPickSpread::largeRegionSplitInTwoMatchesSorting()
{
    QImage image(1200, 1000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb((x * 7) & 255, (y * 3) & 255, ((x + y) * 5) & 255));
    verifyAgainstSorting(image, image.rect(), {0.5, 0.5, 0.5});
}

static QImage largePattern()
{
    static const QImage image = [] {
        QImage pattern(1200, 1000, QImage::Format_RGB32);
        for (int y = 0; y < pattern.height(); ++y)
            for (int x = 0; x < pattern.width(); ++x)
                pattern.setPixel(x, y, qRgb((x * 7) & 255, (y * 3) & 255, ((x + y) * 5) & 255));
        return pattern;
    }();
    return image;
}

// From a million pixels up each colour is counted once and its difference
// weighed by its count; just below, the pixels go through a cache on two
// threads. Both must give what sorting every pixel's difference gives.
void TestPickSpread::largeRegionsMatchSorting_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("counted, whole picture") << QRect(0, 0, 1200, 1000);
    QTest::newRow("counted, partly outside") << QRect(100, -50, 1200, 1100);
    QTest::newRow("cached, just under a million") << QRect(3, 1, 1024, 1023);
}

void TestPickSpread::largeRegionsMatchSorting()
{
    QFETCH(QRect, region);
    verifyAgainstSorting(largePattern(), region & largePattern().rect(), {0.3, 0.6, 0.2});
    PickSpread outside;
    PickSpread inside;
    QVERIFY(pickSpread(largePattern(), region, {0.3, 0.6, 0.2}, &outside));
    QVERIFY(pickSpread(largePattern(), region & largePattern().rect(), {0.3, 0.6, 0.2}, &inside));
    QCOMPARE(outside.pixels, inside.pixels);
    QCOMPARE(outside.mean, inside.mean);
    QCOMPARE(outside.p95, inside.p95);
}

// What a pick shows: the rule's average exactly as averageImageRegion gives
// it, and the spread pickSpread gives around it, whichever way it is read.
void TestPickSpread::averageWithSpreadIsAverageThenSpread_data()
{
    QTest::addColumn<bool>("useRgb");
    QTest::addColumn<QRect>("region");
    QTest::addColumn<QImage::Format>("format");
    for (const bool rgb : {true, false}) {
        const char *rule = rgb ? "RGB rule" : "Lab rule";
        QTest::addRow("%s, 9x9 click", rule) << rgb << QRect(40, 30, 9, 9) << QImage::Format_RGB32;
        QTest::addRow("%s, whole picture", rule)
            << rgb << QRect(0, 0, 1200, 1000) << QImage::Format_RGB32;
        QTest::addRow("%s, partly outside", rule)
            << rgb << QRect(-20, 10, 1200, 1000) << QImage::Format_ARGB32;
        QTest::addRow("%s, 24-bit picture", rule)
            << rgb << QRect(0, 0, 1200, 1000) << QImage::Format_RGB888;
    }
}

void TestPickSpread::averageWithSpreadIsAverageThenSpread()
{
    QFETCH(bool, useRgb);
    QFETCH(QRect, region);
    QFETCH(QImage::Format, format);
    const QImage image = largePattern().convertToFormat(format);
    RgbColour average;
    PickSpread spread;
    QVERIFY(averageWithSpread(image, region, useRgb, &average, &spread));
    RgbColour expectedAverage;
    QVERIFY(averageImageRegion(image, region, useRgb, &expectedAverage));
    QCOMPARE(average.red, expectedAverage.red);
    QCOMPARE(average.green, expectedAverage.green);
    QCOMPARE(average.blue, expectedAverage.blue);
    PickSpread expected;
    QVERIFY(pickSpread(image, region, expectedAverage, &expected));
    QCOMPARE(spread.pixels, expected.pixels);
    QVERIFY2(std::fabs(spread.mean - expected.mean) < 1e-12 * std::max(1.0, expected.mean),
             qPrintable(QStringLiteral("%1 vs %2").arg(spread.mean).arg(expected.mean)));
    QCOMPARE(spread.p95, expected.p95);
}

void TestPickSpread::averageWithSpreadOfNoPixelsLeavesBoth()
{
    const QImage image = largePattern();
    RgbColour average{0.25, 0.5, 0.75};
    PickSpread spread;
    spread.pixels = 42;
    for (const bool rgb : {true, false}) {
        QVERIFY(!averageWithSpread(image, QRect(5, 5, 0, 2000), rgb, &average, &spread));
        QVERIFY(!averageWithSpread(image, QRect(1199, 999, -1100, -900), rgb, &average, &spread));
        QVERIFY(!averageWithSpread(image, QRect(1300, 0, 2000, 2000), rgb, &average, &spread));
        QVERIFY(!averageWithSpread(image, image.rect(), rgb, nullptr, &spread));
        QVERIFY(!averageWithSpread(image, image.rect(), rgb, &average, nullptr));
    }
    QCOMPARE(average.red, 0.25);
    QCOMPARE(average.blue, 0.75);
    QCOMPARE(spread.pixels, qint64(42));
}

// 20 pixels: rank ceil(19.0) = 19. One odd pixel stays outside the 95 %,
// two do not.
void TestPickSpread::percentileIsTheNearestRankOfNinetyFivePercent()
{
    QImage image(20, 1, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    const RgbColour grey{128 / 255.0, 128 / 255.0, 128 / 255.0};
    image.setPixel(19, 0, qRgb(255, 0, 0));
    PickSpread one;
    QVERIFY(pickSpread(image, image.rect(), grey, &one));
    QCOMPARE(one.p95, 0.0);
    image.setPixel(18, 0, qRgb(255, 0, 0));
    PickSpread two;
    QVERIFY(pickSpread(image, image.rect(), grey, &two));
    QVERIFY(two.p95 > 20.0);
    verifyAgainstSorting(image, image.rect(), grey);
}

void TestPickSpread::twoColourBandIsMixed()
{
    const QImage image = halves(40, 20, qRgb(30, 60, 200), qRgb(240, 220, 30));
    PickSpread spread;
    QVERIFY(pickSpread(image, image.rect(), {0.5, 0.55, 0.45}, &spread));
    QVERIFY(spread.mixed());
    QVERIFY(spread.p95 > 5.0);
}

void TestPickSpread::mixedOnlyAboveFive()
{
    PickSpread spread;
    spread.p95 = 5.0;
    QVERIFY(!spread.mixed());
    spread.p95 = 5.0001;
    QVERIFY(spread.mixed());
}

void TestPickSpread::emptyRegionReturnsFalseAndLeavesResult()
{
    const QImage image = noise(8, 8, 1);
    PickSpread spread;
    spread.pixels = 42;
    QVERIFY(!pickSpread(image, QRect(3, 3, 0, 5), {0.5, 0.5, 0.5}, &spread));
    QVERIFY(!pickSpread(image, QRect(20, 20, 4, 4), {0.5, 0.5, 0.5}, &spread));
    QVERIFY(!pickSpread(image, QRect(QPoint(6, 6), QPoint(1, 1)), {0.5, 0.5, 0.5}, &spread));
    QVERIFY(!pickSpread(image, QRect(0, 0, 4, 4), {0.5, 0.5, 0.5}, nullptr));
    QCOMPARE(spread.pixels, qint64(42));
}

void TestPickSpread::regionPartlyOutsideCountsOnlyInside()
{
    const QImage image = noise(10, 10, 3);
    PickSpread spread;
    QVERIFY(pickSpread(image, QRect(6, 6, 9, 9), {0.2, 0.3, 0.4}, &spread));
    QCOMPARE(spread.pixels, qint64(16));
    verifyAgainstSorting(image, QRect(6, 6, 4, 4), {0.2, 0.3, 0.4});
}

void TestPickSpread::everyFormatReadsLikePixel_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
    QTest::newRow("RGB888") << QImage::Format_RGB888;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888;
    QTest::newRow("Grayscale8") << QImage::Format_Grayscale8;
}

void TestPickSpread::everyFormatReadsLikePixel()
{
    QFETCH(QImage::Format, format);
    const QImage image = noise(30, 20, 9, format);
    verifyAgainstSorting(image, QRect(3, 2, 20, 15), {0.6, 0.4, 0.5});
}

// Nearly every pixel a colour of its own: far more distinct differences than
// a tally keeps as a list, so most of them go into the shared bins, through
// the counted path (a million pixels and up) and the cached one (below).
void TestPickSpread::noiseOfAMillionColoursMatchesSorting_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("counted") << QRect(0, 0, 1100, 1000);
    QTest::newRow("cached") << QRect(0, 0, 1000, 1000);
}

void TestPickSpread::noiseOfAMillionColoursMatchesSorting()
{
    QFETCH(QRect, region);
    static const QImage image = noise(1100, 1000, 17);
    verifyAgainstSorting(image, region, {0.45, 0.5, 0.55});
}

void TestPickSpread::cancelledBeforeItStartsLeavesResult_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("click") << QRect(2, 2, 9, 9);
    QTest::newRow("cached") << QRect(0, 0, 1000, 1000);
    QTest::newRow("counted") << QRect(0, 0, 1100, 1000);
}

void TestPickSpread::cancelledBeforeItStartsLeavesResult()
{
    QFETCH(QRect, region);
    static const QImage image = noise(1100, 1000, 5);
    const std::atomic<bool> cancel{true};
    PickSpread spread;
    spread.pixels = 7;
    spread.mean = 3.5;
    QVERIFY(!pickSpread(image, region, {0.5, 0.5, 0.5}, &spread, &cancel));
    QCOMPARE(spread.pixels, qint64(7));
    QCOMPARE(spread.mean, 3.5);
}

// The flag is set by another thread while the spread runs: it stops and
// says so, whichever of its loops it is in.
void TestPickSpread::cancelledWhileRunningReturnsFalse_data()
{
    cancelledBeforeItStartsLeavesResult_data();
}

void TestPickSpread::cancelledWhileRunningReturnsFalse()
{
    QFETCH(QRect, region);
    static const QImage image = noise(1100, 1000, 6);
    std::atomic<bool> cancel{false};
    std::atomic<bool> started{false};
    bool measured = true;
    PickSpread spread;
    std::thread worker([&]() {
        started = true;
        measured = pickSpread(image, region, {0.5, 0.5, 0.5}, &spread, &cancel);
    });
    while (!started)
        std::this_thread::yield();
    cancel = true;
    worker.join();
    // A 9x9 click may well be done before the flag is seen, and then it is
    // whole; a million pixels never are.
    if (region.width() > 9)
        QVERIFY(!measured);
    else if (measured)
        QCOMPARE(spread.pixels, qint64(81));
}

void TestPickSpread::notCancelledGivesTheSameNumbers()
{
    const std::atomic<bool> cancel{false};
    PickSpread with;
    PickSpread without;
    QVERIFY(pickSpread(largePattern(), largePattern().rect(), {0.3, 0.6, 0.2}, &with, &cancel));
    QVERIFY(pickSpread(largePattern(), largePattern().rect(), {0.3, 0.6, 0.2}, &without));
    QCOMPARE(with.pixels, without.pixels);
    QCOMPARE(with.mean, without.mean);
    QCOMPARE(with.p95, without.p95);
}

QTEST_GUILESS_MAIN(TestPickSpread)
#include "tst_pickspread.moc"
