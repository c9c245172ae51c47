#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include "support/matchcomparison.h"

#include <QRandomGenerator>
#include <QScopedPointer>
#include <QtTest>

#include <algorithm>
#include <thread>
#include <vector>

// The quick match against the full computation it must equal, on a table and
// a number of samples large enough to meet every case the pruning can get
// wrong. Tens of seconds of work on two cores, so it stands apart from the
// matcher's own quick cases.
class TestColourMatcherReference : public QObject
{
    Q_OBJECT

private slots:
    void bestEqualsFullMatchOnTenThousandSamplesAgainstThirtyThousandEntries();
};

namespace {

// Many distinct colours plus a coarse grid whose colours repeat, so that
// equal differences (ties) occur as often as near-misses.
CColourTable *largeRandomTable(int entries, quint32 seed)
{
    QRandomGenerator random(seed);
    auto *table = new CColourTable;
    for (int i = 0; i < entries; ++i) {
        if (i % 3 == 0) {
            table->add(std::make_unique<CColourTableEntry>(
                QString::number(i), random.bounded(6) / 5.0, random.bounded(6) / 5.0,
                random.bounded(6) / 5.0));
        } else {
            table->add(std::make_unique<CColourTableEntry>(
                QString::number(i), random.generateDouble(), random.generateDouble(),
                random.generateDouble()));
        }
    }
    return table;
}

RgbColour randomSample(QRandomGenerator &random, const CColourTable &table)
{
    switch (random.bounded(4)) {
    case 0: { // exactly a table colour
        const CColourTableEntry *e = table.at(random.bounded(table.count()));
        return RgbColour{e->red, e->green, e->blue};
    }
    case 1: { // a grey
        const double v = random.generateDouble();
        return RgbColour{v, v, v};
    }
    default:
        return RgbColour{random.generateDouble(), random.generateDouble(), random.generateDouble()};
    }
}

} // namespace

void TestColourMatcherReference::bestEqualsFullMatchOnTenThousandSamplesAgainstThirtyThousandEntries()
{
    QScopedPointer<CColourTable> table(largeRandomTable(30000, 31));
    const CColourMatcher matcher(*table);
    const int samples = 10000;
    std::vector<RgbColour> colours;
    QRandomGenerator random(77);
    for (int i = 0; i < samples; ++i)
        colours.push_back(randomSample(random, *table));

    // The full computation scores 30,000 entries per sample: share the
    // samples among the cores.
    const int threads = int(std::max(1u, std::thread::hardware_concurrency()));
    std::vector<QString> failures(static_cast<size_t>(threads));
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int i = t; i < samples && failures[size_t(t)].isEmpty(); i += threads) {
                const int keep = i % 50 == 0 ? 1 + i % 97 : CColourMatcher::rowsKept(4);
                const RgbColour &sample = colours[size_t(i)];
                const QVector<CMatchResult> full = CColourMatcher::match(*table, sample);
                QString difference = MatchComparison::firstDifference(full, matcher.best(sample, keep), keep);
                if (difference.isEmpty()) {
                    const int maxRecords = i % 3 == 0 ? 4 : 1 + i % 40;
                    difference = MatchComparison::firstDifference(full, matcher.bestRows(sample, maxRecords),
                                                 CColourMatcher::rowsToShow(full, maxRecords));
                }
                if (!difference.isEmpty())
                    failures[size_t(t)] = QStringLiteral("sample %1: %2").arg(i).arg(difference);
            }
        });
    }
    for (std::thread &w : workers)
        w.join();
    for (const QString &failure : failures)
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

QTEST_GUILESS_MAIN(TestColourMatcherReference)
#include "tst_colourmatcherreference.moc"
