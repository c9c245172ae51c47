#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QComboBox>
#include <QRubberBand>
#include <QScrollBar>
#include <QStatusBar>
#include <QtTest>

#include <memory>

using namespace SampleFixture;

namespace {

QString status(CMainWindow &window)
{
    return window.statusBar()->currentMessage();
}

void zoomTimes(CMainWindow &window, int command, int times)
{
    for (int i = 0; i < times; ++i)
        window.commandAction(command)->trigger();
}

} // namespace

class TestColourImageWindowView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void nothingIsShownBeforeAnImageOpens();
    void everyFormatIsWidenedToPackedPixels_data();
    void everyFormatIsWidenedToPackedPixels();
    void zoomTableHasSixteenLevels_data();
    void zoomTableHasSixteenLevels();
    void zoomLookupClampsTheIndex();
    void zoomInStopsAtSixHundredPercent();
    void zoomOutStopsAtTwentyPercent();
    void actualSizeIsDisabledAtHundredPercent();
    void otherCommandsKeepTheZoom();
    void zoomKeysStepTheZoom();
    void openingAnImageReturnsToActualSize();
    void actualSizeTakesThePicturesNaturalSize();
    void otherLevelsTakeTheRoundedProduct_data();
    void otherLevelsTakeTheRoundedProduct();
    void scrollBarsScaleByTheNewLevelsFactor();
    void cursorPositionMapsByTruncation_data();
    void cursorPositionMapsByTruncation();
    void cursorBeyondTheRightEdgeReportsTheLastColumn();
    void cursorExactlyOnTheRightEdgeKeepsItsCoordinate();
    void rubberBandDragShowsStartSizeAndPosition();
    void leavingThePictureClearsTheStatusBar();
    void pickBoxFollowsTheCursor_data();
    void pickBoxFollowsTheCursor();
    void pickBoxHidesWhenTheCursorLeaves();
    void rubberBandModeHidesThePickBox();
    void transparentPartsShowTheCheckerboard();
    void checkerboardCellsAlternateGreys();
    void zoomedInPixelsStayCrisp();
    void zoomedOutPictureIsPaintedWhole();
    void paintingAPartDrawsOnlyThatPart();

private:
    QString writeImage(const QString &name, const QImage &image);
    // A shown main window with `image` opened through "Open Image".
    std::unique_ptr<CMainWindow> openWindow(const QImage &image, const QString &name);

    GuiTestFixture m_fixture;
};

void TestColourImageWindowView::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestColourImageWindowView::init()
{
    m_fixture.reset();
}

QString TestColourImageWindowView::writeImage(const QString &name, const QImage &image)
{
    const QString path = m_fixture.filePath(name);
    return ImageWriter::write(image, path) ? path : QString();
}

std::unique_ptr<CMainWindow> TestColourImageWindowView::openWindow(const QImage &image,
                                                                   const QString &name)
{
    return openImageWindow(image, m_fixture.filePath(name));
}

void TestColourImageWindowView::nothingIsShownBeforeAnImageOpens()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    CColourImageWindowView *view = window.samplingPage()->view();
    QVERIFY(view->isVisible());
    QVERIFY(!view->imageWidget()->isVisible());
    QCOMPARE(view->backgroundRole(), QPalette::Dark);
    QCOMPARE(view->widget(), static_cast<QWidget *>(view->imageWidget()));
    QCOMPARE(view->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QVERIFY(view->sourceImage().isNull());
    QCOMPARE(view->zoomIndex(), 7);
}

void TestColourImageWindowView::zoomTableHasSixteenLevels_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("factor");
    const double factors[] = {0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.8, 1.0,
                              1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0};
    for (int i = 0; i < 16; ++i)
        QTest::addRow("index %d", i) << i << factors[i];
}

void TestColourImageWindowView::zoomTableHasSixteenLevels()
{
    QFETCH(int, index);
    QFETCH(double, factor);
    QCOMPARE(CColourImageWindowView::zoomFactor(index), factor);
}

void TestColourImageWindowView::zoomLookupClampsTheIndex()
{
    QCOMPARE(CColourImageWindowView::zoomFactor(-1), 0.2);
    QCOMPARE(CColourImageWindowView::zoomFactor(-100), 0.2);
    QCOMPARE(CColourImageWindowView::zoomFactor(16), 6.0);
    QCOMPARE(CColourImageWindowView::zoomFactor(1000), 6.0);
}

