#include "app/appsettings.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "sample/libraryselector.h"
#include "sample/samplepanel.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include <memory>

// The sampling page on its own, without a main window: everything it wants
// from its owner arrives as a signal, and its parts can be reached directly.
class TestSamplingPageParts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void zoomStepsAreSignalledWithTheNewIndex();
    void openingAPictureSignalsActualSize();
    void leavingThePictureSignalsAnEmptyStatusMessage();
    void clickIsSignalledAsAPickAndBecomesTheSample();
    void addToDataSetAsksTheOwnerWithTheSample();
    void samplePanelShowsThePageSample();
    void librarySelectorListsATableWrittenBeforeReload();
    void libraryChangeClearsTheResultsAndRereadsTheFolder();
    void librarySelectorMatchesTheTableAsItNowStands();
    void quietMatchWithoutAnEarlierMatchSaysNothing();
    void userMatchWithoutASampleSaysSo();

private:
    QString writeLibraryTable(const QString &fileName, const RgbColour &colour);
    // Sixty entries (red, i / 100, 0.1) for i from 20 to 79.
    QString writeLargeLibraryTable(const QString &fileName, double red);
    void clickPicture(const QPoint &point);

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<CColourImageWindow> m_page;
};

void TestSamplingPageParts::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSamplingPageParts::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_page = std::make_unique<CColourImageWindow>(m_settings.get());
    m_page->resize(900, 700);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->showImage(m_fixture.filePath("picture.png"), ImageWriter::gradient(20, 20));
}

void TestSamplingPageParts::cleanup()
{
    m_page.reset();
    m_settings.reset();
}

QString TestSamplingPageParts::writeLibraryTable(const QString &fileName, const RgbColour &colour)
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Only"), colour.red, colour.green,
                                                  colour.blue));
    const QString path = QDir(m_settings->libraryDir).filePath(fileName);
    return table.write(path) ? path : QString();
}

QString TestSamplingPageParts::writeLargeLibraryTable(const QString &fileName, double red)
{
    CLibColourTable table;
    for (int i = 20; i < 80; ++i)
        table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Entry %1").arg(i), red,
                                                      i / 100.0, 0.1));
    const QString path = QDir(m_settings->libraryDir).filePath(fileName);
    return table.write(path) ? path : QString();
}

void TestSamplingPageParts::clickPicture(const QPoint &point)
{
    QTest::mouseClick(m_page->imageWidget(), Qt::LeftButton, Qt::NoModifier, point);
}

void TestSamplingPageParts::zoomStepsAreSignalledWithTheNewIndex()
{
    QSignalSpy zoom(m_page.get(), &CColourImageWindow::zoomChanged);
    m_page->zoomStep(CmdZoomIn);
    m_page->zoomStep(CmdZoomIn);
    m_page->zoomStep(CmdZoomOut);
    QCOMPARE(zoom.count(), 3);
    QCOMPARE(zoom.at(0).at(0).toInt(), 8);
    QCOMPARE(zoom.at(1).at(0).toInt(), 9);
    QCOMPARE(zoom.at(2).at(0).toInt(), 8);
    QCOMPARE(m_page->zoomIndex(), 8);
}

void TestSamplingPageParts::openingAPictureSignalsActualSize()
{
    m_page->zoomStep(CmdZoomOut);
    QSignalSpy zoom(m_page.get(), &CColourImageWindow::zoomChanged);
    m_page->showImage(m_fixture.filePath("other.png"), ImageWriter::gradient(8, 8));
    QVERIFY(zoom.count() >= 1);
    QCOMPARE(zoom.last().at(0).toInt(), 7);
}

void TestSamplingPageParts::leavingThePictureSignalsAnEmptyStatusMessage()
{
    QSignalSpy status(m_page.get(), &CColourImageWindow::statusMessage);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(m_page->imageWidget(), &leave);
    QCOMPARE(status.count(), 1);
    QCOMPARE(status.at(0).at(0).toString(), QString());
}

void TestSamplingPageParts::clickIsSignalledAsAPickAndBecomesTheSample()
{
    QSignalSpy picked(m_page->imageWidget(), &CImageWidget::picked);
    clickPicture(QPoint(3, 4));
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.at(0).at(0).toRect(), QRect(3, 4, 1, 1));
    QVERIFY(m_page->isSamplePresent());
    // gradient(): (x * 10, y * 10, x + y)
    QCOMPARE(m_page->sample().red, 30 / 255.0);
    QCOMPARE(m_page->sample().green, 40 / 255.0);
    QCOMPARE(m_page->sample().blue, 7 / 255.0);
}

