#include "colour/rgbcolour.h"
#include "screen/loupe.h"
#include "screen/screenoverlay.h"
#include "tables/colourmatcher.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/samplefixture.h"

#include <QApplication>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The frozen capture and its loupe, driven with the mouse and the keys as a
// user would, on a capture of known colours held in memory.
class TestScreenOverlay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loupeNamesTheColourUnderTheCursor_data();
    void loupeNamesTheColourUnderTheCursor();
    void loupeWithoutALibrarySaysSo();
    void loupeEnlargesCrisplyAtLeastEightTimes();
    void pickSquareFollowsThePickSize_data();
    void pickSquareFollowsThePickSize();
    void pickSquareIsClippedAtTheEdge();
    void arrowKeysMoveOnePixelShiftTen();
    void clickPicksThePickSquare();
    void dragPicksABand();
    void enterPicksAtTheKeyboardPixel();
    void escCancelsWithoutAPick();
    void highDpiCaptureMapsPointsToDevicePixels();

private:
    static QImage knownColours();

    GuiTestFixture m_fixture;
    CLibColourTable m_table;
    std::unique_ptr<CColourMatcher> m_matcher;
    std::unique_ptr<CScreenOverlay> m_overlay;
};

// 600 x 450, the loupe's room included: red above and left of (100, 75),
// blue right of it, green below it, light grey (240) below right, one
// (10, 200, 30) dot at (150, 30) in the blue.
QImage TestScreenOverlay::knownColours()
{
    QImage image(600, 450, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QRgb c;
            if (y < 75)
                c = x < 100 ? qRgb(255, 0, 0) : qRgb(0, 0, 255);
            else
                c = x < 100 ? qRgb(0, 128, 0) : qRgb(240, 240, 240);
            image.setPixel(x, y, c);
        }
    }
    image.setPixel(150, 30, qRgb(10, 200, 30));
    return image;
}

void TestScreenOverlay::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Signal red"), 1, 0, 0));
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Deep blue"), 0, 0, 1));
    m_table.add(
        std::make_unique<CColourTableEntry>(QStringLiteral("Office green"), 0, 128 / 255.0, 0));
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("White"), 1, 1, 1));
    m_matcher = std::make_unique<CColourMatcher>(m_table);
}

void TestScreenOverlay::init()
{
    m_overlay = std::make_unique<CScreenOverlay>(knownColours());
    m_overlay->setMatcher(m_matcher.get());
    m_overlay->move(0, 0);
    m_overlay->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_overlay.get()));
    QCOMPARE(m_overlay->size(), QSize(600, 450));
    // Every test starts with the cursor moving onto the overlay.
    SampleFixture::moveTo(m_overlay.get(), QPoint(1, 1));
}

void TestScreenOverlay::cleanup()
{
    m_overlay.reset();
}

void TestScreenOverlay::loupeNamesTheColourUnderTheCursor_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("red") << QPoint(20, 20) << "#ff0000" << "Signal red"
                         << QString::fromUtf8("Signal red  \u0394E 0.0  Visually identical");
    QTest::newRow("blue") << QPoint(180, 60) << "#0000ff" << "Deep blue"
                          << QString::fromUtf8("Deep blue  \u0394E 0.0  Visually identical");
    QTest::newRow("green") << QPoint(5, 140) << "#008000" << "Office green"
                           << QString::fromUtf8("Office green  \u0394E 0.0  Visually identical");
    QTest::newRow("near white") << QPoint(190, 100) << "#f0f0f0" << "White"
                                << QString::fromUtf8("White  \u0394E 3.0  Noticably different");
    QTest::newRow("dot") << QPoint(150, 30) << "#0ac81e" << "Office green" << QString();
}

void TestScreenOverlay::loupeNamesTheColourUnderTheCursor()
{
    QFETCH(QPoint, point);
    QFETCH(QString, hex);
    QFETCH(QString, name);
    QFETCH(QString, text);
    SampleFixture::moveTo(m_overlay.get(), point);
    QCOMPARE(m_overlay->cursorPixel(), point);
    QCOMPARE(m_overlay->loupe()->hexText(), hex);
    QCOMPARE(m_overlay->loupe()->nearestName(), name);
    if (!text.isEmpty())
        QCOMPARE(m_overlay->loupe()->nameText(), text);
    // It follows the cursor without covering it.
    QVERIFY(!m_overlay->loupe()->geometry().contains(point));
    QVERIFY(m_overlay->loupe()->isVisible());
}

