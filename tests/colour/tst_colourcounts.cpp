#include "colour/colourcounts.h"

#include <QRandomGenerator>
#include <QtTest>

#include <map>

Q_DECLARE_METATYPE(QImage::Format)

namespace {

// Few colours, many pixels each, and alpha that must not tell them apart.
QImage speckled(int width, int height, QImage::Format format)
{
    QImage image(width, height, QImage::Format_ARGB32);
    QRandomGenerator rng(17);
    const QRgb colours[5] = {qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(12, 200, 99),
                             qRgb(12, 200, 100), qRgb(13, 201, 99)};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb c = colours[rng.bounded(5)];
            image.setPixel(x, y, (c & 0xffffffu) | (rng.bounded(256u) << 24));
        }
    }
    return image.convertToFormat(format);
}

} // namespace

class TestColourCounts : public QObject
{
    Q_OBJECT

private slots:
    void everyColourCountedAlphaIgnored_data();
    void everyColourCountedAlphaIgnored();
    void channelCountsAreThePixelsPerValue();
    void onlyTheRegionInsideTheImageIsCounted();
    void otherFormatsAndEmptyRegionsAreRefused_data();
    void otherFormatsAndEmptyRegionsAreRefused();
    void countersKeptForTheNextCountStartFromZero();
};

void TestColourCounts::everyColourCountedAlphaIgnored_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("RGB32") << QImage::Format_RGB32;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
}

void TestColourCounts::everyColourCountedAlphaIgnored()
{
    QFETCH(QImage::Format, format);
    const QImage image = speckled(300, 200, format);
    std::map<uint32_t, uint32_t> expected;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++expected[image.pixel(x, y) & 0xffffffu];
    ColourCounts counts;
    QVERIFY(counts.count(image, image.rect()));
    QCOMPARE(counts.pixels(), qint64(300 * 200));
    uint32_t found = 0;
    std::vector<uint32_t> pairs;
    for (const auto &[colour, n] : expected) {
        QCOMPARE(counts.at(colour), n);
        found += n;
        if (pairs.empty() || pairs.back() != colour >> 8)
            pairs.push_back(colour >> 8);
    }
    QCOMPARE(found, uint32_t(300 * 200));
    QCOMPARE(counts.usedRedGreen(), pairs);
    QCOMPARE(counts.at(qRgb(13, 201, 100) & 0xffffffu), 0u);
}

void TestColourCounts::channelCountsAreThePixelsPerValue()
{
    const QImage image = speckled(120, 90, QImage::Format_RGB32);
    ChannelCounts expected{};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            ++expected[0][size_t(qRed(p))];
            ++expected[1][size_t(qGreen(p))];
            ++expected[2][size_t(qBlue(p))];
        }
    }
    ColourCounts counts;
    QVERIFY(counts.count(image, image.rect()));
    QVERIFY(counts.channelCounts() == expected);
    QCOMPARE(counts.channelCounts()[1][200], expected[1][200]);
    QVERIFY(expected[1][200] > 0);
}

void TestColourCounts::onlyTheRegionInsideTheImageIsCounted()
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(qRgb(1, 2, 3));
    for (int y = 6; y < 10; ++y)
        for (int x = 6; x < 10; ++x)
            image.setPixel(x, y, qRgb(9, 8, 7));
    ColourCounts counts;
    QVERIFY(counts.count(image, QRect(5, 5, 20, 20)));
    QCOMPARE(counts.pixels(), qint64(25));
    QCOMPARE(counts.at(0x090807u), 16u);
    QCOMPARE(counts.at(0x010203u), 9u);
}

void TestColourCounts::otherFormatsAndEmptyRegionsAreRefused_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QRect>("region");
    QTest::newRow("RGB888") << QImage::Format_RGB888 << QRect(0, 0, 8, 8);
    QTest::newRow("Indexed8") << QImage::Format_Indexed8 << QRect(0, 0, 8, 8);
    QTest::newRow("empty region") << QImage::Format_RGB32 << QRect(2, 2, 0, 3);
    QTest::newRow("region outside") << QImage::Format_RGB32 << QRect(20, 20, 3, 3);
    QTest::newRow("wrong way round") << QImage::Format_RGB32 << QRect(QPoint(6, 6), QPoint(1, 1));
}

void TestColourCounts::otherFormatsAndEmptyRegionsAreRefused()
{
    QFETCH(QImage::Format, format);
    QFETCH(QRect, region);
    ColourCounts counts;
    QVERIFY(!counts.count(speckled(8, 8, format), region));
    QCOMPARE(counts.pixels(), qint64(0));
    QVERIFY(counts.usedRedGreen().empty());
}

// The counters of a finished count are kept for the next one: whether they
// are handed to another object or counted again by the same one, nothing of
// the earlier picture may be left in them.
void TestColourCounts::countersKeptForTheNextCountStartFromZero()
{
    QImage first(50, 40, QImage::Format_RGB32);
    first.fill(qRgb(10, 20, 30));
    first.setPixel(3, 3, qRgb(200, 100, 50));
    QImage second(30, 30, QImage::Format_RGB32);
    second.fill(qRgb(10, 20, 31));
    {
        ColourCounts counts;
        QVERIFY(counts.count(first, first.rect()));
        QCOMPARE(counts.at(0x0a141eu), 1999u);
    }
    ColourCounts counts;
    QVERIFY(counts.count(second, second.rect()));
    QCOMPARE(counts.at(0x0a141eu), 0u);
    QCOMPARE(counts.at(0xc86432u), 0u);
    QCOMPARE(counts.at(0x0a141fu), 900u);
    QCOMPARE(counts.usedRedGreen(), std::vector<uint32_t>{0x0a14u});

    QVERIFY(counts.count(first, QRect(0, 0, 10, 10)));
    QCOMPARE(counts.at(0x0a141fu), 0u);
    QCOMPARE(counts.at(0x0a141eu), 99u);
    QCOMPARE(counts.at(0xc86432u), 1u);
    QVERIFY(!counts.count(first.convertToFormat(QImage::Format_RGB888), first.rect()));
    QCOMPARE(counts.pixels(), qint64(0));

    ColourCounts other;
    QVERIFY(other.count(second, second.rect()));
    QCOMPARE(other.at(0x0a141eu), 0u);
    QCOMPARE(other.at(0xc86432u), 0u);
}

QTEST_GUILESS_MAIN(TestColourCounts)
#include "tst_colourcounts.moc"
