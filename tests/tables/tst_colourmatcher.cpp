#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include "support/fixturefile.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

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
    table->add(new CColourTableEntry("Red", 1.0, 0.0, 0.0));
    table->add(new CColourTableEntry("Near grey", 0.52, 0.5, 0.5));
    table->add(new CColourTableEntry("Blue", 0.0, 0.0, 1.0));
    table->add(new CColourTableEntry("Grey", 0.5, 0.5, 0.5));
    table->add(new CColourTableEntry("White", 1.0, 1.0, 1.0));
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
        table.add(new CColourTableEntry(QString::number(i), random.bounded(8) / 7.0,
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
    table.add(new CColourTableEntry("Teal", 0.0, 0.502, 0.502));
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

QTEST_GUILESS_MAIN(TestColourMatcher)
#include "tst_colourmatcher.moc"
