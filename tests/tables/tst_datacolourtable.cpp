#include "tables/datacolourtable.h"

#include "support/fixturefile.h"

#include <QTemporaryDir>
#include <QtTest>

class TestDataColourTable : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_fiveColours;
    static void addColours(CDataColourTable &table, int count);
    static QStringList names(const CColourTable &table);

private slots:
    void initTestCase();

    void addAppendsZeroMarkers();
    void ownedAddThroughTheBaseExtendsTheMarkers();
    void loadingFiveColoursGivesEmptyMarkerLists();
    void markersOfLoadedRowsReadZeroAndIgnoreWrites();
    void removingIndexBeyondEntriesChangesNothing();
    void negativeRemoveAtChangesNothing();
    void removeAtRemovesFromAllThreeLists();
    void removeAtAfterLoadChecksEachListOnItsOwn();
    void removeAtDoesNotDeleteTheEntry();
    void takeAtRemovesFromAllThreeListsAndHandsTheEntryBack();
    void addAfterLoadPutsMarkersOnRowZero();
    void insertAtPutsTheEntryAndZeroMarkersInPlace();
    void insertAtClampsTheIndexAndFollowsShortMarkerLists();
    void sortResetsMarkersToZero();
    void sortOrdersEntriesLikeTheBase();
    void clearEmptiesMarkersEntriesPathAndHeader();
    void loadEmptiesMarkerLists();
    void failedLoadEmptiesMarkerLists();
    void csvFileHoldsSameLinesAsTxtFile();
    void markerAccessOutsideListsIsHarmless_data();
    void markerAccessOutsideListsIsHarmless();
};

void TestDataColourTable::addColours(CDataColourTable &table, int count)
{
    for (int i = 0; i < count; ++i)
        table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Colour %1").arg(i), 0.1 * i,
                                                      0.2, 0.3));
}

QStringList TestDataColourTable::names(const CColourTable &table)
{
    QStringList list;
    for (const CColourTableEntry *e : table.entries())
        list << e->name;
    return list;
}

void TestDataColourTable::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_fiveColours = m_dir.filePath("five.txt");
    QVERIFY(FixtureFile::write(m_fiveColours, "#My data set\n"
                                              "1.0, 0.0, 0.0, Red\n"
                                              "0.0, 1.0, 0.0, Green\n"
                                              "0.0, 0.0, 1.0, Blue\n"
                                              "1.0, 1.0, 0.0, Yellow\n"
                                              "0.0, 0.0, 0.0, Black\n"));
}

void TestDataColourTable::addAppendsZeroMarkers()
{
    CDataColourTable table;
    addColours(table, 3);
    QCOMPARE(table.count(), 3);
    QCOMPARE(table.markerAList(), (QList<int>{0, 0, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 0}));
}

// The owning add() lives in the base; a caller holding only the base must
// still reach the data table's add(), or the markers would fall behind.
void TestDataColourTable::ownedAddThroughTheBaseExtendsTheMarkers()
{
    CDataColourTable table;
    CColourTable &base = table;
    auto entry = std::make_unique<CColourTableEntry>(QStringLiteral("Owned"), 0.5, 0.5, 0.5);
    const CColourTableEntry *handed = entry.get();
    base.add(std::move(entry));
    QVERIFY(!entry);
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0), handed);
    QCOMPARE(table.markerAList(), QList<int>{0});
    QCOMPARE(table.markerBList(), QList<int>{0});
}

void TestDataColourTable::loadingFiveColoursGivesEmptyMarkerLists()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 5);
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
}

void TestDataColourTable::markersOfLoadedRowsReadZeroAndIgnoreWrites()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    for (int row = 0; row < table.count(); ++row) {
        table.setMarkerA(row, 1);
        table.setMarkerB(row, 1);
        QCOMPARE(table.markerA(row), 0);
        QCOMPARE(table.markerB(row), 0);
    }
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
}

void TestDataColourTable::removingIndexBeyondEntriesChangesNothing()
{
    CDataColourTable table;
    addColours(table, 5);
    table.setMarkerA(4, 7);
    table.setMarkerB(3, 9);
    QVERIFY(!table.removeAt(5));
    QCOMPARE(table.count(), 5);
    QCOMPARE(names(table).last(), QString("Colour 4"));
    QCOMPARE(table.markerAList(), (QList<int>{0, 0, 0, 0, 7}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 0, 9, 0}));
}