void TestColourImageWindowView::zoomInStopsAtSixHundredPercent()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "in.png");
    QVERIFY(window);
    CColourImageWindowView *view = window->samplingPage()->view();
    zoomTimes(*window, CmdZoomIn, 7);
    QCOMPARE(view->zoomIndex(), 14);
    QVERIFY(window->commandAction(CmdZoomIn)->isEnabled());
    window->commandAction(CmdZoomIn)->trigger();
    QCOMPARE(view->zoomIndex(), 15);
    QCOMPARE(view->zoomFactor(), 6.0);
    QVERIFY(!window->commandAction(CmdZoomIn)->isEnabled());
    QVERIFY(window->commandAction(CmdZoomOut)->isEnabled());
    QVERIFY(window->commandAction(CmdZoomActual)->isEnabled());
    // The command still arrives (a shortcut, say): the level stays.
    window->processCommand(CmdZoomIn);
    QCOMPARE(view->zoomIndex(), 15);
    QCOMPARE(view->imageWidget()->size(), QSize(60, 60));
}

void TestColourImageWindowView::zoomOutStopsAtTwentyPercent()
{
    auto window = openWindow(ImageWriter::gradient(50, 20), "out.png");
    QVERIFY(window);
    CColourImageWindowView *view = window->samplingPage()->view();
    zoomTimes(*window, CmdZoomOut, 7);
    QCOMPARE(view->zoomIndex(), 0);
    QCOMPARE(view->zoomFactor(), 0.2);
    QVERIFY(!window->commandAction(CmdZoomOut)->isEnabled());
    QVERIFY(window->commandAction(CmdZoomIn)->isEnabled());
    window->processCommand(CmdZoomOut);
    QCOMPARE(view->zoomIndex(), 0);
    QCOMPARE(window->samplingPage()->zoomIndex(), 0);
    QCOMPARE(view->imageWidget()->size(), QSize(10, 4));
}

void TestColourImageWindowView::actualSizeIsDisabledAtHundredPercent()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "actual.png");
    QVERIFY(window);
    QVERIFY(!window->commandAction(CmdZoomActual)->isEnabled());
    window->commandAction(CmdZoomIn)->trigger();
    QVERIFY(window->commandAction(CmdZoomActual)->isEnabled());
    window->commandAction(CmdZoomActual)->trigger();
    QCOMPARE(window->samplingPage()->zoomIndex(), 7);
    QVERIFY(!window->commandAction(CmdZoomActual)->isEnabled());
    QVERIFY(window->commandAction(CmdZoomIn)->isEnabled());
    QVERIFY(window->commandAction(CmdZoomOut)->isEnabled());
}

void TestColourImageWindowView::otherCommandsKeepTheZoom()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "other.png");
    QVERIFY(window);
    CColourImageWindowView *view = window->samplingPage()->view();
    window->commandAction(CmdZoomIn)->trigger();
    for (int command : {0, 5, 9, -1})
        view->zoomStep(command);
    QCOMPARE(view->zoomIndex(), 8);
    QCOMPARE(view->imageWidget()->size(), QSize(13, 13));
}

void TestColourImageWindowView::zoomKeysStepTheZoom()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "keys.png");
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QTest::keySequence(window.get(), QKeySequence(QKeySequence::ZoomIn));
    QTest::keySequence(window.get(), QKeySequence(QKeySequence::ZoomIn));
    QCOMPARE(window->samplingPage()->zoomIndex(), 9);
    QCOMPARE(window->samplingPage()->imageWidget()->size(), QSize(15, 15));
    QTest::keySequence(window.get(), QKeySequence(QKeySequence::ZoomOut));
    QCOMPARE(window->samplingPage()->zoomIndex(), 8);
    QTest::keySequence(window.get(), QKeySequence(Qt::CTRL + Qt::Key_0));
    QCOMPARE(window->samplingPage()->zoomIndex(), 7);
    QCOMPARE(window->samplingPage()->imageWidget()->size(), QSize(10, 10));
}

