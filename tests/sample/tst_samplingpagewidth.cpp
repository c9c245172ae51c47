#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/samplepanel.h"
#include "sample/widesttexts.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/samplefixture.h"
#include "support/storedsettings.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include <memory>

using namespace SampleFixture;

// The sampling page's left-hand panel is as wide as its widest content from
// the start: picking and matching, in any display format and with names of
// any length, never move the picture beside it.
class TestSamplingPageWidth : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void pickingAndMatchingKeepThePictureInPlace_data();
    void pickingAndMatchingKeepThePictureInPlace();
    void multiplePicksAndTheirNoticeKeepThePictureInPlace();
    void changingTheDisplayFormatKeepsThePictureInPlace();
    void longNamesWrapWithinTheReservedWidth();
    void sampleValuesFitTheirReservedWidth_data();
    void sampleValuesFitTheirReservedWidth();

private:
    std::unique_ptr<CMainWindow> openWindow(const QString &table);
    QString writeTable(const QString &fileName, const QStringList &names);
    QPoint viewPosition() const;
    // Lets every pending layout run, as the event loop would before the
    // next paint.
    static void settle();

    GuiTestFixture m_fixture;
    QString m_library;
    int m_count = 0;
    CMainWindow *m_window = nullptr;
};

void TestSamplingPageWidth::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSamplingPageWidth::init()
{
    m_fixture.reset();
    m_library = m_fixture.filePath(QStringLiteral("library%1").arg(++m_count));
    QVERIFY(QDir().mkpath(m_library));
}

// Entries in greys from light to dark, named in order.
QString TestSamplingPageWidth::writeTable(const QString &fileName, const QStringList &names)
{
    CLibColourTable table;
    for (int i = 0; i < names.size(); ++i) {
        const double grey = 1.0 - i / double(names.size());
        table.add(std::make_unique<CColourTableEntry>(names.at(i), grey, grey * 0.9, grey * 0.8));
    }
    const QString path = m_library + "/" + fileName;
    return table.write(path) ? QFileInfo(path).canonicalFilePath() : QString();
}

std::unique_ptr<CMainWindow> TestSamplingPageWidth::openWindow(const QString &table)
{
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    window->resize(1366, 768);
    const QString picture = m_fixture.filePath(QStringLiteral("picture.png"));
    if (!ImageWriter::write(ImageWriter::gradient(300, 200), picture) || !showWindow(*window)
        || !openThroughDialog(*window, picture))
        return nullptr;
    m_window = window.get();
    settle();
    return window;
}

QPoint TestSamplingPageWidth::viewPosition() const
{
    return m_window->samplingPage()->view()->mapTo(m_window, QPoint(0, 0));
}

void TestSamplingPageWidth::settle()
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QTest::qWait(20);
    }
}

void TestSamplingPageWidth::pickingAndMatchingKeepThePictureInPlace_data()
{
    QTest::addColumn<int>("rgbFormat");
    QTest::addColumn<bool>("percent");
    QTest::addColumn<int>("nameLength");
    QTest::newRow("integer, percent, short names") << 0 << true << 6;
    QTest::newRow("decimal, delta E, short names") << 1 << false << 6;
    QTest::newRow("hex, percent, names at the wrap width") << 2 << true << 30;
    QTest::newRow("integer, delta E, names past the wrap width") << 0 << false << 45;
}

void TestSamplingPageWidth::pickingAndMatchingKeepThePictureInPlace()
{
    QFETCH(int, rgbFormat);
    QFETCH(bool, percent);
    QFETCH(int, nameLength);
    StoredSettings::setValue(QStringLiteral("Colour/rgbFormat"), rgbFormat);
    StoredSettings::setValue(QStringLiteral("Colour/rgbDifference"), percent);
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names << QStringLiteral("%1 %2").arg(i).arg(QString(nameLength, QLatin1Char('W')));
    const QString table = writeTable(QStringLiteral("Names.clrtable"), names);
    QVERIFY(!table.isEmpty());
    auto window = openWindow(table);
    QVERIFY(window);
    QCOMPARE(window->settings()->rgbFormat, rgbFormat);
    CColourImageWindow *page = window->samplingPage();
    const QPoint start = viewPosition();
    const int startWidth = page->view()->width();
    QVERIFY(start.x() > 0);

    leftClick(page->imageWidget(), QPoint(250, 150));
    settle();
    QVERIFY(page->isSamplePresent());
    QCOMPARE(viewPosition(), start);

    page->commandButton(CmdMatchColour)->click();
    settle();
    QVERIFY(page->resultsTable()->rowCount() > 0);
    QCOMPARE(viewPosition(), start);
    QCOMPARE(page->view()->width(), startWidth);

    leftClick(page->imageWidget(), QPoint(5, 5));
    page->commandButton(CmdMatchColour)->click();
    settle();
    QCOMPARE(viewPosition(), start);
}

