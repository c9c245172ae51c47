// The simulated view kept between repaints: what it shows is the picture as
// the plain view draws it at the zoom, each screen pixel then simulated in
// double precision; and what it keeps is dropped for a new or changed
// picture, another simulation or another zoom, and moved along by a scroll.
//
// Tolerance: one step per channel. The view looks colours up in tables
// (linear values as floats, the encoding at square-root steps of 1/4096)
// where the reference below computes in double and rounds once, so a
// channel whose exact value lies within a hair of a half lands on the
// other byte; the core's own test bounds that path by the same one step
// over the whole colour cube. The scaling is the plain view's own drawing
// of the same areas, so it adds nothing; bands of rows split no row.
#include "sample/simulatedpicture.h"
#include "sample/simulatedviewcache.h"
#include "colour/colourvision.h"

#include <QBrush>
#include <QPainter>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using Vision = std::shared_ptr<const ColourVision>;

// Never produced by a simulation of these pictures: shows pixels left unpainted.
const QRgb kUnpainted = qRgb(255, 0, 255);

// Gradients with noise, so that smooth scaling blends distinct neighbours.
QImage picture(const QSize &size, quint32 seed, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            seed = seed * 1664525u + 1013904223u;
            const int n = int(seed >> 26);
            const int alpha = format == QImage::Format_RGB32 ? 255 : (x * 37 + y * 11) % 256;
            image.setPixel(x, y, qRgba((x * 7 + n) % 256, (y * 5 + 2 * n) % 256,
                                       (x * 3 + y * 2 + n) % 256, alpha));
        }
    }
    return image;
}

QBrush checker()
{
    QImage tile(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            tile.setPixel(x, y, (x < 4) == (y < 4) ? qRgb(204, 204, 204) : qRgb(255, 255, 255));
    return QBrush(tile);
}

int toByte(double v)
{
    return int(std::lround(v * 255.0));
}

// The plain view's drawing at factor of each of parts (by default the whole
// picture), every pixel then simulated in double precision. Smooth scaling
// rounds a little differently from where a row of pixels starts (the
// painter blends most pixels of a row a few at a time and the last ones one
// by one), so the reference draws the same parts as the view it checks.
QImage reference(const QImage &image, double factor, const ColourVision &vision,
                 QVector<QRect> parts = {})
{
    QImage plain(SimulatedPicture::zoomedRect(image.size(), factor).size(), QImage::Format_RGB32);
    plain.fill(kUnpainted);
    if (parts.isEmpty())
        parts.append(plain.rect());
    for (const QRect &part : parts) {
        QPainter painter(&plain);
        painter.setClipRect(part);
        painter.scale(factor, factor);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, factor < 1.0);
        const QRect source = SimulatedPicture::sourceRect(part, factor, image.size());
        if (image.hasAlphaChannel())
            painter.fillRect(source, checker());
        painter.drawImage(source.topLeft(), image, source);
    }
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            const QRgb p = plain.pixel(x, y);
            const RgbColour out =
                vision.simulate({qRed(p) / 255.0, qGreen(p) / 255.0, qBlue(p) / 255.0});
            plain.setPixel(x, y, qRgb(toByte(out.red), toByte(out.green), toByte(out.blue)));
        }
    }
    return plain;
}

// The largest difference of a channel between the two over area.
int worstDifference(const QImage &shown, const QImage &expected, const QRect &area)
{
    int worst = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb a = shown.pixel(x, y);
            const QRgb b = expected.pixel(x, y);
            worst = std::max({worst, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                              std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return worst;
}

// A screen of the zoomed picture's size plus a margin, unpainted, on which
// the cache paints each exposed rectangle in turn.
struct Screen
{
    Screen(const QImage &image, double factor)
        : pixels(SimulatedPicture::zoomedRect(image.size(), factor).size() + QSize(5, 5),
                 QImage::Format_RGB32)
    {
        pixels.fill(kUnpainted);
    }

    void paint(CSimulatedViewCache &cache, const QImage &image, const QVector<QRect> &exposed,
               const QRect &visible, double factor, const Vision &vision)
    {
        QPainter painter(&pixels);
        for (const QRect &rect : exposed)
            cache.paint(painter, image, rect, visible, factor, vision, checker());
    }

    QImage pixels;
};

} // namespace

class TestSimulatedViewCache : public QObject
{
    Q_OBJECT

private slots:
    void showsTheSimulationOfThePlainView_data();
    void showsTheSimulationOfThePlainView();
    void partsPaintedApartMatchTheWhole();
    void repaintWithoutChangeDrawsNothing();
    void newPictureIsDrawnAfresh();
    void pictureChangedInPlaceIsDrawnAfresh();
    void changeOfSimulationIsDrawnAfresh();
    void changeOfZoomIsDrawnAfresh();
    void scrollDrawsOnlyWhatCameIntoSight();
    void scrollFarAwayDrawsTheWholeView();
};

void TestSimulatedViewCache::showsTheSimulationOfThePlainView_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("transparent");
    const QSize small(83, 61);
    QTest::newRow("20 %") << small << 0.2 << int(ColourVision::Deuteranomaly) << false;
    QTest::newRow("25 %") << small << 0.25 << int(ColourVision::Protanopia) << false;
    QTest::newRow("30 %") << small << 0.3 << int(ColourVision::Tritanopia) << false;
    QTest::newRow("40 %") << small << 0.4 << int(ColourVision::Deuteranopia) << false;
    QTest::newRow("60 %") << small << 0.6 << int(ColourVision::Achromatopsia) << false;
    QTest::newRow("80 %") << small << 0.8 << int(ColourVision::Tritanomaly) << false;
    QTest::newRow("100 %") << small << 1.0 << int(ColourVision::Protanomaly) << false;
    QTest::newRow("150 %") << small << 1.5 << int(ColourVision::Deuteranomaly) << false;
    QTest::newRow("300 %") << small << 3.0 << int(ColourVision::Protanopia) << false;
    QTest::newRow("50 %, transparent over the checkerboard")
        << small << 0.5 << int(ColourVision::Deuteranopia) << true;
    // Tall enough at the zoom for bands of rows drawn side by side.
    QTest::newRow("30 %, bands of rows") << QSize(120, 1900) << 0.3
                                         << int(ColourVision::Protanomaly) << false;
    QTest::newRow("100 %, bands of rows") << QSize(50, 700) << 1.0
                                          << int(ColourVision::Tritanomaly) << false;
}