void TestColourImageWindowView::openingAnImageReturnsToActualSize()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "first.png");
    QVERIFY(window);
    zoomTimes(*window, CmdZoomIn, 3);
    QVERIFY(openThroughDialog(*window, writeImage("second.png", ImageWriter::gradient(30, 20))));
    QCOMPARE(window->samplingPage()->zoomIndex(), 7);
    QCOMPARE(window->samplingPage()->view()->imageWidget()->size(), QSize(30, 20));
    QVERIFY(!window->commandAction(CmdZoomActual)->isEnabled());
}

void TestColourImageWindowView::actualSizeTakesThePicturesNaturalSize()
{
    auto window = openWindow(ImageWriter::gradient(123, 45), "natural.png");
    QVERIFY(window);
    CImageWidget *label = window->samplingPage()->imageWidget();
    QCOMPARE(label->size(), QSize(123, 45));
    window->commandAction(CmdZoomIn)->trigger();
    window->commandAction(CmdZoomActual)->trigger();
    QCOMPARE(label->size(), QSize(123, 45));
}

void TestColourImageWindowView::otherLevelsTakeTheRoundedProduct_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<int>("index");
    QTest::addColumn<QSize>("label");
    QTest::newRow("3x3 at 25% rounds 0.75 up") << QSize(3, 3) << 1 << QSize(1, 1);
    QTest::newRow("3x3 at 20% rounds 0.6 up") << QSize(3, 3) << 0 << QSize(1, 1);
    QTest::newRow("5x3 at 30%") << QSize(5, 3) << 2 << QSize(2, 1);
    QTest::newRow("halves round away from zero") << QSize(2, 6) << 8 << QSize(3, 8);
    QTest::newRow("101x7 at 150%") << QSize(101, 7) << 9 << QSize(152, 11);
    QTest::newRow("7x9 at 600%") << QSize(7, 9) << 15 << QSize(42, 54);
}

void TestColourImageWindowView::otherLevelsTakeTheRoundedProduct()
{
    QFETCH(QSize, image);
    QFETCH(int, index);
    QFETCH(QSize, label);
    auto window = openWindow(ImageWriter::gradient(image.width(), image.height()),
                             QStringLiteral("product%1.png").arg(index));
    QVERIFY(window);
    zoomTo(*window, index);
    QCOMPARE(window->samplingPage()->zoomIndex(), index);
    QCOMPARE(window->samplingPage()->imageWidget()->size(), label);
}

void TestColourImageWindowView::scrollBarsScaleByTheNewLevelsFactor()
{
    auto window = openWindow(ImageWriter::gradient(3000, 3000), "scroll.png");
    QVERIFY(window);
    CColourImageWindowView *view = window->samplingPage()->view();
    QScrollBar *h = view->horizontalScrollBar();
    QScrollBar *v = view->verticalScrollBar();
    h->setValue(400);
    v->setValue(300);
    const int hPage = h->pageStep();
    const int vPage = v->pageStep();
    window->commandAction(CmdZoomIn)->trigger(); // 1.25
    QCOMPARE(h->value(), int(1.25 * 400 + 0.25 * hPage * 0.5));
    QCOMPARE(v->value(), int(1.25 * 300 + 0.25 * vPage * 0.5));
    // The absolute factor again, not the step from 1.25 to 1.5.
    const int hBefore = h->value();
    window->commandAction(CmdZoomIn)->trigger(); // 1.5
    QCOMPARE(h->value(), int(1.5 * hBefore + 0.5 * h->pageStep() * 0.5));
    // Back at 100 % the rule leaves the bars where they are.
    const int vBefore = v->value();
    window->commandAction(CmdZoomActual)->trigger();
    QCOMPARE(v->value(), std::min(vBefore, v->maximum()));
}

void TestColourImageWindowView::cursorPositionMapsByTruncation_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QPoint>("widget");
    QTest::addColumn<QString>("text");
    QTest::newRow("zoom 2.0, x 5 reads 2") << 10 << QPoint(5, 9) << "Cursor Pos XY:(2,4)";
    QTest::newRow("zoom 0.5, x 5 reads 10") << 4 << QPoint(5, 3) << "Cursor Pos XY:(10,6)";
    QTest::newRow("zoom 1.0") << 7 << QPoint(17, 23) << "Cursor Pos XY:(17,23)";
    QTest::newRow("zoom 1.5, x 7 reads 4") << 9 << QPoint(7, 2) << "Cursor Pos XY:(4,1)";
    QTest::newRow("zoom 6.0") << 15 << QPoint(35, 36) << "Cursor Pos XY:(5,6)";
}

