#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "colour/colouraverage.h"
#include "colour/colourformat.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/multipleselect.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QtTest>

#include <cmath>
#include <memory>

using namespace SampleFixture;

namespace {

// Eight columns of distinct colours, each 10 pixels wide, on a 100 x 20 image;
// the last two columns repeat the first two.
const QRgb kColumns[] = {qRgb(255, 0, 0), qRgb(0, 0, 255),   qRgb(0, 255, 0),
                         qRgb(40, 80, 120), qRgb(200, 10, 90), qRgb(5, 5, 5),
                         qRgb(250, 250, 0), qRgb(0, 250, 250), qRgb(255, 0, 0),
                         qRgb(0, 0, 255)};

QImage columnsImage()
{
    QImage image(100, 20, QImage::Format_RGB32);
    for (int x = 0; x < 100; ++x)
        for (int y = 0; y < 20; ++y)
            image.setPixel(x, y, kColumns[x / 10]);
    return image;
}

RgbColour colourOf(QRgb p)
{
    return {qRed(p) / 255.0, qGreen(p) / 255.0, qBlue(p) / 255.0};
}

bool near(const RgbColour &a, const RgbColour &b)
{
    return std::abs(a.red - b.red) < 1e-9 && std::abs(a.green - b.green) < 1e-9
           && std::abs(a.blue - b.blue) < 1e-9;
}

QRgb inverted(QRgb p)
{
    return qRgb(255 - qRed(p), 255 - qGreen(p), 255 - qBlue(p));
}

QList<int> markNumbers(CImageWidget *label)
{
    QList<int> numbers;
    for (const CImageWidget::SelectionMark &mark : label->selectionMarks())
        numbers << mark.number;
    return numbers;
}

} // namespace

class TestMultipleSelect : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void rowsAreNumberedAndHidden();
    void eachPickFillsTheNextRow();
    void ninthPickShowsTheMaximumAndKeepsTheSample();
    void clearingAnyEntryHidesTheMaximumNotice();
    void clearingEntryThreeOfFiveMovesTheLaterEntriesUp();
    void clearingTheLastEntryKeepsTheSampleAndDisablesClear();
    void redAndBlueAverageToRootMeanSquare();
    void rowSwatchShowsItsColourAndValues();
    void clearMultipleSelectionEmptiesTheListAndTheMarks();
    void pressingMultipleAgainEmptiesTheList();
    void switchingToSingleKeepsTheSample();
    void marksInvertThePictureUnderThem();
    void marksScaleWithTheZoom();
    void markTouchingTheLeftEdgeStartsItsFrameAtColumnOne();
    void markNearTheRightHalfPutsItsNumberOnTheLeft();
    void wideMarkIsPulledInFromTheRightEdge();
    void newImageStartsWithoutMarks();
    void settingsChangeRendersTheRowsAgain();

private:
    std::unique_ptr<CMainWindow> openWindow(const QImage &image, const QString &name);
    // Multiple mode on, then one 1x1 click in the middle of each column.
    void pickColumns(CMainWindow &window, const QList<int> &columns);

    GuiTestFixture m_fixture;
};

void TestMultipleSelect::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMultipleSelect::init()
{
    m_fixture.reset();
}

std::unique_ptr<CMainWindow> TestMultipleSelect::openWindow(const QImage &image,
                                                            const QString &name)
{
    return openImageWindow(image, m_fixture.filePath(name));
}

void TestMultipleSelect::pickColumns(CMainWindow &window, const QList<int> &columns)
{
    CColourImageWindow *page = window.samplingPage();
    if (page->selectionMode() != CmdSelectMultiple)
        page->commandButton(CmdSelectMultiple)->click();
    for (int column : columns)
        leftClick(page->imageWidget(), QPoint(column * 10 + 5, 10));
}

