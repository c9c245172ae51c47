#include "tables/datacolourtable.h"
#include "tables/datasetsnapshot.h"
#include "tables/recoverycopy.h"

#include "support/fixturefile.h"

#include <QTemporaryDir>
#include <QtTest>

// The recovery copy on disk: the set in the table format behind a few
// header lines of its own, read back whole; anything else is unreadable.
class TestRecoveryCopy : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void writtenCopyReadsBackWhole();
    void copyIsATableFileAnyReaderCanLoad();
    void setWithoutFileReadsBackWithoutOne();
    void missingCopyCannotBeOpened();
    void damagedCopiesAreUnreadable_data();
    void damagedCopiesAreUnreadable();
    void snapshotRestoresTableAndComparesByValue();

private:
    CRecoveryCopy sample() const;
    QTemporaryDir m_dir;
};

void TestRecoveryCopy::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

CRecoveryCopy TestRecoveryCopy::sample() const
{
    CRecoveryCopy copy;
    copy.dataSet.rows = {{QStringLiteral("Sky Blue"), 0.5294, 0.8078, 0.9216},
                         {QStringLiteral("Amber"), 1.0, 0.75, 0.0}};
    copy.dataSet.filePath = QStringLiteral("/home/someone/Client Photos/set.txt");
    copy.dataSet.header = QStringLiteral("# picked on Monday\n# second line");
    copy.dataSet.untitled = false;
    copy.savedAt = QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26, 535), Qt::UTC);
    copy.processId = 4242;
    return copy;
}

void TestRecoveryCopy::writtenCopyReadsBackWhole()
{
    const QString path = m_dir.filePath(QStringLiteral("whole.txt"));
    const CRecoveryCopy written = sample();
    QVERIFY(written.write(path));
    CRecoveryCopy read;
    QCOMPARE(CRecoveryCopy::read(path, &read), CRecoveryCopy::Read);
    QVERIFY(read.dataSet == written.dataSet);
    QCOMPARE(read.savedAt, written.savedAt);
    QCOMPARE(read.processId, qint64(4242));
}

void TestRecoveryCopy::copyIsATableFileAnyReaderCanLoad()
{
    const QString path = m_dir.filePath(QStringLiteral("table.txt"));
    QVERIFY(sample().write(path));
    CDataColourTable table;
    QCOMPARE(table.load(path).status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(1)->name, QStringLiteral("Amber"));
    QVERIFY(FixtureFile::read(path).startsWith("#@vellora-recovery 1\n#@path /home/someone/"));
}

void TestRecoveryCopy::setWithoutFileReadsBackWithoutOne()
{
    const QString path = m_dir.filePath(QStringLiteral("untitled.txt"));
    CRecoveryCopy written = sample();
    written.dataSet.filePath.clear();
    written.dataSet.header.clear();
    written.dataSet.untitled = true;
    QVERIFY(written.write(path));
    CRecoveryCopy read;
    QCOMPARE(CRecoveryCopy::read(path, &read), CRecoveryCopy::Read);
    QVERIFY(read.dataSet.filePath.isEmpty());
    QVERIFY(read.dataSet.header.isEmpty());
    QVERIFY(read.dataSet.untitled);
}

void TestRecoveryCopy::missingCopyCannotBeOpened()
{
    CRecoveryCopy read;
    QCOMPARE(CRecoveryCopy::read(m_dir.filePath(QStringLiteral("none.txt")), &read),
             CRecoveryCopy::CannotOpen);
}

void TestRecoveryCopy::damagedCopiesAreUnreadable_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("plain data set") << QByteArray("0.1, 0.2, 0.3, Soot\n");
    QTest::newRow("bad line") << QByteArray("#@vellora-recovery 1\n#@time 2026-03-14T15:09:26Z\n"
                                            "half a line,\n");
    QTest::newRow("no time") << QByteArray("#@vellora-recovery 1\n0.1, 0.2, 0.3, Soot\n");
    QTest::newRow("other version") << QByteArray("#@vellora-recovery 2\n#@time "
                                                 "2026-03-14T15:09:26Z\n");
    QTest::newRow("empty") << QByteArray();
}

void TestRecoveryCopy::damagedCopiesAreUnreadable()
{
    QFETCH(QByteArray, bytes);
    const QString path = m_dir.filePath(QStringLiteral("damaged.txt"));
    QVERIFY(FixtureFile::write(path, bytes));
    CRecoveryCopy read;
    QCOMPARE(CRecoveryCopy::read(path, &read), CRecoveryCopy::Unreadable);
}

void TestRecoveryCopy::snapshotRestoresTableAndComparesByValue()
{
    const CDataSetSnapshot snapshot = sample().dataSet;
    CDataColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Gone"), 0.0, 0.0, 0.0));
    table.setUntitled(true);
    snapshot.restoreInto(table);
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.filePath(), snapshot.filePath);
    QCOMPARE(table.header(), snapshot.header);
    QVERIFY(!table.isUntitled());
    QCOMPARE(table.markerAList().size(), 2);
    QVERIFY(CDataSetSnapshot::capture(table) == snapshot);
    table.at(1)->blue = 0.5;
    QVERIFY(CDataSetSnapshot::capture(table) != snapshot);
}

QTEST_MAIN(TestRecoveryCopy)
#include "tst_recoverycopy.moc"
