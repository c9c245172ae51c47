// The sampling page's insight into a pick, driven as a user would: the
// "Mixed colours" note, the converted colour profile, "Explain this match…"
// on a result row, picking from the keyboard, and results that show whole.
#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "colour/colourconversion.h"
#include "colour/imageregionaverage.h"
#include "colour/matchexplanation.h"
#include "colour/pickgeometry.h"
#include "colour/pickspread.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/dlgexplainmatch.h"
#include "sample/imagewidget.h"
#include "sample/keyboardpick.h"
#include "sample/matchresultsview.h"
#include "sample/picknotes.h"
#include "sample/spreadworker.h"
#include "tables/colourtableentry.h"
#include "tables/libcolourtable.h"

#include "support/samplefixture.h"
#include "support/imagewriter.h"
#include "support/storedsettings.h"
#include "support/guitestfixture.h"

#include <QColorSpace>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <memory>

using namespace SampleFixture;

namespace {

struct Named
{
    QString name;
    double red, green, blue;
};

// Every pixel a colour of its own, so a pick tells where it read.
QImage codedImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb((x * 5) & 255, (y * 7) & 255, (x * 3 + y) & 255));
    return image;
}

RgbColour pixelColour(const QImage &image, int x, int y)
{
    const QRgb p = image.pixel(x, y);
    return {qRed(p) / 255.0, qGreen(p) / 255.0, qBlue(p) / 255.0};
}

// Blue on the left half, yellow on the right.
QImage halvesImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(qRgb(30, 60, 200));
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixel(x, y, qRgb(240, 220, 30));
    return image;
}

bool sameColour(const RgbColour &a, const RgbColour &b)
{
    return qFuzzyCompare(1.0 + a.red, 1.0 + b.red) && qFuzzyCompare(1.0 + a.green, 1.0 + b.green)
           && qFuzzyCompare(1.0 + a.blue, 1.0 + b.blue);
}

void key(QWidget *widget, Qt::Key k, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(widget, k, modifiers);
}

} // namespace

class TestPickInsight : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void bandOverTwoColoursShowsMixedWithTheNumbers();
    void uniformClickHidesTheMixedNote();
    void taggedImageIsConvertedWhenTheSettingIsOn();
    void taggedImageIsReadAsStoredByDefault();
    void resultRowMenuOffersExplainThisMatch();
    void explainWindowWordsTheRowsDifference();
    void arrowsMoveOnePixelAndShiftTen();
    void arrowsStopAtTheImageEdges();
    void spaceAndEnterPickLikeAClickOnThatPixel();
    void keyboardPickUsesThePickSizeAndClipsLikeAClick();
    void keyboardPicksEnterTheMultipleSelection();
    void pickBoxFollowsTheKeysAndTheViewScrolls();
    void rubberBandModeLeavesTheKeysToTheView();
    void resultsShowWholeAtTheDefaultWindowSize();

private:
    QString writeTable(const QString &fileName, const QVector<Named> &colours);
    std::unique_ptr<CMainWindow> openWindow(const QImage &image, const QString &name);
    // Opens a coded image of that size (kept in m_image, its window in
    // m_window), puts the mouse over widget point `at` and the focus on the
    // picture, ready for the keys. Null when it could not be opened.
    CColourImageWindow *openCodedForKeys(const QSize &size, const QString &name,
                                         const QPoint &at);
    void match(CMainWindow &window);

    GuiTestFixture *m_home = nullptr;
    QTemporaryDir *m_files = nullptr;
    std::unique_ptr<CMainWindow> m_window;
    QImage m_image;
    QString m_library;
    int m_count = 0;
};

void TestPickInsight::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
    m_files = new QTemporaryDir;
    QVERIFY(m_files->isValid());
    AppContext::initResources();
}

void TestPickInsight::init()
{
    TempHome::clearSettings();
    m_library = m_files->path() + QStringLiteral("/library%1").arg(++m_count);
    QVERIFY(QDir().mkpath(m_library));
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
}

void TestPickInsight::cleanup()
{
    m_window.reset();
}

void TestPickInsight::cleanupTestCase()
{
    delete m_files;
    delete m_home;
}

QString TestPickInsight::writeTable(const QString &fileName, const QVector<Named> &colours)
{
    CLibColourTable table;
    for (const Named &c : colours)
        table.add(std::make_unique<CColourTableEntry>(c.name, c.red, c.green, c.blue));
    const QString path = m_library + "/" + fileName;
    return table.write(path) ? QFileInfo(path).canonicalFilePath() : QString();
}

