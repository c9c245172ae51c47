#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "colour/colouraverage.h"
#include "colour/colourformat.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/popupmenuchooser.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QRubberBand>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <cmath>
#include <memory>

using namespace SampleFixture;

namespace {

// The root mean square of a block of pixels, worked out here pixel by pixel.
RgbColour rmsOf(const QImage &image, const QRect &block)
{
    double sums[3] = {0, 0, 0};
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            sums[0] += std::pow(qRed(p) / 255.0, 2);
            sums[1] += std::pow(qGreen(p) / 255.0, 2);
            sums[2] += std::pow(qBlue(p) / 255.0, 2);
        }
    }
    const double n = double(block.width()) * block.height();
    return {std::sqrt(sums[0] / n), std::sqrt(sums[1] / n), std::sqrt(sums[2] / n)};
}

bool near(const RgbColour &a, const RgbColour &b)
{
    return std::abs(a.red - b.red) < 1e-9 && std::abs(a.green - b.green) < 1e-9
           && std::abs(a.blue - b.blue) < 1e-9;
}

QByteArray describe(const RgbColour &c)
{
    return QStringLiteral("(%1, %2, %3)").arg(c.red).arg(c.green).arg(c.blue).toLatin1();
}

QStringList shownValues(CColourImageWindow *page)
{
    QStringList values;
    for (int i = 0; i < 6; ++i)
        values << page->sampleValue(i)->text();
    return values;
}

} // namespace

#define COMPARE_COLOUR(actual, expected) \
    QVERIFY2(near(actual, expected), QByteArray(describe(actual) + " != " + describe(expected)).constData())

class TestColourImageWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void panelButtonsHaveTheirTextsIconsAndSize_data();
    void panelButtonsHaveTheirTextsIconsAndSize();
    void panelIsAFixedToolBarOnTheLeft();
    void pickSizeOffersFiveSquares();
    void pageStartsWithClickPickingAndSingleSelection();
    void sampleIsEmptyUntilTheFirstPick();
    void oneByOneClickReadsThePixelUnderTheCursor();
    void nineByNineClickAtTheTopLeftReadsTheClippedBlock();
    void nineByNineClickAtTheBottomRightReadsTheLastBlock();
    void clickOutsideTheImageChangesNothing();
    void otherButtonsDoNotPick();
    void rubberBandStopsOnePixelShortOfTheEdges();
    void rubberBandOfZeroScaledWidthChangesNothing();
    void releasingAnyButtonRereadsTheBand();
    void bandClickWithoutDragReadsNothing();
    void rgbRuleAveragesBlackAndWhiteToRootMeanSquare();
    void labRuleAveragesBlackAndWhiteThroughTheMeanLab();
    void multipleModeWeighsEachPickTheSame();
    void transparentPixelsArePickedNotTheCheckerboard();
    void indexedGifIsPickedAsRgb();
    void sampleShowsSwatchRgbAndLab();
    void sampleFollowsTheRgbDisplayFormat_data();
    void sampleFollowsTheRgbDisplayFormat();
    void refreshingTheTextsFollowsANewFormat();
    void switchingPickModeReturnsToOneByOne();
    void pickModeButtonsAreExclusive();
    void sampleSurvivesZoomAndModeChanges();
    void openingAnImageClearsTheSampleButKeepsTheModes();

private:
    std::unique_ptr<CMainWindow> openWindow(const QImage &image, const QString &name);

    GuiTestFixture m_fixture;
};

void TestColourImageWindow::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestColourImageWindow::init()
{
    m_fixture.reset();
}

std::unique_ptr<CMainWindow> TestColourImageWindow::openWindow(const QImage &image,
                                                               const QString &name)
{
    return openImageWindow(image, m_fixture.filePath(name));
}