void TestDataColourTable::negativeRemoveAtChangesNothing()
{
    CDataColourTable table;
    addColours(table, 2);
    table.setMarkerA(0, 3);
    QVERIFY(!table.removeAt(-1));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.markerAList(), (QList<int>{3, 0}));
    QCOMPARE(table.markerBList().size(), 2);
}

void TestDataColourTable::removeAtRemovesFromAllThreeLists()
{
    CDataColourTable table;
    addColours(table, 4);
    table.setMarkerA(2, 5);
    table.setMarkerB(3, 6);
    const CColourTableEntry *removed = table.at(1);
    QVERIFY(table.removeAt(1));
    const std::unique_ptr<const CColourTableEntry> owned(removed); // ours now
    QCOMPARE(names(table), (QStringList{"Colour 0", "Colour 2", "Colour 3"}));
    QCOMPARE(table.markerAList(), (QList<int>{0, 5, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 6}));
}

void TestDataColourTable::takeAtRemovesFromAllThreeListsAndHandsTheEntryBack()
{
    CDataColourTable table;
    addColours(table, 4);
    table.setMarkerA(2, 5);
    table.setMarkerB(3, 6);
    const std::unique_ptr<CColourTableEntry> taken = table.takeAt(1);
    QVERIFY(taken);
    QCOMPARE(taken->name, QString("Colour 1"));
    QCOMPARE(names(table), (QStringList{"Colour 0", "Colour 2", "Colour 3"}));
    QCOMPARE(table.markerAList(), (QList<int>{0, 5, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 6}));
    QVERIFY(!table.takeAt(3));
    QCOMPARE(table.count(), 3);
}

void TestDataColourTable::removeAtAfterLoadChecksEachListOnItsOwn()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    table.add(std::make_unique<CColourTableEntry>("Added", 0.5, 0.5, 0.5));
    table.setMarkerA(0, 4);
    QCOMPARE(table.markerAList(), QList<int>{4});

    // Index 3 exists among the entries only.
    const CColourTableEntry *third = table.at(3);
    QVERIFY(table.removeAt(3));
    const std::unique_ptr<const CColourTableEntry> ownedThird(third);
    QCOMPARE(table.count(), 5);
    QCOMPARE(table.markerAList(), QList<int>{4});
    QCOMPARE(table.markerBList(), QList<int>{0});

    // Index 0 exists in all three.
    const CColourTableEntry *first = table.at(0);
    QVERIFY(table.removeAt(0));
    const std::unique_ptr<const CColourTableEntry> ownedFirst(first);
    QCOMPARE(table.count(), 4);
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
}

void TestDataColourTable::removeAtDoesNotDeleteTheEntry()
{
    CDataColourTable table;
    addColours(table, 2);
    const CColourTableEntry *entry = table.at(0);
    QVERIFY(table.removeAt(0));
    // Adopting it frees it; the sanitizer would catch a second delete.
    const std::unique_ptr<const CColourTableEntry> owned(entry);
    QCOMPARE(owned->name, QString("Colour 0"));
}

void TestDataColourTable::insertAtPutsTheEntryAndZeroMarkersInPlace()
{
    CDataColourTable table;
    addColours(table, 3);
    table.setMarkerA(1, 4);
    table.setMarkerB(2, 7);
    table.insertAt(1, std::make_unique<CColourTableEntry>(QStringLiteral("Back"), 0.5, 0.5, 0.5));
    QCOMPARE(names(table), (QStringList{"Colour 0", "Back", "Colour 1", "Colour 2"}));
    QCOMPARE(table.markerAList(), (QList<int>{0, 0, 4, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 0, 7}));
}

void TestDataColourTable::insertAtClampsTheIndexAndFollowsShortMarkerLists()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    table.insertAt(99, std::make_unique<CColourTableEntry>(QStringLiteral("Last"), 0.5, 0.5, 0.5));
    table.insertAt(-3, std::make_unique<CColourTableEntry>(QStringLiteral("First"), 0.5, 0.5, 0.5));
    QCOMPARE(table.count(), 7);
    QCOMPARE(table.at(0)->name, QStringLiteral("First"));
    QCOMPARE(table.at(6)->name, QStringLiteral("Last"));
    // After a load the marker lists are empty: only the front can take one.
    QCOMPARE(table.markerAList(), (QList<int>{0}));
    QCOMPARE(table.markerBList(), (QList<int>{0}));
}