void TestSimulatedViewCache::showsTheSimulationOfThePlainView()
{
    QFETCH(QSize, size);
    QFETCH(double, factor);
    QFETCH(int, type);
    QFETCH(bool, transparent);
    const QImage image =
        picture(size, 7, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Type(type), 0.6);
    const QRect zoomed = SimulatedPicture::zoomedRect(size, factor);
    CSimulatedViewCache cache;
    Screen screen(image, factor);
    screen.paint(cache, image, {screen.pixels.rect()}, screen.pixels.rect(), factor, vision);
    const QImage expected = reference(image, factor, *vision);
    QVERIFY(worstDifference(screen.pixels, expected, zoomed) <= 1);
    // Beyond the picture nothing is painted.
    QCOMPARE(screen.pixels.pixel(zoomed.right() + 1, 0), kUnpainted);
    QCOMPARE(screen.pixels.pixel(0, zoomed.bottom() + 1), kUnpainted);
    QCOMPARE(cache.drawnPixels(), qint64(zoomed.width()) * zoomed.height());
}

// Three exposed strips of a view scrolled into the middle of the picture, at
// a zoom that blends neighbours, each drawn and kept on its own, give the
// pixels the plain view paints for the same strips.
void TestSimulatedViewCache::partsPaintedApartMatchTheWhole()
{
    const QImage image = picture(QSize(200, 150), 3);
    const double factor = 0.4;
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Deuteranopia);
    const QRect visible(13, 9, 50, 37);
    CSimulatedViewCache cache;
    Screen screen(image, factor);
    const QVector<QRect> parts{QRect(13, 9, 50, 5), QRect(13, 14, 20, 32), QRect(33, 14, 30, 32)};
    for (const QRect &part : parts)
        screen.paint(cache, image, {part}, part, factor, vision);
    const QImage expected = reference(image, factor, *vision, parts);
    QVERIFY(worstDifference(screen.pixels, expected, visible) <= 1);
    QCOMPARE(screen.pixels.pixel(12, 20), kUnpainted);
    QCOMPARE(screen.pixels.pixel(40, 46), kUnpainted);
}

void TestSimulatedViewCache::repaintWithoutChangeDrawsNothing()
{
    const QImage image = picture(QSize(90, 70), 5);
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Tritanomaly, 0.3);
    const QRect visible(0, 0, 40, 30);
    CSimulatedViewCache cache;
    Screen first(image, 0.5);
    first.paint(cache, image, {visible}, visible, 0.5, vision);
    QCOMPARE(cache.cachedRect(), visible);
    const qint64 drawn = cache.drawnPixels();
    QCOMPARE(drawn, qint64(40 * 30));
    // The whole view again, then the pick box's corner of it.
    Screen second(image, 0.5);
    second.paint(cache, image, {visible, QRect(5, 6, 7, 8)}, visible, 0.5, vision);
    QCOMPARE(cache.drawnPixels(), drawn);
    QCOMPARE(second.pixels, first.pixels);
}

void TestSimulatedViewCache::newPictureIsDrawnAfresh()
{
    const QImage before = picture(QSize(60, 40), 1);
    const QImage after = picture(QSize(60, 40), 2);
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Protanopia);
    const QRect visible(0, 0, 60, 40);
    CSimulatedViewCache cache;
    Screen screen(before, 1.0);
    screen.paint(cache, before, {visible}, visible, 1.0, vision);
    QVERIFY(worstDifference(screen.pixels, reference(before, 1.0, *vision), visible) <= 1);
    screen.paint(cache, after, {visible}, visible, 1.0, vision);
    QCOMPARE(cache.drawnPixels(), qint64(2 * 60 * 40));
    QVERIFY(worstDifference(screen.pixels, reference(after, 1.0, *vision), visible) <= 1);
    QVERIFY(worstDifference(screen.pixels, reference(before, 1.0, *vision), visible) > 1);
}

