#include "colour/pickgeometry.h"

#include <QtTest>

// Which image pixels a click square or a rubber band reads, including the
// clipping at the image edges.
class TestPickGeometry : public QObject
{
    Q_OBJECT

private slots:
    void clickPick_data();
    void clickPick();
    void clickOneByOneAtZoomTwoReadsPixelUnderCursor();
    void clickNineByNineAtOriginReadsFiveByFiveBlock();
    void clickNineByNineAtBottomRightReadsLastFiveByFiveBlock();
    void clickBeyondImageIsEmpty();
    void clickOnTinyImageStopsAtImageWidth();

    void bandPick_data();
    void bandPick();
    void bandToNineNineAtZoomOneReadsNineByNineBlock();
    void bandOfThreeWidgetPixelsAtZoomFiveIsEmpty();
    void bandStartingAtNegativeCoordinatesIsClipped();
    void bandOverWholeImageStopsOnePixelShort();
    void bandIsNormalisedFirst();
};

void TestPickGeometry::clickPick_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("size");
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("expected");

    const QSize image(100, 50);
    QTest::newRow("1x1 zoom 1") << QPoint(7, 3) << 1.0 << 1 << image << QRect(7, 3, 1, 1);
    QTest::newRow("1x1 zoom 2") << QPoint(5, 9) << 2.0 << 1 << image << QRect(2, 4, 1, 1);
    QTest::newRow("3x3 in the middle") << QPoint(10, 10) << 1.0 << 3 << image << QRect(9, 9, 3, 3);
    QTest::newRow("5x5 zoom 0.5") << QPoint(20, 20) << 0.5 << 5 << image << QRect(38, 38, 5, 5);
    QTest::newRow("7x7 at left edge") << QPoint(1, 20) << 1.0 << 7 << image << QRect(0, 17, 5, 7);
    QTest::newRow("9x9 at top edge") << QPoint(50, 2) << 1.0 << 9 << image << QRect(46, 0, 9, 7);
    QTest::newRow("9x9 at right edge")
        << QPoint(98, 20) << 1.0 << 9 << image << QRect(94, 16, 6, 9);
    QTest::newRow("9x9 at bottom edge")
        << QPoint(20, 49) << 1.0 << 9 << image << QRect(16, 45, 9, 5);
}

void TestPickGeometry::clickPick()
{
    QFETCH(QPoint, point);
    QFETCH(double, zoom);
    QFETCH(int, size);
    QFETCH(QSize, image);
    QFETCH(QRect, expected);
    QCOMPARE(clickPickRect(point, zoom, size, image), expected);
}

void TestPickGeometry::clickOneByOneAtZoomTwoReadsPixelUnderCursor()
{
    const QRect r = clickPickRect(QPoint(5, 9), 2.0, 1, QSize(10, 10));
    QCOMPARE(r.topLeft(), QPoint(2, 4));
    QCOMPARE(r.size(), QSize(1, 1));
}

void TestPickGeometry::clickNineByNineAtOriginReadsFiveByFiveBlock()
{
    QCOMPARE(clickPickRect(QPoint(0, 0), 1.0, 9, QSize(40, 30)), QRect(QPoint(0, 0), QPoint(4, 4)));
}

void TestPickGeometry::clickNineByNineAtBottomRightReadsLastFiveByFiveBlock()
{
    const int w = 40;
    const int h = 30;
    QCOMPARE(clickPickRect(QPoint(w - 1, h - 1), 1.0, 9, QSize(w, h)),
             QRect(QPoint(w - 5, h - 5), QPoint(w - 1, h - 1)));
}

void TestPickGeometry::clickBeyondImageIsEmpty()
{
    QVERIFY(clickPickRect(QPoint(45, 10), 1.0, 1, QSize(40, 30)).isEmpty());
    QVERIFY(clickPickRect(QPoint(10, 35), 1.0, 3, QSize(40, 30)).isEmpty());
    QVERIFY(clickPickRect(QPoint(-20, 10), 1.0, 9, QSize(40, 30)).isEmpty());
    QVERIFY(clickPickRect(QPoint(100, 100), 2.0, 9, QSize(40, 30)).isEmpty());
}

void TestPickGeometry::clickOnTinyImageStopsAtImageWidth()
{
    // The square hangs over both sides of a 3 x 3 image.
    QCOMPARE(clickPickRect(QPoint(1, 1), 1.0, 9, QSize(3, 3)), QRect(0, 0, 3, 3));
}

void TestPickGeometry::bandPick_data()
{
    QTest::addColumn<QRect>("band");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("expected");

    const QSize image(100, 50);
    QTest::newRow("inside, zoom 1") << QRect(QPoint(10, 5), QPoint(19, 14)) << 1.0 << image
                                    << QRect(QPoint(10, 5), QPoint(19, 14));
    QTest::newRow("inside, zoom 2") << QRect(QPoint(10, 10), QPoint(29, 29)) << 2.0 << image
                                    << QRect(QPoint(5, 5), QPoint(14, 14));
    QTest::newRow("past right and bottom") << QRect(QPoint(90, 40), QPoint(150, 80)) << 1.0 << image
                                           << QRect(QPoint(90, 40), QPoint(98, 48));
}

void TestPickGeometry::bandPick()
{
    QFETCH(QRect, band);
    QFETCH(double, zoom);
    QFETCH(QSize, image);
    QFETCH(QRect, expected);
    QCOMPARE(bandPickRect(band, zoom, image), expected);
}

void TestPickGeometry::bandToNineNineAtZoomOneReadsNineByNineBlock()
{
    QCOMPARE(bandPickRect(QRect(QPoint(0, 0), QPoint(9, 9)), 1.0, QSize(10, 10)),
             QRect(QPoint(0, 0), QPoint(8, 8)));
}

void TestPickGeometry::bandOfThreeWidgetPixelsAtZoomFiveIsEmpty()
{
    QVERIFY(bandPickRect(QRect(QPoint(20, 20), QPoint(22, 22)), 5.0, QSize(100, 100)).isEmpty());
    QVERIFY(bandPickRect(QRect(QPoint(20, 20), QPoint(22, 60)), 5.0, QSize(100, 100)).isEmpty());
}

void TestPickGeometry::bandStartingAtNegativeCoordinatesIsClipped()
{
    QCOMPARE(bandPickRect(QRect(QPoint(-5, -3), QPoint(9, 9)), 1.0, QSize(100, 100)),
             QRect(QPoint(0, 0), QPoint(9, 9)));
    QVERIFY(bandPickRect(QRect(QPoint(-20, -20), QPoint(-5, -5)), 1.0, QSize(100, 100)).isEmpty());
}

void TestPickGeometry::bandOverWholeImageStopsOnePixelShort()
{
    QCOMPARE(bandPickRect(QRect(QPoint(0, 0), QPoint(500, 500)), 1.0, QSize(30, 20)),
             QRect(QPoint(0, 0), QPoint(28, 18)));
}

void TestPickGeometry::bandIsNormalisedFirst()
{
    const QRect dragged(QPoint(19, 14), QPoint(10, 5)); // dragged up and to the left
    QCOMPARE(bandPickRect(dragged, 1.0, QSize(100, 50)),
             bandPickRect(QRect(QPoint(10, 5), QPoint(19, 14)), 1.0, QSize(100, 50)));
}

QTEST_GUILESS_MAIN(TestPickGeometry)
#include "tst_pickgeometry.moc"