void TestColourImageWindowView::cursorPositionMapsByTruncation()
{
    QFETCH(int, index);
    QFETCH(QPoint, widget);
    QFETCH(QString, text);
    auto window = openWindow(ImageWriter::gradient(40, 40), "cursor.png");
    QVERIFY(window);
    zoomTo(*window, index);
    moveTo(window->samplingPage()->imageWidget(), widget);
    QCOMPARE(status(*window), text);
}

void TestColourImageWindowView::cursorBeyondTheRightEdgeReportsTheLastColumn()
{
    auto window = openWindow(ImageWriter::gradient(40, 30), "beyond.png");
    QVERIFY(window);
    zoomTo(*window, 10); // 2.0: the label is 80 x 60
    CImageWidget *label = window->samplingPage()->imageWidget();
    QCOMPARE(label->size(), QSize(80, 60));
    // A held button keeps the mouse on the picture while it goes past the edge.
    moveTo(label, QPoint(10, 10));
    press(label, QPoint(10, 10), Qt::LeftButton);
    moveTo(label, QPoint(95, 70));
    // (80 - 1) / 2 and (60 - 1) / 2, truncated.
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(39,29)"));
    moveTo(label, QPoint(-7, -3));
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(0,0)"));
    release(label, QPoint(-7, -3), Qt::LeftButton);
}

void TestColourImageWindowView::cursorExactlyOnTheRightEdgeKeepsItsCoordinate()
{
    auto window = openWindow(ImageWriter::gradient(40, 30), "edge.png");
    QVERIFY(window);
    zoomTo(*window, 4); // 0.5: the label is 20 x 15
    CImageWidget *label = window->samplingPage()->imageWidget();
    moveTo(label, QPoint(5, 5));
    press(label, QPoint(5, 5), Qt::LeftButton);
    moveTo(label, QPoint(20, 15));
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(40,30)"));
    moveTo(label, QPoint(21, 16));
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(38,28)"));
    release(label, QPoint(21, 16), Qt::LeftButton);
}

void TestColourImageWindowView::rubberBandDragShowsStartSizeAndPosition()
{
    auto window = openWindow(ImageWriter::gradient(60, 60), "band.png");
    QVERIFY(window);
    window->samplingPage()->processCommand(CmdPickRubberBand);
    zoomTo(*window, 10); // 2.0
    CImageWidget *label = window->samplingPage()->imageWidget();
    moveTo(label, QPoint(40, 30));
    press(label, QPoint(40, 30), Qt::LeftButton);
    moveTo(label, QPoint(11, 51));
    QCOMPARE(status(*window),
             QStringLiteral("Cursor Start XY:(20,15) Size WH:(15,10) Pos XY:(5,25)"));
    QCOMPARE(label->rubberBand()->geometry(), QRect(QPoint(11, 30), QPoint(40, 51)));
    QVERIFY(label->rubberBand()->isVisible());
    release(label, QPoint(11, 51), Qt::LeftButton);
    QVERIFY(!label->rubberBand()->isVisible());
    moveTo(label, QPoint(12, 52));
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(6,26)"));
}

void TestColourImageWindowView::leavingThePictureClearsTheStatusBar()
{
    auto window = openWindow(ImageWriter::gradient(20, 20), "leave.png");
    QVERIFY(window);
    CImageWidget *label = window->samplingPage()->imageWidget();
    moveTo(label, QPoint(5, 5));
    QCOMPARE(status(*window), QStringLiteral("Cursor Pos XY:(5,5)"));
    QVERIFY(label->underMouse());
    moveTo(label, QPoint(-30, -30));
    QVERIFY(!label->underMouse());
    QCOMPARE(status(*window), QString());
}

void TestColourImageWindowView::pickBoxFollowsTheCursor_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("pickSizeItem");
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("lineWidth");
    QTest::newRow("1x1 at 100%") << 7 << 0 << 3 << 1;
    QTest::newRow("5x5 at 200%") << 10 << 2 << 12 << 1;
    QTest::newRow("7x7 at 100% has a wider line") << 7 << 3 << 11 << 2;
    QTest::newRow("9x9 at 125%") << 8 << 4 << 15 << 2;
    QTest::newRow("3x3 at 30%") << 2 << 1 << 2 << 1;
}