void TestColourImageWindow::panelButtonsHaveTheirTextsIconsAndSize_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("checkable");
    QTest::newRow("13") << 13 << "Maintain Colour Library" << "sm_toolbar/btn_toolbar_maintain.png" << false;
    QTest::newRow("14") << 14 << "Match Library Colour" << "sm_toolbar/btn_toolbar_match.png" << false;
    QTest::newRow("15") << 15 << "Add Colour to DataSet" << "sm_toolbar/btn_toolbar_add_data.png" << false;
    QTest::newRow("16") << 16 << "Add Colour to Colour Library" << "sm_toolbar/btn_toolbar_add_lib.png" << false;
    QTest::newRow("17") << 17 << "Click Select Colour" << "sm_toolbar/btn_toolbar_pick.png" << true;
    QTest::newRow("18") << 18 << "Rubber Band Select Colour" << "sm_toolbar/btn_toolbar_pick_drag.png" << true;
    QTest::newRow("19") << 19 << "Single Selection" << "sm_toolbar/btn_toolbar_pick_single.png" << true;
    QTest::newRow("20") << 20 << "Multiple Selection" << "sm_toolbar/btn_toolbar_multi_done.png" << true;
    QTest::newRow("21") << 21 << "Clear Multiple Selection" << "sm_toolbar/btn_toolbar_multi_clear.png" << false;
}

void TestColourImageWindow::panelButtonsHaveTheirTextsIconsAndSize()
{
    QFETCH(int, command);
    QFETCH(QString, text);
    QFETCH(QString, icon);
    QFETCH(bool, checkable);
    CMainWindow window(AppContext::versionTitle());
    QToolButton *button = window.samplingPage()->commandButton(command);
    QVERIFY(button);
    QCOMPARE(button->defaultAction()->text(), text);
    QCOMPARE(button->isCheckable(), checkable);
    QCOMPARE(button->size(), QSize(46, 34));
    QCOMPARE(button->iconSize(), QSize(46, 34));
    QVERIFY(button->autoRaise());
    const QImage shown = button->defaultAction()->icon().pixmap(QSize(46, 34)).toImage();
    const QImage expected = QIcon(AppContext::widgetPrefix() + icon).pixmap(QSize(46, 34)).toImage();
    QVERIFY(!expected.isNull());
    QCOMPARE(shown, expected);
}

void TestColourImageWindow::panelIsAFixedToolBarOnTheLeft()
{
    CMainWindow window(AppContext::versionTitle());
    auto *panel = window.samplingPage()->findChild<QToolBar *>();
    QVERIFY(panel);
    QCOMPARE(panel->orientation(), Qt::Vertical);
    QCOMPARE(panel->allowedAreas(), Qt::LeftToolBarArea);
    QVERIFY(!panel->isMovable());
    QVERIFY(!panel->isFloatable());
    QVERIFY(panel->isAncestorOf(window.samplingPage()->pickSizeCombo()));
    QVERIFY(panel->isAncestorOf(window.samplingPage()->resultsTable()));
}

void TestColourImageWindow::pickSizeOffersFiveSquares()
{
    CMainWindow window(AppContext::versionTitle());
    QComboBox *combo = window.samplingPage()->pickSizeCombo();
    QCOMPARE(combo->count(), 5);
    const QStringList texts{"1x1", "3x3", "5x5", "7x7", "9x9"};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(combo->itemText(i), texts.at(i));
        QCOMPARE(combo->itemData(i).toInt(), 2 * i + 1);
    }
    combo->setCurrentIndex(3);
    QCOMPARE(window.samplingPage()->imageWidget()->pickSize(), 7);
    QCOMPARE(window.samplingPage()->imageWidget()->lineWidth(), 2);
    combo->setCurrentIndex(1);
    QCOMPARE(window.samplingPage()->imageWidget()->pickSize(), 3);
    QCOMPARE(window.samplingPage()->imageWidget()->lineWidth(), 1);
}

void TestColourImageWindow::pageStartsWithClickPickingAndSingleSelection()
{
    CMainWindow window(AppContext::versionTitle());
    CColourImageWindow *page = window.samplingPage();
    QCOMPARE(page->pickMode(), 17);
    QCOMPARE(page->selectionMode(), 19);
    QVERIFY(page->commandButton(CmdPickClick)->isChecked());
    QVERIFY(!page->commandButton(CmdPickRubberBand)->isChecked());
    QVERIFY(page->commandButton(CmdSelectSingle)->isChecked());
    QVERIFY(!page->commandButton(CmdSelectMultiple)->isChecked());
    QVERIFY(!page->imageWidget()->isRubberBandMode());
}

