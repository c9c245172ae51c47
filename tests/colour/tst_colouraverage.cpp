#include "colour/colouraverage.h"

#include <QtTest>

#include <cmath>

Q_DECLARE_METATYPE(RgbColour)

class TestColourAverage : public QObject
{
    Q_OBJECT

private slots:
    void emptySelectionIsGreyInLabMode();
    void emptySelectionIsBlackInRgbMode();
    void rgbAverageOfZeroAndOneIsRootHalf();
    void rgbAverageIsRootMeanSquarePerComponent();
    void rgbAverageIsNotRounded();
    void labAverage_data();
    void labAverage();
    void labAverageIsRoundedToFourDecimals();
};

void TestColourAverage::emptySelectionIsGreyInLabMode()
{
    const RgbColour c = averageColours({}, false);
    QCOMPARE(c.red, 0.1415);
    QCOMPARE(c.green, 0.1415);
    QCOMPARE(c.blue, 0.1415);
}

void TestColourAverage::emptySelectionIsBlackInRgbMode()
{
    const RgbColour c = averageColours({}, true);
    QVERIFY(c.red == 0.0);
    QVERIFY(c.green == 0.0);
    QVERIFY(c.blue == 0.0);
}

void TestColourAverage::rgbAverageOfZeroAndOneIsRootHalf()
{
    const RgbColour c = averageColours({{0.0, 1.0, 0.0}, {1.0, 1.0, 0.0}}, true);
    QCOMPARE(c.red, std::sqrt(0.5));
    QVERIFY(std::fabs(c.red - 0.7071) < 0.0001);
    QCOMPARE(c.green, 1.0);
    QVERIFY(c.blue == 0.0);
}

void TestColourAverage::rgbAverageIsRootMeanSquarePerComponent()
{
    const RgbColour c = averageColours({{0.2, 0.4, 0.6}, {0.4, 0.2, 0.0}, {0.6, 0.0, 0.3}}, true);
    QCOMPARE(c.red, std::sqrt((0.04 + 0.16 + 0.36) / 3.0));
    QCOMPARE(c.green, std::sqrt((0.16 + 0.04 + 0.0) / 3.0));
    QCOMPARE(c.blue, std::sqrt((0.36 + 0.0 + 0.09) / 3.0));
}

void TestColourAverage::rgbAverageIsNotRounded()
{
    const RgbColour c = averageColours({{0.1, 0.1, 0.1}, {0.2, 0.2, 0.2}}, true);
    QCOMPARE(c.red, std::sqrt(0.025));
    QVERIFY(c.red != 0.1581);
}

void TestColourAverage::labAverage_data()
{
    QTest::addColumn<QVector<RgbColour>>("colours");
    QTest::addColumn<RgbColour>("expected");
    // Expected values worked out by hand: mean of L*, a*, b*, then back.
    QTest::newRow("one colour comes back") << QVector<RgbColour>{{0.2, 0.4, 0.6}}
                                           << RgbColour{0.2, 0.4, 0.6};
    QTest::newRow("black and white is mid grey, not 0.7071")
        << QVector<RgbColour>{{0.0, 0.0, 0.0}, {1.0, 1.0, 1.0}} << RgbColour{0.4663, 0.4663, 0.4663};
    QTest::newRow("red and blue") << QVector<RgbColour>{{1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}}
                                  << RgbColour{0.7903, 0.0, 0.5352};
    QTest::newRow("three colours")
        << QVector<RgbColour>{{0.2, 0.4, 0.6}, {0.8, 0.6, 0.1}, {0.5, 0.5, 0.5}}
        << RgbColour{0.5544, 0.4962, 0.4311};
}

void TestColourAverage::labAverage()
{
    QFETCH(QVector<RgbColour>, colours);
    QFETCH(RgbColour, expected);
    const RgbColour c = averageColours(colours, false);
    QCOMPARE(c.red, expected.red);
    QCOMPARE(c.green, expected.green);
    QCOMPARE(c.blue, expected.blue);
}

void TestColourAverage::labAverageIsRoundedToFourDecimals()
{
    const RgbColour c = averageColours({{0.123456, 0.654321, 0.333333}}, false);
    for (double v : {c.red, c.green, c.blue})
        QCOMPARE(std::round(v * 10000.0) / 10000.0, v);
}

QTEST_GUILESS_MAIN(TestColourAverage)
#include "tst_colouraverage.moc"