void TestSamplingPageParts::addToDataSetAsksTheOwnerWithTheSample()
{
    clickPicture(QPoint(5, 2));
    QSignalSpy request(m_page.get(), &CColourImageWindow::addToDataSetRequested);
    m_page->commandButton(CmdAddToDataSet)->click();
    QCOMPARE(request.count(), 1);
    QCOMPARE(request.at(0).at(0).toDouble(), 50 / 255.0);
    QCOMPARE(request.at(0).at(1).toDouble(), 20 / 255.0);
    QCOMPARE(request.at(0).at(2).toDouble(), 7 / 255.0);
}

void TestSamplingPageParts::samplePanelShowsThePageSample()
{
    CSamplePanel *panel = m_page->samplePanel();
    QVERIFY(!panel->caption()->isVisible());
    clickPicture(QPoint(10, 10));
    QVERIFY(panel->caption()->isVisible());
    QCOMPARE(panel->value(0)->text(), QStringLiteral("100"));
    QCOMPARE(panel->value(1)->text(), QStringLiteral("100"));
    QCOMPARE(panel->value(2)->text(), QStringLiteral("20"));
    QCOMPARE(m_page->sampleValue(0), panel->value(0));
}

void TestSamplingPageParts::librarySelectorListsATableWrittenBeforeReload()
{
    CLibrarySelector *selector = m_page->librarySelector();
    QCOMPARE(selector->findText(QStringLiteral("Zeta")), -1);
    QVERIFY(!writeLibraryTable(QStringLiteral("Zeta.clrtable"), {0.5, 0.5, 0.5}).isEmpty());
    QSignalSpy selected(selector, &CLibrarySelector::tableSelected);
    selector->fillLibraryCombo();
    QVERIFY(selector->findText(QStringLiteral("Zeta")) >= 0);
    QCOMPARE(selected.count(), 1);
}

void TestSamplingPageParts::libraryChangeClearsTheResultsAndRereadsTheFolder()
{
    clickPicture(QPoint(1, 1));
    m_page->runMatch(false);
    QVERIFY(m_page->resultsTable()->rowCount() > 0);
    QVERIFY(!writeLibraryTable(QStringLiteral("Added.clrtable"), {0.1, 0.2, 0.3}).isEmpty());
    m_page->libraryChanged();
    QCOMPARE(m_page->resultsTable()->rowCount(), 0);
    QVERIFY(m_page->libraryCombo()->findText(QStringLiteral("Added")) >= 0);
}

// The selector keeps its table grouped for matching between samples; a
// change to the table, or another table loaded, must be seen by the next
// match. The tables are larger than the rows a match keeps, so that the
// grouped entries are used rather than the whole table scored afresh.
void TestSamplingPageParts::librarySelectorMatchesTheTableAsItNowStands()
{
    CLibrarySelector *selector = m_page->librarySelector();
    QVERIFY(!writeLargeLibraryTable(QStringLiteral("Zeta.clrtable"), 0.5).isEmpty());
    QVERIFY(!writeLargeLibraryTable(QStringLiteral("Omega.clrtable"), 0.9).isEmpty());
    selector->fillLibraryCombo();
    QVERIFY(selector->loadTable(selector->findText(QStringLiteral("Zeta"))));
    const RgbColour added{0.2, 0.4, 0.6};
    QVERIFY(selector->matcher().bestRows(added, 4).first().deltaE > 1.0f);

    selector->table().add(std::make_unique<CColourTableEntry>(QStringLiteral("Added"), added.red,
                                                              added.green, added.blue));
    const QVector<CMatchResult> afterAdding = selector->matcher().bestRows(added, 4);
    QCOMPARE(afterAdding.first().name, QStringLiteral("Added"));
    QCOMPARE(afterAdding.first().deltaE, 0.0f);

    QVERIFY(selector->loadTable(selector->findText(QStringLiteral("Omega"))));
    const QVector<CMatchResult> other = selector->matcher().bestRows(added, 4);
    QVERIFY(!other.isEmpty());
    QCOMPARE(other.first().red, 0.9);
}

void TestSamplingPageParts::quietMatchWithoutAnEarlierMatchSaysNothing()
{
    clickPicture(QPoint(1, 1));
    ModalAnswerer answer(QStringLiteral("OK"), ModalAnswerer::Action(), 300);
    // A box would hold runMatch in its own event loop until answered.
    m_page->runMatch(true);
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(m_page->resultsTable()->rowCount(), 0);
}

void TestSamplingPageParts::userMatchWithoutASampleSaysSo()
{
    ModalAnswerer answer(QStringLiteral("OK"));
    m_page->runMatch(false);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("No Colour has been selected for matching."));
}

QTEST_MAIN(TestSamplingPageParts)
#include "tst_samplingpageparts.moc"