void TestScreenOverlay::loupeWithoutALibrarySaysSo()
{
    CLibColourTable empty;
    const CColourMatcher none(empty);
    m_overlay->setMatcher(&none);
    SampleFixture::moveTo(m_overlay.get(), QPoint(20, 20));
    QCOMPARE(m_overlay->loupe()->hexText(), QStringLiteral("#ff0000"));
    QCOMPARE(m_overlay->loupe()->nameText(), QStringLiteral("No library table to name it from"));
    m_overlay->setMatcher(nullptr);
    SampleFixture::moveTo(m_overlay.get(), QPoint(21, 20));
    QCOMPARE(m_overlay->loupe()->nearestName(), QString());
}

// The dot's cell in the middle of the loupe is a whole kZoom square of its
// colour; the cells beside it are blue to their edges.
void TestScreenOverlay::loupeEnlargesCrisplyAtLeastEightTimes()
{
    QVERIFY(CLoupe::kZoom >= 8);
    SampleFixture::moveTo(m_overlay.get(), QPoint(150, 30));
    const QImage shown = m_overlay->loupe()->grab().toImage();
    const int z = CLoupe::kZoom;
    const int cell = (CLoupe::kSpan / 2) * z;
    // Inside the outline (two pixels wide) the cell is the dot's colour.
    for (int y = cell + 2; y < cell + z - 2; ++y)
        for (int x = cell + 2; x < cell + z - 2; ++x)
            QCOMPARE(QColor(shown.pixel(x, y)), QColor(10, 200, 30));
    // No smoothing: the neighbour cells are pure blue right up to the line.
    for (int x = cell - z; x < cell - 2; ++x)
        QCOMPARE(QColor(shown.pixel(x, cell + z / 2)), QColor(0, 0, 255));
    for (int x = cell + z + 2; x < cell + 2 * z; ++x)
        QCOMPARE(QColor(shown.pixel(x, cell + z / 2)), QColor(0, 0, 255));
}

void TestScreenOverlay::pickSquareFollowsThePickSize_data()
{
    QTest::addColumn<int>("size");
    for (int size = 1; size <= 9; size += 2)
        QTest::newRow(qPrintable(QStringLiteral("%1x%1").arg(size))) << size;
}

void TestScreenOverlay::pickSquareFollowsThePickSize()
{
    QFETCH(int, size);
    m_overlay->setPickSize(size);
    SampleFixture::moveTo(m_overlay.get(), QPoint(150, 30));
    const int half = (size - 1) / 2;
    QCOMPARE(m_overlay->loupe()->pickRect(), QRect(150 - half, 30 - half, size, size));
    const int z = CLoupe::kZoom;
    const int centre = (CLoupe::kSpan / 2) * z;
    QCOMPARE(m_overlay->loupe()->outlineRect(),
             QRect(centre - half * z, centre - half * z, size * z, size * z));
    // The outline is drawn where it says: black just outside its left edge.
    const QImage shown = m_overlay->loupe()->grab().toImage();
    const QRect outline = m_overlay->loupe()->outlineRect();
    QCOMPARE(QColor(shown.pixel(outline.left() - 1, outline.center().y())), QColor(Qt::black));
    QCOMPARE(QColor(shown.pixel(outline.left(), outline.center().y())), QColor(Qt::white));
    // The hex is the average of the square: one dot among size*size blues.
    if (size == 1)
        QCOMPARE(m_overlay->loupe()->hexText(), QStringLiteral("#0ac81e"));
    else
        QVERIFY(m_overlay->loupe()->hexText() != QStringLiteral("#0000ff"));
}

void TestScreenOverlay::pickSquareIsClippedAtTheEdge()
{
    m_overlay->setPickSize(5);
    SampleFixture::moveTo(m_overlay.get(), QPoint(0, 0));
    QCOMPARE(m_overlay->loupe()->pickRect(), QRect(0, 0, 3, 3));
    QCOMPARE(m_overlay->loupe()->hexText(), QStringLiteral("#ff0000"));
}

