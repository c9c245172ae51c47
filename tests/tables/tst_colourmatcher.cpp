#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include "support/fixturefile.h"
#include "support/matchcomparison.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <limits>
#include <cmath>
#include <vector>

Q_DECLARE_METATYPE(QVector<float>)

class TestColourMatcher : public QObject
{
    Q_OBJECT

private:
    static QVector<CMatchResult> records(const QVector<float> &deltaEs);
    static CColourTable *sampleTable();

private slots:
    void rowsToShow_data();
    void rowsToShow();
    void matchGivesOneRecordPerEntrySortedByDeltaE();
    void matchUsesSinglePrecisionDeltaEOfEntryThenSample();
    void matchSortsLargeRandomTable();
    void matchCopiesEntryColourAndLab();
    void identicalColourScoresZero();
    void emptyTableGivesNoRecords();
    void notANumberEntriesSortLastWithoutCrashing();
    void bestKeepsTableOrderAmongEqualDifferences();
    void bestWithNotANumberEntriesEqualsFullMatch();
    void bestOfMoreThanTheTableGivesEveryEntry();
    void bestOfNothingIsEmpty();
    void bestRowsStopAtTheRowsShown();
    void bestRowsCoverEveryRowShown_data();
    void bestRowsCoverEveryRowShown();
};

QVector<CMatchResult> TestColourMatcher::records(const QVector<float> &deltaEs)
{
    QVector<CMatchResult> list;
    for (float d : deltaEs) {
        CMatchResult r;
        r.deltaE = d;
        list.append(r);
    }
    return list;
}

CColourTable *TestColourMatcher::sampleTable()
{
    auto *table = new CColourTable;
    table->add(std::make_unique<CColourTableEntry>("Red", 1.0, 0.0, 0.0));
    table->add(std::make_unique<CColourTableEntry>("Near grey", 0.52, 0.5, 0.5));
    table->add(std::make_unique<CColourTableEntry>("Blue", 0.0, 0.0, 1.0));
    table->add(std::make_unique<CColourTableEntry>("Grey", 0.5, 0.5, 0.5));
    table->add(std::make_unique<CColourTableEntry>("White", 1.0, 1.0, 1.0));
    return table;
}

void TestColourMatcher::rowsToShow_data()
{
    QTest::addColumn<int>("maxRecords");
    QTest::addColumn<QVector<float>>("deltaEs");
    QTest::addColumn<int>("rows");

    QTest::newRow("close fifth record is added, sixth is not")
        << 4 << QVector<float>{0.5f, 1.0f, 2.0f, 2.4f, 2.45f, 3.0f} << 5;
    QTest::newRow("short table shows all") << 8 << QVector<float>{0.1f, 5.0f, 40.0f} << 3;
    QTest::newRow("forty close records stop at 32") << 4 << QVector<float>(40, 1.0f) << 32;
    QTest::newRow("asked-for rows shown however far")
        << 4 << QVector<float>{10.0f, 20.0f, 30.0f, 40.0f, 50.0f} << 4;
    QTest::newRow("exactly 2.5 is not close") << 2 << QVector<float>{0.0f, 0.0f, 2.5f, 0.1f} << 2;
    QTest::newRow("more asked for than 32") << 40 << QVector<float>(50, 1.0f) << 40;
    QTest::newRow("zero asked for, close ones still shown")
        << 0 << QVector<float>{0.2f, 2.0f, 2.6f} << 2;
    QTest::newRow("empty list") << 4 << QVector<float>{} << 0;
}

void TestColourMatcher::rowsToShow()
{
    QFETCH(int, maxRecords);
    QFETCH(QVector<float>, deltaEs);
    QTEST(CColourMatcher::rowsToShow(records(deltaEs), maxRecords), "rows");
}

void TestColourMatcher::matchGivesOneRecordPerEntrySortedByDeltaE()
{
    QScopedPointer<CColourTable> table(sampleTable());
    const QVector<CMatchResult> results = CColourMatcher::match(*table, RgbColour{0.5, 0.5, 0.5});
    QCOMPARE(results.size(), 5);
    QCOMPARE(results.at(0).name, QString("Grey"));
    QCOMPARE(results.at(1).name, QString("Near grey"));
    for (int i = 1; i < results.size(); ++i)
        QVERIFY(results.at(i - 1).deltaE <= results.at(i).deltaE);
}

void TestColourMatcher::matchUsesSinglePrecisionDeltaEOfEntryThenSample()
{
    QScopedPointer<CColourTable> table(sampleTable());
    const RgbColour sample{0.2, 0.7, 0.4};
    const LabColour s = rgbToLab(sample);
    const QVector<CMatchResult> results = CColourMatcher::match(*table, sample);
    for (const CMatchResult &r : results) {
        const float expected = deltaE2000(float(r.L), float(r.a), float(r.b), float(s.L), float(s.a),
                                          float(s.b));
        QCOMPARE(r.deltaE, expected);
        QVERIFY(r.deltaE > 0.0f);
    }
}

