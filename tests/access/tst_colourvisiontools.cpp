// The image view's "Colour Vision" setting, driven through the main window:
// the menu, the simulated picture, picks that read the stored pixels, the
// label under the sample and the setting kept across starts.
#include "access/colourvisiontools.h"
#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "colour/colourvision.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "tables/colourtableentry.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/popupmenuchooser.h"
#include "support/samplefixture.h"
#include "support/storedsettings.h"
#include "support/temphome.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

QAction *findAction(QMenu *menu, const QString &text)
{
    for (QAction *action : menu->findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

// What the image widget shows at a point, painted afresh.
QRgb shownPixel(QWidget *widget, const QPoint &point)
{
    return widget->grab(QRect(point, QSize(1, 1))).toImage().pixel(0, 0);
}

} // namespace

class TestColourVisionTools : public QObject
{
    Q_OBJECT

private:
    GuiTestFixture m_home;
    std::unique_ptr<CMainWindow> m_window;
    QString m_library;
    int m_count = 0;

    CColourImageWindow *openRedPicture();
    void choose(const QStringList &path);

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void normalByDefaultShowsThePictureAsStored();
    void menuOffersEveryVisionWithTheCurrentChecked();
    void simulatedViewPaintsTheSimulationButPicksReadStoredPixels();
    void simulationHoldsAtOtherZooms();
    void anotherPictureIsShownSimulatedAfresh();
    void labelSaysHowTheSampleLooksWithItsNearestName();
    void severityOfAnAnomalyIsChosenAndKept();
    void settingIsRememberedAcrossStarts();
    void unknownStoredValueReadsAsNormal();
    void rightClickOpensTheMenuInClickMode();
    void rightClickInRubberBandModeLeavesTheBandItsRelease();
};

void TestColourVisionTools::initTestCase()
{
    QVERIFY(m_home.isValid());
    AppContext::initResources();
}

void TestColourVisionTools::init()
{
    TempHome::clearSettings();
    m_library = m_home.filePath(QStringLiteral("library%1").arg(++m_count));
    QVERIFY(QDir().mkpath(m_library));
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
}

void TestColourVisionTools::cleanup()
{
    m_window.reset();
}

CColourImageWindow *TestColourVisionTools::openRedPicture()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(qRgb(255, 0, 0));
    m_window = SampleFixture::openImageWindow(image, m_home.filePath(QStringLiteral("red.png")));
    return m_window ? m_window->samplingPage() : nullptr;
}

// Chooses an entry of the image view's menu by the texts along its path.
void TestColourVisionTools::choose(const QStringList &path)
{
    std::unique_ptr<QMenu> menu(m_window->colourVisionTools()->buildMenu(nullptr));
    QMenu *level = menu.get();
    QAction *action = nullptr;
    for (const QString &text : path) {
        QVERIFY2(level, qPrintable(path.join(" > ")));
        action = nullptr;
        for (QAction *entry : level->actions()) {
            if (entry->text() == text)
                action = entry;
        }
        QVERIFY2(action, qPrintable(path.join(" > ")));
        level = action->menu();
    }
    action->trigger();
}

void TestColourVisionTools::normalByDefaultShowsThePictureAsStored()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    QVERIFY(m_window->colourVisionTools()->vision().isNormal());
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(30, 20))), QColor(255, 0, 0));
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    QVERIFY(!m_window->colourVisionTools()->simulatedLabel()->isVisible());
}

void TestColourVisionTools::menuOffersEveryVisionWithTheCurrentChecked()
{
    QVERIFY(openRedPicture());
    std::unique_ptr<QMenu> menu(m_window->colourVisionTools()->buildMenu(nullptr));
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Colour Vision"));
    for (int t = ColourVision::Normal; t < ColourVision::TypeCount; ++t)
        QVERIFY(findAction(menu.get(), ColourVision::title(ColourVision::Type(t))));
    QAction *normal = findAction(menu.get(), QStringLiteral("Normal"));
    QVERIFY(normal->isChecked());
    // Ten severities under each anomaly.
    QMenu *weakGreen = findAction(menu.get(), QStringLiteral("Deuteranomaly (weak green)"))->menu();
    QVERIFY(weakGreen);
    QCOMPARE(weakGreen->actions().size(), 10);
    QCOMPARE(weakGreen->actions().first()->text(), QStringLiteral("Severity 0.1"));
    QCOMPARE(weakGreen->actions().last()->text(), QStringLiteral("Severity 1.0"));
}

void TestColourVisionTools::simulatedViewPaintsTheSimulationButPicksReadStoredPixels()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    choose({"Colour Vision", "Protanopia (no red cones)"});
    // Red under protanopia: (109, 95, 0), worked out in the core's test.
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(30, 20))), QColor(109, 95, 0));
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    QVERIFY(page->isSamplePresent());
    QCOMPARE(page->sample().red, 1.0);
    QCOMPARE(page->sample().green, 0.0);
    QCOMPARE(page->sample().blue, 0.0);
}

void TestColourVisionTools::simulationHoldsAtOtherZooms()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    choose({"Colour Vision", "Achromatopsia (no colour)"});
    // Red with no colour vision: its luminance, grey 127.
    SampleFixture::zoomTo(*m_window, 9);
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(41, 33))), QColor(127, 127, 127));
    SampleFixture::zoomTo(*m_window, 5);
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(10, 8))), QColor(127, 127, 127));
}