std::unique_ptr<CMainWindow> TestPickInsight::openWindow(const QImage &image, const QString &name)
{
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    const QString path = m_files->filePath(name);
    if (!image.save(path) || !showWindow(*window) || !openThroughDialog(*window, path))
        return nullptr;
    return window;
}

CColourImageWindow *TestPickInsight::openCodedForKeys(const QSize &size, const QString &name,
                                                      const QPoint &at)
{
    m_image = codedImage(size.width(), size.height());
    m_window = openWindow(m_image, name);
    if (!m_window)
        return nullptr;
    CImageWidget *widget = m_window->samplingPage()->imageWidget();
    moveTo(widget, at);
    widget->setFocus();
    return m_window->samplingPage();
}

void TestPickInsight::match(CMainWindow &window)
{
    window.samplingPage()->commandButton(CmdMatchColour)->click();
}

// ---- How uniform a pick is -------------------------------------------------------

void TestPickInsight::bandOverTwoColoursShowsMixedWithTheNumbers()
{
    const QImage image = halvesImage(40, 20);
    auto window = openWindow(image, "halves.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdPickRubberBand)->click();
    QLabel *mixed = page->pickNotes()->mixedLabel();
    QVERIFY(mixed->isHidden());
    drag(page->imageWidget(), QPoint(2, 2), QPoint(38, 18));
    QVERIFY(page->isSamplePresent());
    // The spread is measured off the GUI thread: the note follows.
    QTRY_VERIFY(mixed->isVisible());
    QCOMPARE(mixed->text(), QStringLiteral("Mixed colours"));
    PickSpread expected;
    const QRect band = bandPickRect(QRect(QPoint(2, 2), QPoint(38, 18)), 1.0, image.size());
    QVERIFY(pickSpread(image, band, page->sample(), &expected));
    QVERIFY(expected.p95 > 5.0);
    QCOMPARE(mixed->toolTip(),
             QStringLiteral("%1 pixels\nMean \u0394E from the average: %2\n"
                            "95% of the pixels within \u0394E %3 of it")
                 .arg(expected.pixels)
                 .arg(expected.mean, 0, 'f', 2)
                 .arg(expected.p95, 0, 'f', 2));
}

void TestPickInsight::uniformClickHidesTheMixedNote()
{
    auto window = openWindow(halvesImage(40, 20), "halves2.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->pickSizeCombo()->setCurrentIndex(4); // 9x9 across the edge: mixed
    leftClick(page->imageWidget(), QPoint(20, 10));
    QTRY_VERIFY(page->pickNotes()->mixedLabel()->isVisible());
    leftClick(page->imageWidget(), QPoint(8, 10)); // 9x9 of one colour
    QTRY_VERIFY(!page->spreadWorker()->isBusy());
    QVERIFY(page->pickNotes()->mixedLabel()->isHidden());
    QVERIFY(page->pickNotes()->mixedLabel()->toolTip().startsWith(QLatin1String("81 pixels\n")));
}

// ---- True colours ----------------------------------------------------------------

void TestPickInsight::taggedImageIsConvertedWhenTheSettingIsOn()
{
    StoredSettings::setValue(QStringLiteral("Colour/convertToSrgb"), true);
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    auto window = openWindow(image, "p3.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    QLabel *profile = page->pickNotes()->profileLabel();
    QVERIFY(profile->isVisible());
    QCOMPARE(profile->text(), QStringLiteral("Converted from Display P3 to sRGB"));
    leftClick(page->imageWidget(), QPoint(5, 5));
    QImage converted = QImage(m_files->filePath("p3.png"));
    converted.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    QVERIFY(sameColour(page->sample(), pixelColour(converted, 5, 5)));
    // Display P3 (200, 100, 50) is a more saturated orange than sRGB can
    // hold in those numbers: red rises, blue falls.
    QVERIFY(page->sample().red > 200 / 255.0);
    QVERIFY(page->sample().blue < 50 / 255.0);
}

void TestPickInsight::taggedImageIsReadAsStoredByDefault()
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    auto window = openWindow(image, "adobe.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    QVERIFY(page->pickNotes()->profileLabel()->isHidden());
    leftClick(page->imageWidget(), QPoint(5, 5));
    QVERIFY(sameColour(page->sample(), {200 / 255.0, 100 / 255.0, 50 / 255.0}));
}

// ---- Explain a match -------------------------------------------------------------

void TestPickInsight::resultRowMenuOffersExplainThisMatch()
{
    const QString table = writeTable("Greys.clrtable", {{"Lighter Grey", 0.5098, 0.5098, 0.5098},
                                                        {"Dark Grey", 0.3, 0.3, 0.3}});
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    auto window = openWindow(image, "grey.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(4, 4));
    match(*window);
    QTableWidget *results = page->resultsTable();
    QCOMPARE(results->rowCount(), 2);
    // Right-click the first row; the menu is read and answered when it shows.
    QStringList texts;
    QTimer::singleShot(0, this, [&texts]() {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions())
            texts << action->text();
        menu->close();
    });
    const QPoint inRow(results->columnViewportPosition(1) + 5, results->rowViewportPosition(0) + 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, inRow,
                            results->viewport()->mapToGlobal(inRow));
    QApplication::sendEvent(results->viewport(), &event);
    QVERIFY2(texts.contains(QStringLiteral("Explain this match\u2026")), qPrintable(texts.join('|')));
    // A row that is not shown has no menu.
    auto *view = qobject_cast<CMatchResultsView *>(results);
    QVERIFY(view);
    QVERIFY(view->buildRowMenu(2) == nullptr);
    QVERIFY(view->buildRowMenu(-1) == nullptr);
}

void TestPickInsight::explainWindowWordsTheRowsDifference()
{
    const QString table = writeTable("Greys.clrtable", {{"Lighter Grey", 0.5098, 0.5098, 0.5098},
                                                        {"Much Darker Grey", 0.4, 0.4, 0.4}});
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    for (int y = 0; y < 10; ++y)
        for (int x = 10; x < 20; ++x)
            image.setPixel(x, y, qRgb(0, 0, 0));
    auto window = openWindow(image, "grey2.png");
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(4, 4));
    match(*window);
    auto *view = qobject_cast<CMatchResultsView *>(page->resultsTable());
    QVERIFY(view);
    QCOMPARE(view->rowCount(), 2);
    // A later pick does not change what the shown rows were matched against.
    leftClick(page->imageWidget(), QPoint(15, 4));
    const QStringList expected{QStringLiteral("The sample is slightly darker than Lighter Grey."),
                               QStringLiteral("The sample is much lighter than Much Darker Grey.")};
    for (int row = 0; row < 2; ++row) {
        std::unique_ptr<QMenu> menu(view->buildRowMenu(row));
        QVERIFY(menu);
        QAction *explain = nullptr;
        for (QAction *action : menu->actions())
            if (action->text() == QStringLiteral("Explain this match\u2026"))
                explain = action;
        QVERIFY(explain);
        explain->trigger();
        const QList<CDlgExplainMatch *> dialogs = page->findChildren<CDlgExplainMatch *>();
        QCOMPARE(dialogs.size(), 1);
        QPointer<CDlgExplainMatch> dialog = dialogs.first();
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Vellora - Explain Match"));
        QCOMPARE(dialog->sentenceLabel()->text(), expected.at(row));
        QCOMPARE(dialog->termLabel(4)->text(),
                 QString::number(double(view->rowEntry(row)->deltaE), 'f', 4));
        QVERIFY(std::fabs(dialog->termLabel(0)->text().toDouble()) > 0.5);
        QVERIFY(std::fabs(dialog->termLabel(1)->text().toDouble()) < 0.01); // greys
        QTest::mouseClick(dialog->closeButton(), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(dialog.isNull(), 5000);
    }
}

// ---- Keyboard picking ------------------------------------------------------------

void TestPickInsight::arrowsMoveOnePixelAndShiftTen()
{
    CColourImageWindow *page = openCodedForKeys(QSize(60, 50), "coded.png", QPoint(5, 5));
    QVERIFY(page);
    CImageWidget *widget = page->imageWidget();
    QSignalSpy status(page, &CColourImageWindow::statusMessage);
    key(widget, Qt::Key_Right);
    key(widget, Qt::Key_Right);
    QCOMPARE(widget->keyboardPixel(), QPoint(7, 5));
    QCOMPARE(status.last().first().toString(), QStringLiteral("Cursor Pos XY:(7,5)"));
    key(widget, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(status.last().first().toString(), QStringLiteral("Cursor Pos XY:(7,15)"));
    key(widget, Qt::Key_Left, Qt::ShiftModifier);
    key(widget, Qt::Key_Up);
    QCOMPARE(widget->keyboardPixel(), QPoint(0, 14));
    QCOMPARE(status.last().first().toString(), QStringLiteral("Cursor Pos XY:(0,14)"));
    QVERIFY(!page->isSamplePresent()); // moving alone picks nothing
}

void TestPickInsight::arrowsStopAtTheImageEdges()
{
    QPoint pixel(2, 3);
    const QSize size(12, 8);
    QVERIFY(CKeyboardPick::move(Qt::Key_Left, Qt::ShiftModifier, size, &pixel));
    QCOMPARE(pixel, QPoint(0, 3));
    QVERIFY(CKeyboardPick::move(Qt::Key_Down, Qt::ShiftModifier, size, &pixel));
    QCOMPARE(pixel, QPoint(0, 7));
    QVERIFY(CKeyboardPick::move(Qt::Key_Right, Qt::ShiftModifier, size, &pixel));
    QVERIFY(CKeyboardPick::move(Qt::Key_Right, Qt::NoModifier, size, &pixel));
    QCOMPARE(pixel, QPoint(11, 7));
    QVERIFY(!CKeyboardPick::move(Qt::Key_A, Qt::NoModifier, size, &pixel));
    QCOMPARE(pixel, QPoint(11, 7));
    QVERIFY(CKeyboardPick::isPickKey(Qt::Key_Space));
    QVERIFY(CKeyboardPick::isPickKey(Qt::Key_Return));
    QVERIFY(CKeyboardPick::isPickKey(Qt::Key_Enter));
    QVERIFY(!CKeyboardPick::isPickKey(Qt::Key_Tab));
}

void TestPickInsight::spaceAndEnterPickLikeAClickOnThatPixel()
{
    CColourImageWindow *page = openCodedForKeys(QSize(60, 50), "coded2.png", QPoint(10, 10));
    QVERIFY(page);
    const QImage &image = m_image;
    CImageWidget *widget = page->imageWidget();
    key(widget, Qt::Key_Right);
    key(widget, Qt::Key_Space);
    QVERIFY(page->isSamplePresent());
    QVERIFY(sameColour(page->sample(), pixelColour(image, 11, 10)));
    key(widget, Qt::Key_Down, Qt::ShiftModifier);
    key(widget, Qt::Key_Return);
    QVERIFY(sameColour(page->sample(), pixelColour(image, 11, 20)));
    key(widget, Qt::Key_Up);
    key(widget, Qt::Key_Enter, Qt::KeypadModifier);
    QVERIFY(sameColour(page->sample(), pixelColour(image, 11, 19)));
    // The mouse clicking that very pixel gives the very same sample.
    const RgbColour byKey = page->sample();
    leftClick(widget, QPoint(11, 19));
    QVERIFY(sameColour(page->sample(), byKey));
}

void TestPickInsight::keyboardPickUsesThePickSizeAndClipsLikeAClick()
{
    CColourImageWindow *page = openCodedForKeys(QSize(60, 50), "coded3.png", QPoint(3, 3));
    QVERIFY(page);
    const QImage &image = m_image;
    CImageWidget *widget = page->imageWidget();
    page->pickSizeCombo()->setCurrentIndex(4); // 9x9
    key(widget, Qt::Key_Left, Qt::ShiftModifier);
    key(widget, Qt::Key_Up, Qt::ShiftModifier);
    key(widget, Qt::Key_Space);
    RgbColour expected;
    QVERIFY(averageImageRegion(image, QRect(0, 0, 5, 5), true, &expected));
    QVERIFY(sameColour(page->sample(), expected));
    key(widget, Qt::Key_Right, Qt::ShiftModifier);
    key(widget, Qt::Key_Down, Qt::ShiftModifier);
    key(widget, Qt::Key_Space); // at (10, 10): the full square around it
    QVERIFY(averageImageRegion(image, QRect(6, 6, 9, 9), true, &expected));
    QVERIFY(sameColour(page->sample(), expected));
}

void TestPickInsight::keyboardPicksEnterTheMultipleSelection()
{
    CColourImageWindow *page = openCodedForKeys(QSize(60, 50), "coded4.png", QPoint(4, 4));
    QVERIFY(page);
    CImageWidget *widget = page->imageWidget();
    page->commandButton(CmdSelectMultiple)->click();
    key(widget, Qt::Key_Space);
    key(widget, Qt::Key_Right, Qt::ShiftModifier);
    key(widget, Qt::Key_Return);
    QCOMPARE(page->multipleCount(), 2);
    QCOMPARE(page->multipleSelection().at(0).rect, QRect(4, 4, 1, 1));
    QCOMPARE(page->multipleSelection().at(1).rect, QRect(14, 4, 1, 1));
}

void TestPickInsight::pickBoxFollowsTheKeysAndTheViewScrolls()
{
    CColourImageWindow *page = openCodedForKeys(QSize(3000, 400), "wide.png", QPoint(5, 5));
    QVERIFY(page);
    CImageWidget *widget = page->imageWidget();
    CColourImageWindowView *view = page->view();
    QCOMPARE(view->horizontalScrollBar()->value(), 0);
    // Wherever the settled layout put the picture under the cursor.
    QCoreApplication::processEvents();
    const QPoint start = widget->keyboardPixel();
    QCOMPARE(start.x(), 5);
    for (int i = 0; i < 250; ++i)
        key(widget, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(widget->keyboardPixel(), start + QPoint(2500, 0));
    QVERIFY(view->horizontalScrollBar()->value() > 0);
    QLabel *box = widget->pickBox();
    QVERIFY(box->isVisible());
    // The box is centred on the pixel and inside the visible part.
    QCOMPARE(box->geometry().center(), start + QPoint(2500, 0));
    const QRect shown(widget->mapFrom(view->viewport(), QPoint(0, 0)), view->viewport()->size());
    QVERIFY2(shown.contains(box->geometry()), qPrintable(QStringLiteral("%1,%2")
                                                             .arg(box->x())
                                                             .arg(shown.left())));
}

void TestPickInsight::rubberBandModeLeavesTheKeysToTheView()
{
    CColourImageWindow *page = openCodedForKeys(QSize(60, 50), "coded5.png", QPoint(5, 5));
    QVERIFY(page);
    CImageWidget *widget = page->imageWidget();
    page->commandButton(CmdPickRubberBand)->click();
    key(widget, Qt::Key_Right);
    key(widget, Qt::Key_Space);
    QVERIFY(!page->isSamplePresent());
    QCOMPARE(widget->keyboardPixel(), QPoint(5, 5));
}

// ---- Results a user can read -----------------------------------------------------

// The default window takes 90 % of the screen: 1440 x 900 on a 1600 x 1000
// screen. Every label of every row must show its whole text.
void TestPickInsight::resultsShowWholeAtTheDefaultWindowSize()
{
    const QString table = writeTable(
        "Long.clrtable",
        {{"Dark Slate Blue", 72 / 255.0, 61 / 255.0, 139 / 255.0},
         {"Medium Slate Blue", 123 / 255.0, 104 / 255.0, 238 / 255.0},
         {"Slate Blue of the Deep Northern Fjords at Dusk in Late Autumn", 106 / 255.0,
          90 / 255.0, 205 / 255.0},
         {"Noticeably Different Greyish Lavender", 150 / 255.0, 140 / 255.0, 190 / 255.0}});
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    StoredSettings::setValue(QStringLiteral("Colour/rgbFormat"), 1); // decimals: longest lines
    QImage image(800, 600, QImage::Format_RGB32);
    image.fill(qRgb(106, 89, 205));
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    const QString path = m_files->filePath("slate.png");
    QVERIFY(image.save(path));
    window->resize(1440, 900);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QVERIFY(openThroughDialog(*window, path));
    CColourImageWindow *page = window->samplingPage();
    leftClick(page->imageWidget(), QPoint(50, 50));
    match(*window);
    QTableWidget *results = page->resultsTable();
    QCOMPARE(results->rowCount(), 4);
    // Layout requests are posted events: deliver them before measuring.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    int labels = 0;
    for (int row = 0; row < results->rowCount(); ++row) {
        for (int column = 1; column <= 2; ++column) {
            QWidget *cell = results->cellWidget(row, column);
            QList<QLabel *> found = cell->findChildren<QLabel *>();
            if (auto *label = qobject_cast<QLabel *>(cell))
                found << label;
            for (QLabel *label : found) {
                ++labels;
                const QString what = QStringLiteral("row %1: \"%2\" %3x%4 needs %5x%6")
                                         .arg(row)
                                         .arg(label->text())
                                         .arg(label->width())
                                         .arg(label->height())
                                         .arg(label->sizeHint().width())
                                         .arg(label->sizeHint().height());
                if (label->wordWrap()) {
                    QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                             qPrintable(what));
                } else {
                    QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(what));
                    QVERIFY2(label->height() >= label->sizeHint().height(), qPrintable(what));
                }
                // Inside its cell, and the cell inside the table's viewport.
                const QRect inViewport(label->mapTo(results->viewport(), QPoint(0, 0)),
                                       label->size());
                QVERIFY2(inViewport.right() < results->viewport()->width(), qPrintable(what));
            }
        }
    }
    QCOMPARE(labels, 12);
    auto *longName = results->cellWidget(0, 1)->findChildren<QLabel *>().first();
    QVERIFY(longName->text().startsWith(QLatin1String("Slate Blue of the Deep")));
    QVERIFY(longName->wordWrap());
    // The very long name wraps rather than widening the panel without end,
    // and the picture keeps most of the window.
    QVERIFY(page->view()->width() > 1440 / 2);
}

QTEST_MAIN(TestPickInsight)
#include "tst_pickinsight.moc"