void TestColourImageWindowView::pickBoxFollowsTheCursor()
{
    QFETCH(int, index);
    QFETCH(int, pickSizeItem);
    QFETCH(int, side);
    QFETCH(int, lineWidth);
    auto window = openWindow(ImageWriter::gradient(100, 100), "box.png");
    QVERIFY(window);
    zoomTo(*window, index);
    window->samplingPage()->pickSizeCombo()->setCurrentIndex(pickSizeItem);
    CImageWidget *label = window->samplingPage()->imageWidget();
    const QPoint at(14, 17);
    moveTo(label, at);
    QLabel *box = label->pickBox();
    QVERIFY(box->isVisible());
    QCOMPARE(box->size(), QSize(side, side));
    QCOMPARE(box->lineWidth(), lineWidth);
    QCOMPARE(box->frameShape(), QFrame::Box);
    QCOMPARE(box->pos(), QPoint(at.x() - side / 2, at.y() - side / 2));
}

void TestColourImageWindowView::pickBoxHidesWhenTheCursorLeaves()
{
    auto window = openWindow(ImageWriter::gradient(20, 20), "boxleave.png");
    QVERIFY(window);
    CImageWidget *label = window->samplingPage()->imageWidget();
    moveTo(label, QPoint(5, 5));
    QVERIFY(label->pickBox()->isVisible());
    moveTo(label, QPoint(-30, -30));
    QVERIFY(!label->pickBox()->isVisible());
}

void TestColourImageWindowView::rubberBandModeHidesThePickBox()
{
    auto window = openWindow(ImageWriter::gradient(20, 20), "boxband.png");
    QVERIFY(window);
    CImageWidget *label = window->samplingPage()->imageWidget();
    moveTo(label, QPoint(5, 5));
    QVERIFY(label->pickBox()->isVisible());
    window->samplingPage()->processCommand(CmdPickRubberBand);
    QVERIFY(!label->pickBox()->isVisible());
    moveTo(label, QPoint(8, 8));
    QVERIFY(!label->pickBox()->isVisible());
    window->samplingPage()->processCommand(CmdPickClick);
    QVERIFY(label->pickBox()->isVisible());
}

void TestColourImageWindowView::transparentPartsShowTheCheckerboard()
{
    const QString path = m_fixture.filePath("alpha.png");
    QVERIFY(ImageWriter::writeAlphaPng(path, 40, 20, QColor(10, 200, 30)));
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    QVERIFY(showWindow(*window));
    QVERIFY(openThroughDialog(*window, path));
    const QImage shown = window->samplingPage()->imageWidget()->grab().toImage();
    QCOMPARE(shown.size(), QSize(40, 20));
    QVERIFY(sameRgb(shown.pixel(2, 2), qRgb(220, 220, 220)));
    QVERIFY(sameRgb(shown.pixel(12, 2), qRgb(180, 180, 180)));
    QVERIFY(sameRgb(shown.pixel(12, 12), qRgb(220, 220, 220)));
    QVERIFY(sameRgb(shown.pixel(30, 5), qRgb(10, 200, 30)));
    // The picture itself keeps its transparent pixels.
    QCOMPARE(qAlpha(window->samplingPage()->view()->sourceImage().pixel(2, 2)), 0);
}

void TestColourImageWindowView::checkerboardCellsAlternateGreys()
{
    const QImage board = CColourImageWindowView::checkerboard(QSize(25, 15));
    QCOMPARE(board.format(), QImage::Format_RGB32);
    QCOMPARE(board.pixel(0, 0), qRgb(220, 220, 220));
    QCOMPARE(board.pixel(9, 9), qRgb(220, 220, 220));
    QCOMPARE(board.pixel(10, 0), qRgb(180, 180, 180));
    QCOMPARE(board.pixel(0, 10), qRgb(180, 180, 180));
    QCOMPARE(board.pixel(10, 10), qRgb(220, 220, 220));
    QCOMPARE(board.pixel(24, 14), qRgb(180, 180, 180));
}