void TestMultipleSelect::rowsAreNumberedAndHidden()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    CColourImageWindow *page = window.samplingPage();
    for (int position = 0; position < 8; ++position) {
        CMultipleSelect *entry = page->multipleRow(position);
        QVERIFY(!entry->inUse());
        QVERIFY(!entry->row()->isVisible());
        QCOMPARE(entry->rect(), QRect(QPoint(0, 0), QPoint(-1, -1)));
        const QList<QLabel *> labels = entry->row()->findChildren<QLabel *>();
        QVERIFY(!labels.isEmpty());
        QCOMPARE(labels.first()->text(), QStringLiteral("%1:").arg(position + 1));
        QCOMPARE(entry->clearButton()->size(), QSize(16, 16));
        QCOMPARE(entry->clearButton()->defaultAction()->text(), QString());
        QCOMPARE(entry->swatch()->parentWidget()->styleSheet(), QStringLiteral("border:1px solid black"));
        QCOMPARE(entry->swatch()->parentWidget()->size(), QSize(16, 16));
    }
    QVERIFY(!page->commandButton(CmdClearMultiple)->isEnabled());
    QVERIFY(!page->maximumNotice()->isVisible());
    QCOMPARE(page->maximumNotice()->text(),
             QStringLiteral("<font color='Crimson'>Maximum 8 Items</font>"));
}

