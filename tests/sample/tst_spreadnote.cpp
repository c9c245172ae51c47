// The "Mixed colours" note on the sampling page now that the spread is
// measured off the GUI thread: the sample shows at once and the note when
// its spread is ready; a newer pick, a reset and a new picture each cancel
// the spread still running, so only the latest pick's note is ever shown.
#include "app/appsettings.h"
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"
#include "sample/colourimagewindow.h"
#include "sample/picknotes.h"
#include "sample/spreadworker.h"

#include "support/guitestfixture.h"

#include <QLabel>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

// Noise on the left, one flat colour on the right: a band over all of it
// is mixed and takes a while, a click on the right is neither.
QImage noiseAndFlat(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator rng(23);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = x < width / 2 ? 0xff000000u | rng.bounded(0x1000000u) : qRgb(90, 140, 60);
    }
    return image;
}

const QImage &picture()
{
    static const QImage image = noiseAndFlat(1800, 1200);
    return image;
}

QString toolTipFor(const PickSpread &spread)
{
    return QStringLiteral("%1 pixels\nMean \u0394E from the average: %2\n"
                          "95% of the pixels within \u0394E %3 of it")
        .arg(spread.pixels)
        .arg(spread.mean, 0, 'f', 2)
        .arg(spread.p95, 0, 'f', 2);
}

} // namespace

class TestSpreadNote : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_fixture.isValid()); }
    void init();
    void cleanup();

    void sampleAtOnceNoteWhenReady();
    void onlyTheLaterPicksNoteShows();
    void resetCancelsTheRunningSpread();
    void newPictureCancelsTheRunningSpread();
    void closingThePageWithASpreadRunning();

private:
    void waitUntilSettled();
    QLabel *mixed() const { return m_page->pickNotes()->mixedLabel(); }

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<CColourImageWindow> m_page;
};

void TestSpreadNote::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_page = std::make_unique<CColourImageWindow>(m_settings.get());
    m_page->resize(900, 700);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->showImage(m_fixture.filePath("noise.png"), picture());
}

void TestSpreadNote::cleanup()
{
    m_page.reset();
    m_settings.reset();
}

void TestSpreadNote::waitUntilSettled()
{
    QVERIFY(m_page->spreadWorker()->waitForIdle(60000));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

void TestSpreadNote::sampleAtOnceNoteWhenReady()
{
    const QRect band = picture().rect();
    m_page->pickImageRegion(band);
    // The sample is there before any event is handled; the note is not.
    QVERIFY(m_page->isSamplePresent());
    RgbColour average;
    QVERIFY(averageImageRegion(picture(), band, true, &average));
    QCOMPARE(m_page->sample().red, average.red);
    QVERIFY(mixed()->isHidden());
    QVERIFY(m_page->spreadWorker()->isBusy());
    QTRY_VERIFY_WITH_TIMEOUT(mixed()->isVisible(), 60000);
    PickSpread expected;
    QVERIFY(pickSpread(picture(), band, average, &expected));
    QCOMPARE(mixed()->toolTip(), toolTipFor(expected));
}

// A band starts a long spread; a click on the flat half follows before the
// band's spread can have been reported. Only the click's note is shown, and
// only once.
void TestSpreadNote::onlyTheLaterPicksNoteShows()
{
    QSignalSpy ready(m_page->spreadWorker(), &CSpreadWorker::spreadReady);
    m_page->pickImageRegion(picture().rect());
    const QRect click(1500, 600, 9, 9);
    m_page->pickImageRegion(click);
    waitUntilSettled();
    QTRY_COMPARE(ready.count(), 1);
    PickSpread expected;
    QVERIFY(pickSpread(picture(), click, m_page->sample(), &expected));
    QCOMPARE(mixed()->toolTip(), toolTipFor(expected));
    QVERIFY(mixed()->isHidden());
    waitUntilSettled();
    QCOMPARE(ready.count(), 1);
}

void TestSpreadNote::resetCancelsTheRunningSpread()
{
    QSignalSpy ready(m_page->spreadWorker(), &CSpreadWorker::spreadReady);
    m_page->pickImageRegion(picture().rect());
    m_page->resetPage(false);
    QVERIFY(!m_page->spreadWorker()->isBusy());
    waitUntilSettled();
    QCOMPARE(ready.count(), 0);
    QVERIFY(mixed()->isHidden());
    QCOMPARE(mixed()->toolTip(), QString());
}

void TestSpreadNote::newPictureCancelsTheRunningSpread()
{
    QSignalSpy ready(m_page->spreadWorker(), &CSpreadWorker::spreadReady);
    m_page->pickImageRegion(picture().rect());
    QImage other(50, 40, QImage::Format_RGB32);
    other.fill(qRgb(10, 20, 30));
    m_page->showImage(m_fixture.filePath("other.png"), other);
    QVERIFY(!m_page->isSamplePresent());
    waitUntilSettled();
    QCOMPARE(ready.count(), 0);
    QVERIFY(mixed()->isHidden());
    QCOMPARE(mixed()->toolTip(), QString());
}

// The page goes with its spread still running on a picture only the spread
// still holds. (The sanitizer build watches this one.)
void TestSpreadNote::closingThePageWithASpreadRunning()
{
    m_page->showImage(m_fixture.filePath("own.png"), noiseAndFlat(1400, 1000));
    m_page->pickImageRegion(QRect(0, 0, 1400, 1000));
    QPointer<CSpreadWorker> worker = m_page->spreadWorker();
    QVERIFY(worker->isBusy());
    m_page.reset();
    QVERIFY(worker.isNull());
    QCoreApplication::processEvents();
}

QTEST_MAIN(TestSpreadNote)
#include "tst_spreadnote.moc"