void TestColourImageWindowView::zoomedInPixelsStayCrisp()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    image.setPixel(1, 1, qRgb(255, 255, 255));
    auto window = openWindow(image, "crisp.png");
    QVERIFY(window);
    zoomTo(*window, 13); // 4.0
    const QImage shown = window->samplingPage()->imageWidget()->grab().toImage();
    QCOMPARE(shown.size(), QSize(16, 16));
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool white = x / 4 == 1 && y / 4 == 1;
            QVERIFY2(sameRgb(shown.pixel(x, y), white ? qRgb(255, 255, 255) : qRgb(0, 0, 0)),
                     qPrintable(QStringLiteral("(%1,%2)").arg(x).arg(y)));
        }
    }
}

void TestColourImageWindowView::zoomedOutPictureIsPaintedWhole()
{
    QImage image(100, 50, QImage::Format_RGB32);
    image.fill(qRgb(200, 40, 90));
    auto window = openWindow(image, "whole.png");
    QVERIFY(window);
    zoomTo(*window, 0); // 0.2
    const QImage shown = window->samplingPage()->imageWidget()->grab().toImage();
    QCOMPARE(shown.size(), QSize(20, 10));
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            QVERIFY2(sameRgb(shown.pixel(x, y), qRgb(200, 40, 90)), qPrintable(QStringLiteral("(%1,%2) %3").arg(x).arg(y).arg(shown.pixel(x, y), 0, 16)));
}

void TestColourImageWindowView::paintingAPartDrawsOnlyThatPart()
{
    QImage image(50, 50, QImage::Format_RGB32);
    image.fill(qRgb(0, 128, 255));
    auto window = openWindow(image, "part.png");
    QVERIFY(window);
    zoomTo(*window, 10); // 2.0
    CImageWidget *label = window->samplingPage()->imageWidget();
    QImage canvas(label->size(), QImage::Format_RGB32);
    canvas.fill(qRgb(1, 2, 3));
    // The region's corner lands at the target offset.
    label->render(&canvas, QPoint(20, 30), QRegion(QRect(20, 30, 10, 6)), QWidget::RenderFlags());
    QVERIFY2(sameRgb(canvas.pixel(25, 33), qRgb(0, 128, 255)), qPrintable(QString::number(canvas.pixel(25, 33), 16)));
    QVERIFY(sameRgb(canvas.pixel(5, 5), qRgb(1, 2, 3)));
    QVERIFY(sameRgb(canvas.pixel(35, 33), qRgb(1, 2, 3)));
}

Q_DECLARE_METATYPE(QImage::Format)

// Picks and their spreads read 32-bit pixels straight from the picture: any
// other format is widened when shown, to the very colours pixel() reads.
void TestColourImageWindowView::everyFormatIsWidenedToPackedPixels_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QImage::Format>("widened");
    QTest::newRow("RGB32 kept") << QImage::Format_RGB32 << QImage::Format_RGB32;
    QTest::newRow("ARGB32 kept") << QImage::Format_ARGB32 << QImage::Format_ARGB32;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8 << QImage::Format_RGB32;
    QTest::newRow("Grayscale8") << QImage::Format_Grayscale8 << QImage::Format_RGB32;
    QTest::newRow("RGB888") << QImage::Format_RGB888 << QImage::Format_RGB32;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888 << QImage::Format_ARGB32;
    QTest::newRow("RGBA64") << QImage::Format_RGBA64 << QImage::Format_ARGB32;
}

void TestColourImageWindowView::everyFormatIsWidenedToPackedPixels()
{
    QFETCH(QImage::Format, format);
    QFETCH(QImage::Format, widened);
    QImage original(23, 17, QImage::Format_ARGB32);
    for (int y = 0; y < original.height(); ++y)
        for (int x = 0; x < original.width(); ++x)
            original.setPixel(x, y, qRgba((x * 11) & 255, (y * 13) & 255, (x * y) & 255, 255));
    const QImage picture = original.convertToFormat(format);
    CColourImageWindowView view;
    view.setImage(picture);
    QCOMPARE(view.sourceImage().format(), widened);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(qRgb(qRed(view.sourceImage().pixel(x, y)), qGreen(view.sourceImage().pixel(x, y)),
                          qBlue(view.sourceImage().pixel(x, y))),
                     qRgb(qRed(picture.pixel(x, y)), qGreen(picture.pixel(x, y)),
                          qBlue(picture.pixel(x, y))));
}

QTEST_MAIN(TestColourImageWindowView)
#include "tst_colourimagewindowview.moc"