void TestColourImageWindow::sampleIsEmptyUntilTheFirstPick()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    CColourImageWindow *page = window.samplingPage();
    QVERIFY(!page->isSamplePresent());
    QVERIFY(!page->sampleCaption()->isVisible());
    for (int i = 0; i < 6; ++i) {
        QVERIFY(!page->sampleValue(i)->isVisible());
        QVERIFY(!page->sampleValueCaption(i)->isVisible());
        QVERIFY(page->sampleValue(i)->sizePolicy().retainSizeWhenHidden());
    }
    QCOMPARE(page->swatch()->styleSheet(), QStringLiteral("background:transparent;"));
    QCOMPARE(page->swatchFrame()->styleSheet(), QStringLiteral("border:1px transparent"));
    QCOMPARE(page->swatchFrame()->size(), QSize(34, 51));
    for (int command : {14, 15, 16})
        QVERIFY(!page->commandButton(command)->isEnabled());
}

void TestColourImageWindow::oneByOneClickReadsThePixelUnderTheCursor()
{
    auto window = openWindow(ImageWriter::gradient(20, 20), "under.png");
    QVERIFY(window);
    zoomTo(*window, 10); // 2.0
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(5, 9));
    QVERIFY(page->isSamplePresent());
    // Pixel (2, 4) of the gradient is (20, 40, 6).
    COMPARE_COLOUR(page->sample(), (RgbColour{20 / 255.0, 40 / 255.0, 6 / 255.0}));
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"20", "40", "6"}));
}

void TestColourImageWindow::nineByNineClickAtTheTopLeftReadsTheClippedBlock()
{
    const QImage image = ImageWriter::gradient(30, 20);
    auto window = openWindow(image, "topleft.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->pickSizeCombo()->setCurrentIndex(4);
    leftClick(page->imageWidget(), QPoint(0, 0));
    COMPARE_COLOUR(page->sample(), rmsOf(image, QRect(0, 0, 5, 5)));
}

void TestColourImageWindow::nineByNineClickAtTheBottomRightReadsTheLastBlock()
{
    const QImage image = ImageWriter::gradient(30, 20);
    auto window = openWindow(image, "bottomright.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->pickSizeCombo()->setCurrentIndex(4);
    leftClick(page->imageWidget(), QPoint(29, 19));
    COMPARE_COLOUR(page->sample(), rmsOf(image, QRect(QPoint(25, 15), QPoint(29, 19))));
}

void TestColourImageWindow::clickOutsideTheImageChangesNothing()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "outside.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    CImageWidget *label = page->imageWidget();
    // Only an event beyond the label's bounds can land outside the picture.
    QTest::mousePress(label, Qt::LeftButton, Qt::NoModifier, QPoint(40, 40));
    QVERIFY(!page->isSamplePresent());
    QVERIFY(!page->sampleValue(0)->isVisible());
    leftClick(label, QPoint(3, 3));
    const RgbColour before = page->sample();
    QTest::mousePress(label, Qt::LeftButton, Qt::NoModifier, QPoint(-20, 5));
    COMPARE_COLOUR(page->sample(), before);
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"30", "30", "6"}));
}

void TestColourImageWindow::otherButtonsDoNotPick()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "right.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    moveTo(page->imageWidget(), QPoint(4, 4));
    // The right button opens the view's own menu (colour vision); it is
    // closed unchosen.
    PopupMenuChooser closeMenu{QString()};
    press(page->imageWidget(), QPoint(4, 4), Qt::RightButton);
    release(page->imageWidget(), QPoint(4, 4), Qt::RightButton);
    press(page->imageWidget(), QPoint(4, 4), Qt::MiddleButton);
    release(page->imageWidget(), QPoint(4, 4), Qt::MiddleButton);
    QVERIFY(!page->isSamplePresent());
}