void TestColourMatcher::matchSortsLargeRandomTable()
{
    QRandomGenerator random(4242);
    CColourTable table;
    for (int i = 0; i < 5000; ++i) {
        // Few distinct colours, so that many differences are equal.
        table.add(std::make_unique<CColourTableEntry>(QString::number(i), random.bounded(8) / 7.0,
                                        random.bounded(8) / 7.0, random.bounded(8) / 7.0));
    }
    const RgbColour sample{0.4, 0.3, 0.9};
    const LabColour s = rgbToLab(sample);
    const QVector<CMatchResult> results = CColourMatcher::match(table, sample);
    QCOMPARE(results.size(), 5000);
    QSet<QString> seen;
    for (int i = 0; i < results.size(); ++i) {
        const CMatchResult &r = results.at(i);
        if (i > 0)
            QVERIFY(results.at(i - 1).deltaE <= r.deltaE);
        const CColourTableEntry *e = table.at(r.name.toInt());
        QCOMPARE(r.red, e->red);
        QCOMPARE(r.deltaE, deltaE2000(float(e->L), float(e->a), float(e->b), float(s.L),
                                      float(s.a), float(s.b)));
        seen.insert(r.name);
    }
    QCOMPARE(seen.size(), 5000);
}

void TestColourMatcher::matchCopiesEntryColourAndLab()
{
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Teal", 0.0, 0.502, 0.502));
    const QVector<CMatchResult> results = CColourMatcher::match(table, RgbColour{0.0, 0.5, 0.5});
    QCOMPARE(results.size(), 1);
    const CMatchResult &r = results.at(0);
    QCOMPARE(r.name, QString("Teal"));
    QCOMPARE(r.red, 0.0);
    QCOMPARE(r.green, 0.502);
    QCOMPARE(r.blue, 0.502);
    QCOMPARE(r.L, table.at(0)->L);
    QCOMPARE(r.a, table.at(0)->a);
    QCOMPARE(r.b, table.at(0)->b);
}

void TestColourMatcher::identicalColourScoresZero()
{
    QScopedPointer<CColourTable> table(sampleTable());
    const QVector<CMatchResult> results = CColourMatcher::match(*table, RgbColour{0.0, 0.0, 1.0});
    QCOMPARE(results.at(0).name, QString("Blue"));
    QCOMPARE(results.at(0).deltaE, 0.0f);
}

void TestColourMatcher::emptyTableGivesNoRecords()
{
    CColourTable table;
    const QVector<CMatchResult> results = CColourMatcher::match(table, RgbColour{0.1, 0.2, 0.3});
    QVERIFY(results.isEmpty());
    QCOMPARE(CColourMatcher::rowsToShow(results, 4), 0);
}

void TestColourMatcher::notANumberEntriesSortLastWithoutCrashing()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QByteArray content;
    for (int i = 0; i < 40; ++i) {
        content += i % 3 == 0 ? QByteArray("nan, nan, nan, Broken\n")
                              : QByteArray::number(i / 40.0) + ", 0.5, 0.5, Fine\n";
    }
    QVERIFY(FixtureFile::write(dir.filePath("nan.clrtable"), content));
    CColourTable table;
    QCOMPARE(table.load(dir.filePath("nan.clrtable")).status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 40);
    QVERIFY(std::isnan(table.at(0)->L));

    const QVector<CMatchResult> results = CColourMatcher::match(table, RgbColour{0.5, 0.5, 0.5});
    QCOMPARE(results.size(), 40);
    const int fine = 40 - 14;
    for (int i = 0; i < fine; ++i)
        QCOMPARE(results.at(i).name, QString("Fine"));
    for (int i = fine; i < 40; ++i)
        QCOMPARE(results.at(i).name, QString("Broken"));
}

void TestColourMatcher::bestKeepsTableOrderAmongEqualDifferences()
{
    CColourTable table;
    for (int i = 0; i < 100; ++i) {
        const double v = (i % 5) / 4.0;
        table.add(std::make_unique<CColourTableEntry>(QString::number(i), v, v, 0.3));
    }
    const RgbColour sample{0.5, 0.5, 0.3};
    const QVector<CMatchResult> best = CColourMatcher(table).best(sample, 32);
    QCOMPARE(best.size(), 32);
    // Every fifth entry is the sample's own colour: those twenty come first,
    // in table order, then the next colour's entries in table order.
    for (int i = 0; i < 20; ++i) {
        QCOMPARE(best.at(i).name, QString::number(2 + 5 * i));
        QCOMPARE(best.at(i).deltaE, 0.0f);
    }
    QVERIFY(best.at(20).deltaE > 0.0f);
    for (int i = 21; i < 32; ++i) {
        QCOMPARE(best.at(i).deltaE, best.at(20).deltaE);
        QVERIFY(best.at(i - 1).name.toInt() < best.at(i).name.toInt());
    }
    QCOMPARE(MatchComparison::firstDifference(CColourMatcher::match(table, sample), best, 32), QString());
}