void TestSimulatedViewCache::pictureChangedInPlaceIsDrawnAfresh()
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(qRgb(255, 0, 0));
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Achromatopsia);
    const QRect visible(0, 0, 30, 20);
    CSimulatedViewCache cache;
    Screen screen(image, 1.0);
    screen.paint(cache, image, {visible}, visible, 1.0, vision);
    // Red with no colour vision: its luminance, grey 127.
    QCOMPARE(screen.pixels.pixel(10, 10), qRgb(127, 127, 127));
    image.fill(qRgb(0, 0, 255));
    screen.paint(cache, image, {visible}, visible, 1.0, vision);
    // Blue: luminance 0.0722, grey 76.
    QCOMPARE(screen.pixels.pixel(10, 10), qRgb(76, 76, 76));
}

void TestSimulatedViewCache::changeOfSimulationIsDrawnAfresh()
{
    const QImage image = picture(QSize(50, 50), 9);
    const Vision first = std::make_shared<const ColourVision>(ColourVision::Protanopia);
    const Vision second = std::make_shared<const ColourVision>(ColourVision::Tritanopia);
    const QRect visible(0, 0, 50, 50);
    CSimulatedViewCache cache;
    Screen screen(image, 1.0);
    screen.paint(cache, image, {visible}, visible, 1.0, first);
    screen.paint(cache, image, {visible}, visible, 1.0, second);
    QCOMPARE(cache.drawnPixels(), qint64(2 * 50 * 50));
    QVERIFY(worstDifference(screen.pixels, reference(image, 1.0, *second), visible) <= 1);
    QVERIFY(worstDifference(screen.pixels, reference(image, 1.0, *first), visible) > 1);
}

void TestSimulatedViewCache::changeOfZoomIsDrawnAfresh()
{
    const QImage image = picture(QSize(100, 80), 4);
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Deuteranomaly, 0.8);
    CSimulatedViewCache cache;
    Screen screen(image, 0.6);
    screen.paint(cache, image, {QRect(0, 0, 50, 40)}, QRect(0, 0, 50, 40), 0.5, vision);
    screen.paint(cache, image, {QRect(0, 0, 60, 48)}, QRect(0, 0, 60, 48), 0.6, vision);
    QCOMPARE(cache.drawnPixels(), qint64(50 * 40 + 60 * 48));
    QVERIFY(worstDifference(screen.pixels, reference(image, 0.6, *vision), QRect(0, 0, 60, 48)) <=
            1);
    QVERIFY(worstDifference(screen.pixels, reference(image, 0.5, *vision), QRect(0, 0, 50, 40)) >
            1);
}

// Down and right, then up and left: the kept pixels move both ways within
// the buffer, and only the strips that came into sight are drawn.
void TestSimulatedViewCache::scrollDrawsOnlyWhatCameIntoSight()
{
    const QImage image = picture(QSize(160, 120), 6);
    // Nearest neighbour, so that any pixel kept in the wrong place shows.
    const double factor = 1.5;
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Deuteranopia);
    const QImage expected = reference(image, factor, *vision);
    CSimulatedViewCache cache;
    QRect visible(20, 15, 60, 45);
    const QRect moves[] = {visible.translated(9, 13), visible.translated(-4, 2),
                           visible.translated(0, -15), visible};
    Screen screen(image, factor);
    screen.paint(cache, image, {visible}, visible, factor, vision);
    for (const QRect &next : moves) {
        const qint64 drawn = cache.drawnPixels();
        const QRect kept = next.intersected(visible);
        visible = next;
        screen.pixels.fill(kUnpainted);
        screen.paint(cache, image, {visible}, visible, factor, vision);
        QCOMPARE(cache.drawnPixels() - drawn,
                 qint64(visible.width()) * visible.height() - qint64(kept.width()) * kept.height());
        QCOMPARE(cache.cachedRect(), visible);
        QVERIFY(worstDifference(screen.pixels, expected, visible) <= 1);
    }
}

void TestSimulatedViewCache::scrollFarAwayDrawsTheWholeView()
{
    const QImage image = picture(QSize(200, 200), 8);
    const Vision vision = std::make_shared<const ColourVision>(ColourVision::Protanomaly, 0.4);
    CSimulatedViewCache cache;
    Screen screen(image, 1.0);
    screen.paint(cache, image, {QRect(0, 0, 40, 30)}, QRect(0, 0, 40, 30), 1.0, vision);
    screen.paint(cache, image, {QRect(120, 150, 40, 30)}, QRect(120, 150, 40, 30), 1.0, vision);
    QCOMPARE(cache.drawnPixels(), qint64(2 * 40 * 30));
    QVERIFY(worstDifference(screen.pixels, reference(image, 1.0, *vision),
                            QRect(120, 150, 40, 30)) <= 1);
}

QTEST_MAIN(TestSimulatedViewCache)
#include "tst_simulatedviewcache.moc"