void TestColourImageWindow::rubberBandStopsOnePixelShortOfTheEdges()
{
    const QImage image = ImageWriter::gradient(10, 10);
    auto window = openWindow(image, "band.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    drag(page->imageWidget(), QPoint(0, 0), QPoint(9, 9));
    QVERIFY(page->isSamplePresent());
    COMPARE_COLOUR(page->sample(), rmsOf(image, QRect(0, 0, 9, 9)));
    QVERIFY(!near(page->sample(), rmsOf(image, QRect(0, 0, 10, 10))));
}

void TestColourImageWindow::rubberBandOfZeroScaledWidthChangesNothing()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "narrow.png");
    QVERIFY(window);
    zoomTo(*window, 14); // 5.0
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    drag(page->imageWidget(), QPoint(10, 10), QPoint(12, 30));
    QVERIFY(!page->isSamplePresent());
    QVERIFY(!page->sampleValue(0)->isVisible());
}

void TestColourImageWindow::releasingAnyButtonRereadsTheBand()
{
    const QImage image = ImageWriter::gradient(20, 20);
    auto window = openWindow(image, "reread.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    drag(page->imageWidget(), QPoint(2, 2), QPoint(8, 6));
    COMPARE_COLOUR(page->sample(), rmsOf(image, QRect(2, 2, 7, 5)));
    // Moving on stretches the band from its origin even with no button held;
    // the right button does not start a new band, but its release reads it.
    page->setSample({0.5, 0.5, 0.5}, false);
    moveTo(page->imageWidget(), QPoint(12, 10));
    press(page->imageWidget(), QPoint(12, 10), Qt::RightButton);
    release(page->imageWidget(), QPoint(12, 10), Qt::RightButton);
    COMPARE_COLOUR(page->sample(), rmsOf(image, QRect(QPoint(2, 2), QPoint(12, 10))));
}

void TestColourImageWindow::bandClickWithoutDragReadsNothing()
{
    const QImage image = ImageWriter::gradient(20, 20);
    auto window = openWindow(image, "banddot.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    leftClick(page->imageWidget(), QPoint(15, 15));
    // The band starts as the origin with an invalid size: nothing to read.
    QVERIFY(!page->isSamplePresent());
    QVERIFY(page->imageWidget()->rubberBand()->geometry().isEmpty());
}

void TestColourImageWindow::rgbRuleAveragesBlackAndWhiteToRootMeanSquare()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    auto window = openWindow(image, "bw-rgb.png");
    QVERIFY(window);
    window->settings()->rgbFormat = 1;
    CColourImageWindow *page = window->samplingPage();
    page->pickSizeCombo()->setCurrentIndex(1); // 3x3 over both pixels
    leftClick(page->imageWidget(), QPoint(0, 0));
    COMPARE_COLOUR(page->sample(), (RgbColour{std::sqrt(0.5), std::sqrt(0.5), std::sqrt(0.5)}));
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"0.71", "0.71", "0.71"}));
}

void TestColourImageWindow::labRuleAveragesBlackAndWhiteThroughTheMeanLab()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    auto window = openWindow(image, "bw-lab.png");
    QVERIFY(window);
    window->settings()->rgbAverage = false;
    CColourImageWindow *page = window->samplingPage();
    page->pickSizeCombo()->setCurrentIndex(1);
    leftClick(page->imageWidget(), QPoint(0, 0));
    const RgbColour expected = averageColours({{0, 0, 0}, {1, 1, 1}}, false);
    COMPARE_COLOUR(page->sample(), expected);
    QVERIFY(std::abs(page->sample().red - std::sqrt(0.5)) > 0.1);
    QCOMPARE(shownValues(page).at(3), QStringLiteral("50.00"));
}