void TestScreenOverlay::arrowKeysMoveOnePixelShiftTen()
{
    SampleFixture::moveTo(m_overlay.get(), QPoint(50, 40));
    QTest::keyClick(m_overlay.get(), Qt::Key_Right);
    QCOMPARE(m_overlay->cursorPixel(), QPoint(51, 40));
    QTest::keyClick(m_overlay.get(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(m_overlay->cursorPixel(), QPoint(51, 50));
    QTest::keyClick(m_overlay.get(), Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(m_overlay->cursorPixel(), QPoint(41, 50));
    QTest::keyClick(m_overlay.get(), Qt::Key_Up);
    QCOMPARE(m_overlay->cursorPixel(), QPoint(41, 49));
    QCOMPARE(m_overlay->loupe()->pixel(), QPoint(41, 49));
    // Kept inside the capture.
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(m_overlay.get(), Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(m_overlay->cursorPixel(), QPoint(599, 49));
    QCOMPARE(m_overlay->loupe()->hexText(), QStringLiteral("#0000ff"));
}

void TestScreenOverlay::clickPicksThePickSquare()
{
    QSignalSpy picked(m_overlay.get(), &CScreenOverlay::picked);
    QSignalSpy cancelled(m_overlay.get(), &CScreenOverlay::cancelled);
    m_overlay->setPickSize(3);
    SampleFixture::leftClick(m_overlay.get(), QPoint(50, 40));
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().toRect(), QRect(49, 39, 3, 3));
    QCOMPARE(cancelled.count(), 0);
    // One pick per overlay: a second click is not another pick.
    SampleFixture::leftClick(m_overlay.get(), QPoint(60, 40));
    QCOMPARE(picked.count(), 1);
}

void TestScreenOverlay::dragPicksABand()
{
    QSignalSpy picked(m_overlay.get(), &CScreenOverlay::picked);
    m_overlay->setPickSize(9);
    SampleFixture::moveTo(m_overlay.get(), QPoint(30, 20));
    SampleFixture::press(m_overlay.get(), QPoint(30, 20), Qt::LeftButton);
    SampleFixture::moveTo(m_overlay.get(), QPoint(10, 40));
    QVERIFY(m_overlay->isDragging());
    QCOMPARE(m_overlay->bandPixels(), QRect(QPoint(10, 20), QPoint(30, 40)));
    SampleFixture::release(m_overlay.get(), QPoint(10, 40), Qt::LeftButton);
    QCOMPARE(picked.count(), 1);
    // As the page's band at actual size reads it, whatever the pick size.
    QCOMPARE(picked.first().first().toRect(), QRect(QPoint(10, 20), QPoint(30, 40)));
}

void TestScreenOverlay::enterPicksAtTheKeyboardPixel()
{
    QSignalSpy picked(m_overlay.get(), &CScreenOverlay::picked);
    m_overlay->setPickSize(1);
    SampleFixture::moveTo(m_overlay.get(), QPoint(100, 100));
    QTest::keyClick(m_overlay.get(), Qt::Key_Left);
    QTest::keyClick(m_overlay.get(), Qt::Key_Return);
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().toRect(), QRect(99, 100, 1, 1));
}

void TestScreenOverlay::escCancelsWithoutAPick()
{
    QSignalSpy picked(m_overlay.get(), &CScreenOverlay::picked);
    QSignalSpy cancelled(m_overlay.get(), &CScreenOverlay::cancelled);
    SampleFixture::moveTo(m_overlay.get(), QPoint(100, 100));
    QTest::keyClick(m_overlay.get(), Qt::Key_Escape);
    QCOMPARE(cancelled.count(), 1);
    SampleFixture::leftClick(m_overlay.get(), QPoint(20, 20));
    QCOMPARE(picked.count(), 0);
}

// A capture at twice the widget's size, as on a screen scaled by 2: every
// point reads the device pixel under it.
void TestScreenOverlay::highDpiCaptureMapsPointsToDevicePixels()
{
    m_overlay->hide(); // the cursor's moves go to this one alone
    const QImage small = knownColours();
    const QImage doubled = small.scaled(small.size() * 2);
    CScreenOverlay overlay(doubled);
    overlay.move(0, 0);
    overlay.resize(small.size());
    overlay.show();
    QVERIFY(QTest::qWaitForWindowExposed(&overlay));
    QSignalSpy picked(&overlay, &CScreenOverlay::picked);
    SampleFixture::moveTo(&overlay, QPoint(150, 30));
    QCOMPARE(overlay.cursorPixel(), QPoint(300, 60));
    QCOMPARE(overlay.loupe()->hexText(), QStringLiteral("#0ac81e"));
    SampleFixture::moveTo(&overlay, QPoint(120, 60));
    QCOMPARE(overlay.cursorPixel(), QPoint(240, 120));
    QCOMPARE(overlay.loupe()->hexText(), QStringLiteral("#0000ff"));
    SampleFixture::leftClick(&overlay, QPoint(200, 100));
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().toRect(), QRect(400, 200, 1, 1));
    // What shows is the capture scaled down: light grey at the bottom right.
    QCOMPARE(QColor(overlay.grab(QRect(580, 440, 1, 1)).toImage().pixel(0, 0)),
             QColor(240, 240, 240));
}

QTEST_MAIN(TestScreenOverlay)
#include "tst_screenoverlay.moc"