void TestDataColourTable::addAfterLoadPutsMarkersOnRowZero()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    table.add(std::make_unique<CColourTableEntry>("Added", 0.5, 0.5, 0.5));
    QCOMPARE(table.count(), 6);
    QCOMPARE(table.markerAList().size(), 1);
    QCOMPARE(table.markerBList().size(), 1);

    // The added entry is row 5, but its markers are read and written as row 0.
    table.setMarkerA(0, 2);
    table.setMarkerB(0, 3);
    QCOMPARE(table.markerA(0), 2);
    QCOMPARE(table.markerB(0), 3);
    table.setMarkerA(5, 8);
    QCOMPARE(table.markerA(5), 0);
    QCOMPARE(table.markerAList(), QList<int>{2});
}

void TestDataColourTable::sortResetsMarkersToZero()
{
    CDataColourTable table;
    addColours(table, 4);
    table.setMarkerA(2, 1);
    table.setMarkerB(2, 1);
    QCOMPARE(table.markerA(2), 1);
    table.sort();
    QCOMPARE(table.markerAList(), (QList<int>{0, 0, 0, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 0, 0}));
}

void TestDataColourTable::sortOrdersEntriesLikeTheBase()
{
    CDataColourTable table;
    for (const char *name : {"beta", "Gamma", "alpha"})
        table.add(std::make_unique<CColourTableEntry>(name, 0.0, 0.0, 0.0));
    table.sort();
    QCOMPARE(names(table), (QStringList{"alpha", "beta", "Gamma"}));
}

void TestDataColourTable::clearEmptiesMarkersEntriesPathAndHeader()
{
    CDataColourTable table;
    addColours(table, 3);
    table.setHeader("#h");
    table.setFilePath("/data/set.txt");
    table.clear();
    QCOMPARE(table.count(), 0);
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
    QVERIFY(table.header().isEmpty());
    QVERIFY(table.filePath().isEmpty());
}

void TestDataColourTable::loadEmptiesMarkerLists()
{
    CDataColourTable table;
    addColours(table, 2);
    QCOMPARE(table.markerAList().size(), 2);
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
    QCOMPARE(table.header(), QString("#My data set"));
}

void TestDataColourTable::failedLoadEmptiesMarkerLists()
{
    const QString bad = m_dir.filePath("bad.txt");
    QVERIFY(FixtureFile::write(bad, "1, 1, 1, ok\nnot a colour\n"));
    CDataColourTable table;
    addColours(table, 2);
    const CColourTable::LoadResult result = table.load(bad);
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 2);
    QCOMPARE(table.count(), 0);
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
}

void TestDataColourTable::csvFileHoldsSameLinesAsTxtFile()
{
    CDataColourTable table;
    QCOMPARE(table.load(m_fiveColours).status, int(CColourTable::Loaded));
    table.add(std::make_unique<CColourTableEntry>("Mixed, odd", 0.123456, 0.5, 1.0));
    const QString csv = m_dir.filePath("out/set.csv");
    const QString txt = m_dir.filePath("out/set.txt");
    QVERIFY(table.write(csv));
    QVERIFY(table.write(txt));
    const QByteArray csvBytes = FixtureFile::read(csv);
    QVERIFY(csvBytes.startsWith("#My data set\n1.0000, 0.0000, 0.0000, Red\n"));
    QVERIFY(csvBytes.endsWith("0.1235, 0.5000, 1.0000, Mixed; odd\n"));
    QCOMPARE(csvBytes, FixtureFile::read(txt));
}

void TestDataColourTable::markerAccessOutsideListsIsHarmless_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("just beyond") << 3;
    QTest::newRow("far beyond") << 99;
}

void TestDataColourTable::markerAccessOutsideListsIsHarmless()
{
    QFETCH(int, index);
    CDataColourTable table;
    addColours(table, 3);
    table.setMarkerA(index, 5);
    table.setMarkerB(index, 5);
    QCOMPARE(table.markerA(index), 0);
    QCOMPARE(table.markerB(index), 0);
    QCOMPARE(table.markerAList(), (QList<int>{0, 0, 0}));
    QCOMPARE(table.markerBList(), (QList<int>{0, 0, 0}));
}

QTEST_GUILESS_MAIN(TestDataColourTable)
#include "tst_datacolourtable.moc"