void TestColourImageWindow::multipleModeWeighsEachPickTheSame()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    image.setPixel(15, 15, qRgb(255, 255, 255));
    auto window = openWindow(image, "weigh.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdSelectMultiple)->click();
    page->pickSizeCombo()->setCurrentIndex(4);
    leftClick(page->imageWidget(), QPoint(5, 5)); // 81 black pixels
    page->pickSizeCombo()->setCurrentIndex(0);
    leftClick(page->imageWidget(), QPoint(15, 15)); // one white pixel
    QCOMPARE(page->multipleCount(), 2);
    COMPARE_COLOUR(page->sample(), (RgbColour{std::sqrt(0.5), std::sqrt(0.5), std::sqrt(0.5)}));
}

void TestColourImageWindow::transparentPixelsArePickedNotTheCheckerboard()
{
    const QString path = m_fixture.filePath("clear.png");
    QVERIFY(ImageWriter::writeAlphaPng(path, 40, 20, QColor(10, 200, 30)));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    QVERIFY(openThroughDialog(window, path));
    CColourImageWindow *page = window.samplingPage();
    leftClick(page->imageWidget(), QPoint(3, 3));
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"0", "0", "0"}));
    leftClick(page->imageWidget(), QPoint(30, 3));
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"10", "200", "30"}));
}

void TestColourImageWindow::indexedGifIsPickedAsRgb()
{
    const QString path = m_fixture.filePath("pick.gif");
    QVERIFY(ImageWriter::writeIndexedGif(path, 10, 4, {qRgb(255, 0, 0), qRgb(0, 0, 255)}));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    QVERIFY(openThroughDialog(window, path));
    CColourImageWindow *page = window.samplingPage();
    leftClick(page->imageWidget(), QPoint(8, 1));
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"0", "0", "255"}));
}

void TestColourImageWindow::sampleShowsSwatchRgbAndLab()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    CColourImageWindow *page = window.samplingPage();
    page->setSample({1.0, 0.5, 0.0}, false);
    QVERIFY(page->isSamplePresent());
    QCOMPARE(page->swatch()->styleSheet(), QStringLiteral("background-color:%1;").arg(colourName(1.0, 0.5, 0.0)));
    QCOMPARE(page->swatchFrame()->styleSheet(), QStringLiteral("border:1px solid black"));
    const QStringList lab = formatLab(1.0, 0.5, 0.0, 2);
    QCOMPARE(shownValues(page), (QStringList{"255", "127", "0"} + lab));
    QVERIFY(page->sampleCaption()->isVisible());
    QCOMPARE(page->sampleCaption()->text(), QStringLiteral("RGB=Red,Green,Blue"));
    const QStringList captions{"R:", "G:", "B:", "L*:", "a*:", "b*:"};
    for (int i = 0; i < 6; ++i) {
        QVERIFY(page->sampleValue(i)->isVisible());
        QCOMPARE(page->sampleValueCaption(i)->text(), captions.at(i));
    }
    for (int command : {14, 15, 16})
        QVERIFY(page->commandButton(command)->isEnabled());
    page->setSample({1.0, 1.0, 1.0}, true);
    QVERIFY(!page->isSamplePresent());
    QVERIFY(!page->sampleValue(3)->isVisible());
    QCOMPARE(page->swatch()->styleSheet(), QStringLiteral("background:transparent;"));
}

void TestColourImageWindow::sampleFollowsTheRgbDisplayFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("integer") << 0 << QStringList{"127", "255", "0"};
    QTest::newRow("decimal") << 1 << QStringList{"0.50", "1.00", "0.00"};
    QTest::newRow("hex") << 2 << QStringList{"0x7f", "0xff", "0x00"};
}

void TestColourImageWindow::sampleFollowsTheRgbDisplayFormat()
{
    QFETCH(int, format);
    QFETCH(QStringList, texts);
    CMainWindow window(AppContext::versionTitle());
    window.settings()->rgbFormat = format;
    window.samplingPage()->setSample({0.5, 1.0, 0.0}, false);
    QCOMPARE(shownValues(window.samplingPage()).mid(0, 3), texts);
}