void TestColourMatcher::bestWithNotANumberEntriesEqualsFullMatch()
{
    CColourTable table;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (int i = 0; i < 60; ++i) {
        auto entry = std::make_unique<CColourTableEntry>(QString::number(i), i / 60.0, 0.5, 0.5);
        if (i % 4 == 0)
            entry->L = nan;
        else if (i % 4 == 1)
            entry->a = nan;
        else if (i == 2)
            entry->L = inf;
        table.add(std::move(entry));
    }
    const CColourMatcher matcher(table);
    for (int keep : {1, 5, 32, 40, 59}) {
        QCOMPARE(MatchComparison::firstDifference(CColourMatcher::match(table, RgbColour{0.5, 0.5, 0.5}),
                                 matcher.best(RgbColour{0.5, 0.5, 0.5}, keep), keep),
                 QString());
    }
}

void TestColourMatcher::bestOfMoreThanTheTableGivesEveryEntry()
{
    QScopedPointer<CColourTable> table(sampleTable());
    const QVector<CMatchResult> best = CColourMatcher(*table).best(RgbColour{0.5, 0.5, 0.5}, 40);
    QCOMPARE(best.size(), 5);
    QCOMPARE(MatchComparison::firstDifference(CColourMatcher::match(*table, RgbColour{0.5, 0.5, 0.5}), best, 40),
             QString());
}

void TestColourMatcher::bestOfNothingIsEmpty()
{
    QScopedPointer<CColourTable> table(sampleTable());
    QVERIFY(CColourMatcher(*table).best(RgbColour{0.5, 0.5, 0.5}, 0).isEmpty());
    CColourTable empty;
    QVERIFY(CColourMatcher(empty).best(RgbColour{0.5, 0.5, 0.5}, 32).isEmpty());
}

void TestColourMatcher::bestRowsStopAtTheRowsShown()
{
    // Four asked for, then nothing close: far colours beyond the fourth are
    // not needed.
    CColourTable table;
    for (int i = 0; i < 300; ++i)
        table.add(std::make_unique<CColourTableEntry>(QString::number(i), (i % 17) / 16.0,
                                                      (i % 5) / 4.0, 0.1));
    const RgbColour sample{0.33, 0.9, 0.77};
    const QVector<CMatchResult> full = CColourMatcher::match(table, sample);
    QVERIFY(full.at(4).deltaE >= 2.5f);
    const QVector<CMatchResult> rows = CColourMatcher(table).bestRows(sample, 4);
    QCOMPARE(rows.size(), 4);
    QCOMPARE(MatchComparison::firstDifference(full, rows, 4), QString());
}

void TestColourMatcher::bestRowsCoverEveryRowShown_data()
{
    QTest::addColumn<int>("maxRecords");
    QTest::newRow("default four") << 4;
    QTest::newRow("none asked for") << 0;
    QTest::newRow("thirty-two") << 32;
    QTest::newRow("more than thirty-two") << 45;
}

void TestColourMatcher::bestRowsCoverEveryRowShown()
{
    QFETCH(int, maxRecords);
    CColourTable table;
    // Sixty colours all within 2.5 of the sample, and more far away.
    for (int i = 0; i < 200; ++i) {
        const double v = i < 60 ? 0.5 + i * 0.0002 : (i % 50) / 49.0;
        table.add(std::make_unique<CColourTableEntry>(QString::number(i), v, 0.5, 0.5));
    }
    const RgbColour sample{0.5, 0.5, 0.5};
    const QVector<CMatchResult> full = CColourMatcher::match(table, sample);
    const QVector<CMatchResult> rows = CColourMatcher(table).bestRows(sample, maxRecords);
    QCOMPARE(rows.size(), CColourMatcher::rowsToShow(full, maxRecords));
    QVERIFY(rows.size() >= std::min(std::max(maxRecords, 32), 60));
    QCOMPARE(CColourMatcher::rowsToShow(rows, maxRecords),
             CColourMatcher::rowsToShow(full, maxRecords));
    QCOMPARE(MatchComparison::firstDifference(full, rows, rows.size()), QString());
}

QTEST_GUILESS_MAIN(TestColourMatcher)
#include "tst_colourmatcher.moc"