void TestSamplingPageWidth::multiplePicksAndTheirNoticeKeepThePictureInPlace()
{
    auto window = openWindow(writeTable(QStringLiteral("Greys.clrtable"), {"Light", "Dark"}));
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    const QPoint start = viewPosition();
    page->commandButton(CmdSelectMultiple)->click();
    for (int i = 0; i < 9; ++i)
        leftClick(page->imageWidget(), QPoint(20 + 25 * i, 100));
    settle();
    QCOMPARE(page->multipleCount(), 8);
    QVERIFY(page->maximumNotice()->isVisible());
    QCOMPARE(viewPosition(), start);
    page->commandButton(CmdMatchColour)->click();
    settle();
    QCOMPARE(viewPosition(), start);
}

void TestSamplingPageWidth::changingTheDisplayFormatKeepsThePictureInPlace()
{
    auto window = openWindow(writeTable(QStringLiteral("Greys.clrtable"), {"Light", "Dark"}));
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    const QPoint start = viewPosition();
    leftClick(page->imageWidget(), QPoint(250, 150));
    page->commandButton(CmdMatchColour)->click();
    settle();
    QCOMPARE(viewPosition(), start);
    for (int format : {1, 2, 0}) {
        for (bool percent : {false, true}) {
            window->settings()->rgbFormat = format;
            window->settings()->rgbDifference = percent;
            window->applyConfigurationChanges(window->settings()->libraryDir);
            settle();
            QCOMPARE(viewPosition(), start);
        }
    }
}

// A name longer than the wrap width keeps to the width the view reserved.
void TestSamplingPageWidth::longNamesWrapWithinTheReservedWidth()
{
    const QString table = writeTable(QStringLiteral("Long.clrtable"),
                                     {QString(80, QLatin1Char('M')), QStringLiteral("Short")});
    auto window = openWindow(table);
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    const int reserved = page->resultsTable()->minimumWidth();
    QVERIFY(reserved > 0);
    leftClick(page->imageWidget(), QPoint(1, 1));
    page->commandButton(CmdMatchColour)->click();
    settle();
    QCOMPARE(page->resultsTable()->rowCount(), 2);
    QCOMPARE(page->resultsTable()->minimumWidth(), reserved);
}

void TestSamplingPageWidth::sampleValuesFitTheirReservedWidth_data()
{
    QTest::addColumn<int>("rgbFormat");
    QTest::newRow("integer") << 0;
    QTest::newRow("decimal") << 1;
    QTest::newRow("hex") << 2;
}

// Every value of a cube of colours, in each format, fits the width its
// label has before the first pick.
void TestSamplingPageWidth::sampleValuesFitTheirReservedWidth()
{
    QFETCH(int, rgbFormat);
    CSamplePanel panel;
    QVector<int> reserved;
    for (int i = 0; i < 6; ++i)
        reserved << panel.value(i)->minimumWidth();
    const int levels = 16;
    for (int r = 0; r < levels; ++r) {
        for (int g = 0; g < levels; ++g) {
            for (int b = 0; b < levels; ++b) {
                const RgbColour colour{r / 15.0, g / 15.0, b / 15.0};
                panel.showColour(colour, rgbFormat);
                for (int i = 0; i < 6; ++i) {
                    QLabel *value = panel.value(i);
                    QVERIFY2(value->sizeHint().width() <= reserved.at(i),
                             qPrintable(value->text()));
                }
            }
        }
    }
}

QTEST_MAIN(TestSamplingPageWidth)
#include "tst_samplingpagewidth.moc"
