// The simulated view's painting: only the exposed part, at every zoom, each
// screen pixel the simulation of the picture pixel under it.
#include "sample/simulatedpicture.h"
#include "colour/colourvision.h"

#include <QBrush>
#include <QtTest>

class TestSimulatedPicture : public QObject
{
    Q_OBJECT

private slots:
    void everyPixelIsSimulated_data();
    void everyPixelIsSimulated();
    void targetCoversTheSourceAtTheZoom();
    void largeBufferSplitOverTwoThreadsGivesTheSamePixels();
};

void TestSimulatedPicture::everyPixelIsSimulated_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("100 %") << 1.0;
    QTest::newRow("400 % (nearest neighbour)") << 4.0;
    QTest::newRow("300 %") << 3.0;
}

void TestSimulatedPicture::everyPixelIsSimulated()
{
    QFETCH(double, factor);
    // Four columns of distinct colours.
    QImage image(8, 4, QImage::Format_RGB32);
    const QRgb colours[4] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(200, 150, 30)};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x)
            image.setPixel(x, y, colours[x / 2]);
    const ColourVision vision(ColourVision::Protanopia);
    const QRect source(2, 1, 6, 3);
    const QImage buffer = SimulatedPicture::render(image, source, factor, vision, QBrush());
    QCOMPARE(buffer.size(), SimulatedPicture::targetRect(source, factor).size());
    for (int y = 0; y < buffer.height(); ++y) {
        for (int x = 0; x < buffer.width(); ++x) {
            const QPoint picture(source.left() + int(x / factor), source.top() + int(y / factor));
            const QRgb expected = vision.simulatePixel(image.pixel(picture));
            QCOMPARE(QColor(buffer.pixel(x, y)), QColor(expected));
        }
    }
}

void TestSimulatedPicture::targetCoversTheSourceAtTheZoom()
{
    QCOMPARE(SimulatedPicture::targetRect(QRect(10, 20, 30, 40), 2.0), QRect(20, 40, 60, 80));
    QCOMPARE(SimulatedPicture::targetRect(QRect(10, 20, 30, 40), 0.5), QRect(5, 10, 15, 20));
    // Partial pixels at the edges are covered whole.
    QCOMPARE(SimulatedPicture::targetRect(QRect(1, 1, 3, 3), 0.5), QRect(0, 0, 2, 2));
}

void TestSimulatedPicture::largeBufferSplitOverTwoThreadsGivesTheSamePixels()
{
    QImage image(40, 600, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 6, y % 256, (x + y) % 256));
    const ColourVision vision(ColourVision::Tritanomaly, 0.4);
    const QImage buffer = SimulatedPicture::render(image, image.rect(), 1.0, vision, QBrush());
    for (int y = 0; y < image.height(); y += 7)
        for (int x = 0; x < image.width(); x += 3)
            QCOMPARE(buffer.pixel(x, y), vision.simulatePixel(image.pixel(x, y)));
}

QTEST_MAIN(TestSimulatedPicture)
#include "tst_simulatedpicture.moc"
