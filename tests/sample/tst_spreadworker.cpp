// CSpreadWorker on its own: the spread it reports is pickSpread's, a newer
// start silences an older one, cancel() silences everything started, and
// the worker can go while a spread still runs.
#include "colour/pickspread.h"
#include "sample/spreadworker.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

QImage noise(int width, int height, quint32 seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator rng(seed);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = 0xff000000u | rng.bounded(0x1000000u);
    }
    return image;
}

// Large enough that its spread takes a while: colours are counted and
// nearly every one is a colour of its own.
const QImage &bigNoise()
{
    static const QImage image = noise(1600, 1000, 41);
    return image;
}

const RgbColour kGrey{0.5, 0.5, 0.5};

// Lets the worker finish and its result through the event loop.
void settle(CSpreadWorker &worker)
{
    QVERIFY(worker.waitForIdle(60000));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

} // namespace

class TestSpreadWorker : public QObject
{
    Q_OBJECT

private slots:
    void reportsWhatPickSpreadGives_data();
    void reportsWhatPickSpreadGives();
    void aNewerStartSilencesTheOlder();
    void cancelSilencesWhatWasStarted();
    void emptyRegionReportsNothing();
    void goingWhileItRunsIsSafe();
};

void TestSpreadWorker::reportsWhatPickSpreadGives_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("click") << QRect(10, 10, 9, 9);
    QTest::newRow("band") << QRect(0, 0, 800, 600);
    QTest::newRow("counted") << QRect(0, 0, 1600, 1000);
}

void TestSpreadWorker::reportsWhatPickSpreadGives()
{
    QFETCH(QRect, region);
    CSpreadWorker worker;
    QSignalSpy ready(&worker, &CSpreadWorker::spreadReady);
    worker.start(bigNoise(), region, kGrey);
    QVERIFY(worker.isBusy());
    QCOMPARE(worker.generation(), quint64(1));
    QVERIFY(ready.wait(60000));
    QCOMPARE(ready.count(), 1);
    QVERIFY(!worker.isBusy());
    const auto got = ready.at(0).at(0).value<PickSpread>();
    PickSpread expected;
    QVERIFY(pickSpread(bigNoise(), region, kGrey, &expected));
    QCOMPARE(got.pixels, expected.pixels);
    QCOMPARE(got.mean, expected.mean);
    QCOMPARE(got.p95, expected.p95);
}

// Nothing reaches the event loop between the two starts, so the first
// spread cannot have been reported whatever the speed of the machine.
void TestSpreadWorker::aNewerStartSilencesTheOlder()
{
    CSpreadWorker worker;
    QSignalSpy ready(&worker, &CSpreadWorker::spreadReady);
    worker.start(bigNoise(), bigNoise().rect(), kGrey);
    worker.start(bigNoise(), QRect(3, 4, 5, 5), kGrey);
    QCOMPARE(worker.generation(), quint64(2));
    settle(worker);
    QTRY_COMPARE(ready.count(), 1);
    QCOMPARE(ready.at(0).at(0).value<PickSpread>().pixels, qint64(25));
    settle(worker);
    QCOMPARE(ready.count(), 1);
}

void TestSpreadWorker::cancelSilencesWhatWasStarted()
{
    CSpreadWorker worker;
    QSignalSpy ready(&worker, &CSpreadWorker::spreadReady);
    worker.start(bigNoise(), bigNoise().rect(), kGrey);
    worker.start(bigNoise(), QRect(0, 0, 9, 9), kGrey);
    worker.cancel();
    QVERIFY(!worker.isBusy());
    settle(worker);
    QCOMPARE(ready.count(), 0);
    // And it works on afterwards.
    worker.start(bigNoise(), QRect(0, 0, 2, 2), kGrey);
    QVERIFY(ready.wait(60000));
    QCOMPARE(ready.at(0).at(0).value<PickSpread>().pixels, qint64(4));
}

void TestSpreadWorker::emptyRegionReportsNothing()
{
    CSpreadWorker worker;
    QSignalSpy ready(&worker, &CSpreadWorker::spreadReady);
    worker.start(bigNoise(), QRect(5000, 5000, 9, 9), kGrey);
    settle(worker);
    QCOMPARE(ready.count(), 0);
}

// The page closing: the worker goes at once, with its spread running on a
// picture nobody else holds any more. (The sanitizer build watches this.)
void TestSpreadWorker::goingWhileItRunsIsSafe()
{
    auto worker = std::make_unique<CSpreadWorker>();
    QSignalSpy ready(worker.get(), &CSpreadWorker::spreadReady);
    {
        const QImage own = noise(1200, 1000, 7);
        worker->start(own, own.rect(), kGrey);
    }
    worker.reset();
    QCoreApplication::processEvents();
    QCOMPARE(ready.count(), 0);
}

QTEST_GUILESS_MAIN(TestSpreadWorker)
#include "tst_spreadworker.moc"