void TestMultipleSelect::eachPickFillsTheNextRow()
{
    auto window = openWindow(columnsImage(), "fill.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2});
    CColourImageWindow *page = window->samplingPage();
    QCOMPARE(page->multipleCount(), 3);
    for (int position = 0; position < 3; ++position) {
        QVERIFY(page->multipleRow(position)->row()->isVisible());
        QCOMPARE(page->multipleRow(position)->rect(), QRect(position * 10 + 5, 10, 1, 1));
    }
    QVERIFY(!page->multipleRow(3)->row()->isVisible());
    QVERIFY(page->commandButton(CmdClearMultiple)->isEnabled());
    QCOMPARE(markNumbers(page->imageWidget()), (QList<int>{1, 2, 3}));
}

void TestMultipleSelect::ninthPickShowsTheMaximumAndKeepsTheSample()
{
    auto window = openWindow(columnsImage(), "ninth.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2, 3, 4, 5, 6, 7});
    CColourImageWindow *page = window->samplingPage();
    QCOMPARE(page->multipleCount(), 8);
    QVERIFY(!page->maximumNotice()->isVisible());
    const RgbColour eight = page->sample();
    pickColumns(*window, {9});
    QCOMPARE(page->multipleCount(), 8);
    QVERIFY(page->maximumNotice()->isVisible());
    QVERIFY(near(page->sample(), eight));
    QCOMPARE(markNumbers(page->imageWidget()), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

void TestMultipleSelect::clearingAnyEntryHidesTheMaximumNotice()
{
    auto window = openWindow(columnsImage(), "notice.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2, 3, 4, 5, 6, 7, 8});
    CColourImageWindow *page = window->samplingPage();
    QVERIFY(page->maximumNotice()->isVisible());
    page->multipleRow(5)->clearButton()->click();
    QVERIFY(!page->maximumNotice()->isVisible());
    QCOMPARE(page->multipleCount(), 7);
}

void TestMultipleSelect::clearingEntryThreeOfFiveMovesTheLaterEntriesUp()
{
    auto window = openWindow(columnsImage(), "three.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2, 3, 4});
    CColourImageWindow *page = window->samplingPage();
    page->multipleRow(2)->clearButton()->click(); // entry 3
    QCOMPARE(page->multipleCount(), 4);
    QVERIFY(near(page->multipleRow(2)->colour(), colourOf(kColumns[3])));
    QVERIFY(near(page->multipleRow(3)->colour(), colourOf(kColumns[4])));
    QCOMPARE(page->multipleRow(2)->rect(), QRect(35, 10, 1, 1));
    QCOMPARE(page->multipleRow(3)->rect(), QRect(45, 10, 1, 1));
    QVERIFY(page->multipleRow(3)->row()->isVisible());
    QVERIFY(!page->multipleRow(4)->row()->isVisible());
    // The marks on the picture are renumbered with them.
    const QVector<CImageWidget::SelectionMark> marks = page->imageWidget()->selectionMarks();
    QCOMPARE(marks.size(), 4);
    QCOMPARE(marks.at(2).number, 3);
    QCOMPARE(marks.at(2).inner, QRect(QPoint(34, 9), QPoint(36, 11)));
    QCOMPARE(marks.at(3).number, 4);
    QCOMPARE(marks.at(3).inner, QRect(QPoint(44, 9), QPoint(46, 11)));
    const RgbColour expected = averageColours(
        {colourOf(kColumns[0]), colourOf(kColumns[1]), colourOf(kColumns[3]), colourOf(kColumns[4])},
        true);
    QVERIFY(near(page->sample(), expected));
    QVERIFY(page->commandButton(CmdClearMultiple)->isEnabled());
}

void TestMultipleSelect::clearingTheLastEntryKeepsTheSampleAndDisablesClear()
{
    auto window = openWindow(columnsImage(), "last.png");
    QVERIFY(window);
    pickColumns(*window, {3});
    CColourImageWindow *page = window->samplingPage();
    const QString shown = page->sampleValue(0)->text();
    page->multipleRow(0)->clearButton()->click();
    QCOMPARE(page->multipleCount(), 0);
    QVERIFY(page->isSamplePresent());
    QVERIFY(near(page->sample(), colourOf(kColumns[3])));
    QCOMPARE(page->sampleValue(0)->text(), shown);
    QVERIFY(!page->commandButton(CmdClearMultiple)->isEnabled());
    QVERIFY(page->imageWidget()->selectionMarks().isEmpty());
}

void TestMultipleSelect::redAndBlueAverageToRootMeanSquare()
{
    auto window = openWindow(columnsImage(), "redblue.png");
    QVERIFY(window);
    window->settings()->rgbFormat = 1;
    pickColumns(*window, {0, 1});
    CColourImageWindow *page = window->samplingPage();
    QVERIFY(near(page->sample(), (RgbColour{std::sqrt(0.5), 0.0, std::sqrt(0.5)})));
    QCOMPARE(page->sampleValue(0)->text(), QStringLiteral("0.71"));
    QCOMPARE(page->sampleValue(1)->text(), QStringLiteral("0.00"));
    QCOMPARE(page->sampleValue(2)->text(), QStringLiteral("0.71"));
}

void TestMultipleSelect::rowSwatchShowsItsColourAndValues()
{
    auto window = openWindow(columnsImage(), "swatch.png");
    QVERIFY(window);
    pickColumns(*window, {3}); // (40, 80, 120)
    QLabel *swatch = window->samplingPage()->multipleRow(0)->swatch();
    const RgbColour c = colourOf(kColumns[3]);
    const QStringList rgb = formatRgb(c.red, c.green, c.blue, 2, false, 0);
    const QStringList lab = formatLab(c.red, c.green, c.blue, 2);
    QCOMPARE(swatch->toolTip(), QStringLiteral("R:%1, G:%2, B:%3<br />L:%4, a:%5, b:%6")
                                    .arg(rgb.at(0), rgb.at(1), rgb.at(2), lab.at(0), lab.at(1), lab.at(2)));
    QCOMPARE(swatch->styleSheet(),
             QStringLiteral("QLabel {background-color:rgb(40,80,120);} QToolTip {border:2px solid "
                            "Goldenrod; background-color:LemonChiffon; padding:3px;}"));
}

void TestMultipleSelect::clearMultipleSelectionEmptiesTheListAndTheMarks()
{
    auto window = openWindow(columnsImage(), "clearall.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2});
    CColourImageWindow *page = window->samplingPage();
    const RgbColour sample = page->sample();
    page->commandButton(CmdClearMultiple)->click();
    QCOMPARE(page->multipleCount(), 0);
    for (int position = 0; position < 8; ++position)
        QVERIFY(!page->multipleRow(position)->row()->isVisible());
    QVERIFY(!page->commandButton(CmdClearMultiple)->isEnabled());
    QVERIFY(page->imageWidget()->selectionMarks().isEmpty());
    QVERIFY(near(page->sample(), sample));
    pickColumns(*window, {4});
    QCOMPARE(markNumbers(page->imageWidget()), (QList<int>{1}));
    QVERIFY(near(page->sample(), colourOf(kColumns[4])));
}

void TestMultipleSelect::pressingMultipleAgainEmptiesTheList()
{
    auto window = openWindow(columnsImage(), "again.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1, 2, 3, 4, 5, 6, 7, 8});
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdSelectMultiple)->click();
    QCOMPARE(page->selectionMode(), CmdSelectMultiple);
    QVERIFY(page->commandButton(CmdSelectMultiple)->isChecked());
    QCOMPARE(page->multipleCount(), 0);
    QVERIFY(!page->maximumNotice()->isVisible());
    QVERIFY(!page->commandButton(CmdClearMultiple)->isEnabled());
    QVERIFY(page->imageWidget()->selectionMarks().isEmpty());
}

void TestMultipleSelect::switchingToSingleKeepsTheSample()
{
    auto window = openWindow(columnsImage(), "single.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1});
    CColourImageWindow *page = window->samplingPage();
    const RgbColour sample = page->sample();
    page->commandButton(CmdSelectSingle)->click();
    QCOMPARE(page->multipleCount(), 0);
    QVERIFY(page->isSamplePresent());
    QVERIFY(near(page->sample(), sample));
    leftClick(page->imageWidget(), QPoint(25, 5));
    QVERIFY(near(page->sample(), colourOf(kColumns[2])));
    QCOMPARE(page->multipleCount(), 0);
}

void TestMultipleSelect::marksInvertThePictureUnderThem()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    auto window = openWindow(image, "invert.png");
    QVERIFY(window);
    window->samplingPage()->commandButton(CmdSelectMultiple)->click();
    CImageWidget *label = window->samplingPage()->imageWidget();
    leftClick(label, QPoint(10, 10));
    moveTo(label, QPoint(-50, -50)); // the pick box would hide the mark
    const QImage shown = label->grab().toImage();
    const QRgb plain = qRgb(10, 20, 30);
    QVERIFY(sameRgb(shown.pixel(9, 9), inverted(plain)));   // inner frame
    QVERIFY(sameRgb(shown.pixel(11, 10), inverted(plain))); // inner frame
    QVERIFY(sameRgb(shown.pixel(10, 10), plain));           // the picked pixel
    QVERIFY(sameRgb(shown.pixel(8, 12), inverted(plain)));  // outer frame
    QVERIFY(sameRgb(shown.pixel(13, 13), plain));
    // The number sits right of the mark, in the left half of the picture.
    int changed = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 15; x < 40; ++x)
            changed += sameRgb(shown.pixel(x, y), plain) ? 0 : 1;
    QVERIFY(changed > 0);
    // The picture itself is untouched.
    QCOMPARE(window->samplingPage()->view()->sourceImage().pixel(9, 9), plain);
}

void TestMultipleSelect::marksScaleWithTheZoom()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    auto window = openWindow(image, "scaled.png");
    QVERIFY(window);
    zoomTo(*window, 10); // 2.0
    window->samplingPage()->commandButton(CmdSelectMultiple)->click();
    CImageWidget *label = window->samplingPage()->imageWidget();
    leftClick(label, QPoint(21, 21)); // image pixel (10, 10)
    moveTo(label, QPoint(-50, -50)); // the pick box would hide the mark
    const QImage shown = label->grab().toImage();
    const QRgb plain = qRgb(10, 20, 30);
    // Image column 9 is widget columns 18 and 19.
    QVERIFY(sameRgb(shown.pixel(18, 20), inverted(plain)));
    QVERIFY(sameRgb(shown.pixel(19, 21), inverted(plain)));
    QVERIFY(sameRgb(shown.pixel(20, 20), plain));
    QVERIFY(sameRgb(shown.pixel(16, 24), inverted(plain)));
}

void TestMultipleSelect::markTouchingTheLeftEdgeStartsItsFrameAtColumnOne()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    auto window = openWindow(image, "leftedge.png");
    QVERIFY(window);
    window->samplingPage()->commandButton(CmdSelectMultiple)->click();
    CImageWidget *label = window->samplingPage()->imageWidget();
    leftClick(label, QPoint(0, 8));
    const CImageWidget::SelectionMark mark = label->selectionMarks().first();
    QCOMPARE(mark.inner.left(), 1);
    QCOMPARE(mark.outer.left(), 0);
    moveTo(label, QPoint(-50, -50)); // the pick box would hide the mark
    const QImage shown = label->grab().toImage();
    QVERIFY(sameRgb(shown.pixel(1, 8), inverted(qRgb(200, 100, 50))));
    QVERIFY(sameRgb(shown.pixel(0, 8), inverted(qRgb(200, 100, 50))));
}

void TestMultipleSelect::markNearTheRightHalfPutsItsNumberOnTheLeft()
{
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    auto window = openWindow(image, "numberleft.png");
    QVERIFY(window);
    window->samplingPage()->commandButton(CmdSelectMultiple)->click();
    CImageWidget *label = window->samplingPage()->imageWidget();
    leftClick(label, QPoint(5, 15));
    leftClick(label, QPoint(45, 15));
    const QVector<CImageWidget::SelectionMark> marks = label->selectionMarks();
    QCOMPARE(marks.at(0).textBox.left(), marks.at(0).outer.left() + marks.at(0).outer.width() + 2);
    QVERIFY(marks.at(1).textBox.right() < marks.at(1).outer.left() - 1);
    QVERIFY(marks.at(1).textBox.right() >= marks.at(1).outer.left() - 4);
}

void TestMultipleSelect::wideMarkIsPulledInFromTheRightEdge()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    auto window = openWindow(image, "wide.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdSelectMultiple)->click();
    page->commandButton(CmdPickRubberBand)->click();
    drag(page->imageWidget(), QPoint(0, 0), QPoint(19, 19)); // 19 x 19 pixels
    const CImageWidget::SelectionMark mark = page->imageWidget()->selectionMarks().first();
    QCOMPARE(mark.inner, QRect(QPoint(1, 1), QPoint(17, 17)));
    QCOMPARE(mark.outer, QRect(QPoint(0, 0), QPoint(18, 18)));
}

void TestMultipleSelect::newImageStartsWithoutMarks()
{
    auto window = openWindow(columnsImage(), "before.png");
    QVERIFY(window);
    pickColumns(*window, {0, 1});
    const QString next = m_fixture.filePath("after.png");
    QVERIFY(ImageWriter::write(columnsImage(), next));
    QVERIFY(openThroughDialog(*window, next));
    CColourImageWindow *page = window->samplingPage();
    QCOMPARE(page->multipleCount(), 0);
    QVERIFY(page->imageWidget()->selectionMarks().isEmpty());
    const QImage shown = page->imageWidget()->grab().toImage();
    QVERIFY(sameRgb(shown.pixel(4, 9), kColumns[0]));
    // Still multiple mode: the next pick is entry 1.
    leftClick(page->imageWidget(), QPoint(35, 5));
    QCOMPARE(markNumbers(page->imageWidget()), (QList<int>{1}));
}

void TestMultipleSelect::settingsChangeRendersTheRowsAgain()
{
    auto window = openWindow(columnsImage(), "format.png");
    QVERIFY(window);
    pickColumns(*window, {3});
    window->settings()->rgbFormat = 2;
    window->applyConfigurationChanges(window->settings()->libraryDir);
    QVERIFY(window->samplingPage()->multipleRow(0)->swatch()->toolTip().startsWith(
        QStringLiteral("R:0x28, G:0x50, B:0x78<br />")));
    QCOMPARE(window->samplingPage()->sampleValue(0)->text(), QStringLiteral("0x28"));
}

QTEST_MAIN(TestMultipleSelect)
#include "tst_multipleselect.moc"