// The simulated view keeps what it drew between repaints: a new picture of
// the same size must not show the old one's pixels.
void TestColourVisionTools::anotherPictureIsShownSimulatedAfresh()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    choose({"Colour Vision", "Protanopia (no red cones)"});
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(30, 20))), QColor(109, 95, 0));
    QImage blue(40, 30, QImage::Format_RGB32);
    blue.fill(qRgb(0, 0, 255));
    const QString path = m_home.filePath(QStringLiteral("blue.png"));
    QVERIFY(ImageWriter::write(blue, path));
    QVERIFY(SampleFixture::openThroughDialog(*m_window, path));
    page = m_window->samplingPage();
    QVERIFY(page);
    // Blue under protanopia is the matrix's third column: red -0.204868
    // (clamped to 0), green 0.099216 linear (encoded 0.3479, byte 89), blue
    // 1.051998 (clamped to 1).
    QCOMPARE(QColor(shownPixel(page->imageWidget(), QPoint(30, 20))), QColor(0, 89, 255));
}

void TestColourVisionTools::labelSaysHowTheSampleLooksWithItsNearestName()
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Olive Brown", 109 / 255.0, 95 / 255.0, 0.0));
    table.add(std::make_unique<CColourTableEntry>("Signal Red", 1.0, 0.0, 0.0));
    const QString path = m_library + "/Names.clrtable";
    QVERIFY(table.write(path));
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"),
                             QFileInfo(path).canonicalFilePath());
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    choose({"Colour Vision", "Protanopia (no red cones)"});
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    QLabel *label = m_window->colourVisionTools()->simulatedLabel();
    QVERIFY(label->isVisible());
    QCOMPARE(label->text(), QStringLiteral("Seen with protanopia: #6d5f00, nearest Olive Brown"));
    // Back to normal, the label goes.
    choose({"Colour Vision", "Normal"});
    QVERIFY(!label->isVisible());
}

void TestColourVisionTools::severityOfAnAnomalyIsChosenAndKept()
{
    QVERIFY(openRedPicture());
    std::unique_ptr<QMenu> menu(m_window->colourVisionTools()->buildMenu(nullptr));
    QMenu *weakRed = findAction(menu.get(), QStringLiteral("Protanomaly (weak red)"))->menu();
    weakRed->actions().at(4)->trigger(); // Severity 0.5
    const ColourVision &vision = m_window->colourVisionTools()->vision();
    QCOMPARE(vision.type(), ColourVision::Protanomaly);
    QCOMPARE(vision.severity(), 0.5);
    // Red under protanomaly 0.5: (180, 86, 0), worked out in the core's test.
    QCOMPARE(QColor(shownPixel(m_window->samplingPage()->imageWidget(), QPoint(30, 20))),
             QColor(180, 86, 0));
    std::unique_ptr<QMenu> again(m_window->colourVisionTools()->buildMenu(nullptr));
    QMenu *weakRedAgain = findAction(again.get(), QStringLiteral("Protanomaly (weak red)"))->menu();
    QVERIFY(weakRedAgain->actions().at(4)->isChecked());
    QVERIFY(!weakRedAgain->actions().at(5)->isChecked());
}

void TestColourVisionTools::settingIsRememberedAcrossStarts()
{
    QVERIFY(openRedPicture());
    choose({"Colour Vision", "Tritanomaly (weak blue)", "Severity 0.3"});
    m_window->close(); // the main window saves every setting as it closes
    m_window.reset();
    {
        CAppSettings settings;
        QCOMPARE(settings.colourVision, QStringLiteral("tritanomaly"));
        QCOMPARE(settings.colourVisionSeverity, 0.3);
    }
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    QCOMPARE(m_window->colourVisionTools()->vision().type(), ColourVision::Tritanomaly);
    QCOMPARE(m_window->colourVisionTools()->vision().severity(), 0.3);
}

void TestColourVisionTools::unknownStoredValueReadsAsNormal()
{
    StoredSettings::setValue(QStringLiteral("View/colourVision"), QStringLiteral("x-ray"));
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    QVERIFY(m_window->colourVisionTools()->vision().isNormal());
}

void TestColourVisionTools::rightClickOpensTheMenuInClickMode()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    PopupMenuChooser chooser(QStringLiteral("Colour Vision"));
    PopupMenuChooser::rightClick(page->imageWidget(), QPoint(5, 5));
    QVERIFY(chooser.wasShown());
    QVERIFY2(chooser.entries().contains(QStringLiteral("Colour Vision")),
             qPrintable(chooser.entries().join('|')));
}

void TestColourVisionTools::rightClickInRubberBandModeLeavesTheBandItsRelease()
{
    CColourImageWindow *page = openRedPicture();
    QVERIFY(page);
    page->commandButton(CmdPickRubberBand)->click();
    {
        PopupMenuChooser chooser{QString(), 300};
        PopupMenuChooser::rightClick(page->imageWidget(), QPoint(5, 5));
        QTest::qWait(100);
        QVERIFY(!chooser.wasShown());
    }
    // From the keyboard the menu still comes.
    PopupMenuChooser keyboard{QString()};
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            page->imageWidget()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(page->imageWidget(), &event);
    QVERIFY(keyboard.wasShown());
}

QTEST_MAIN(TestColourVisionTools)
#include "tst_colourvisiontools.moc"