void TestColourImageWindow::refreshingTheTextsFollowsANewFormat()
{
    CMainWindow window(AppContext::versionTitle());
    CColourImageWindow *page = window.samplingPage();
    page->setSample({0.5, 1.0, 0.0}, false);
    window.settings()->rgbFormat = 2;
    page->refreshSampleText();
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"0x7f", "0xff", "0x00"}));
    page->setSample({1, 1, 1}, true);
    window.settings()->rgbFormat = 0;
    page->refreshSampleText();
    QCOMPARE(shownValues(page).mid(0, 3), (QStringList{"0x7f", "0xff", "0x00"}));
}

void TestColourImageWindow::switchingPickModeReturnsToOneByOne()
{
    CMainWindow window(AppContext::versionTitle());
    CColourImageWindow *page = window.samplingPage();
    page->pickSizeCombo()->setCurrentIndex(3);
    page->commandButton(CmdPickRubberBand)->click();
    QCOMPARE(page->pickSizeCombo()->currentText(), QStringLiteral("1x1"));
    QCOMPARE(page->imageWidget()->pickSize(), 1);
    page->pickSizeCombo()->setCurrentIndex(2);
    page->commandButton(CmdPickClick)->click();
    QCOMPARE(page->imageWidget()->pickSize(), 1);
    QCOMPARE(page->imageWidget()->lineWidth(), 1);
}

void TestColourImageWindow::pickModeButtonsAreExclusive()
{
    CMainWindow window(AppContext::versionTitle());
    CColourImageWindow *page = window.samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    QCOMPARE(page->pickMode(), 18);
    QVERIFY(page->imageWidget()->isRubberBandMode());
    QVERIFY(page->commandButton(CmdPickRubberBand)->isChecked());
    QVERIFY(!page->commandButton(CmdPickClick)->isChecked());
    // Pressing the checked button again keeps it checked.
    page->commandButton(CmdPickRubberBand)->click();
    QVERIFY(page->commandButton(CmdPickRubberBand)->isChecked());
    page->commandButton(CmdPickClick)->click();
    QVERIFY(!page->imageWidget()->isRubberBandMode());
    QVERIFY(page->commandButton(CmdPickClick)->isChecked());
    QVERIFY(!page->commandButton(CmdPickRubberBand)->isChecked());
    page->commandButton(CmdSelectMultiple)->click();
    QVERIFY(page->commandButton(CmdSelectMultiple)->isChecked());
    QVERIFY(!page->commandButton(CmdSelectSingle)->isChecked());
    QCOMPARE(page->selectionMode(), 20);
}

void TestColourImageWindow::sampleSurvivesZoomAndModeChanges()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "survive.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(1, 2));
    const QStringList shown = shownValues(page);
    window->commandAction(CmdZoomIn)->trigger();
    page->commandButton(CmdPickRubberBand)->click();
    page->pickSizeCombo()->setCurrentIndex(2);
    QVERIFY(page->isSamplePresent());
    QCOMPARE(shownValues(page), shown);
}

void TestColourImageWindow::openingAnImageClearsTheSampleButKeepsTheModes()
{
    auto window = openWindow(ImageWriter::gradient(10, 10), "keep1.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(1, 2));
    page->commandButton(CmdPickRubberBand)->click();
    page->commandButton(CmdSelectMultiple)->click();
    const QString next = m_fixture.filePath("keep2.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(12, 12), next));
    QVERIFY(openThroughDialog(*window, next));
    QVERIFY(!page->isSamplePresent());
    QCOMPARE(page->pickMode(), 18);
    QCOMPARE(page->selectionMode(), 20);
    QVERIFY(page->commandButton(CmdPickRubberBand)->isChecked());
    QVERIFY(page->imageWidget()->isRubberBandMode());
    // The box may show again on hover; a press still starts a band.
    moveTo(page->imageWidget(), QPoint(3, 3));
    QVERIFY(page->imageWidget()->pickBox()->isVisible());
    drag(page->imageWidget(), QPoint(3, 3), QPoint(8, 8));
    QCOMPARE(page->multipleCount(), 1);
}

QTEST_MAIN(TestColourImageWindow)
#include "tst_colourimagewindow.moc"
