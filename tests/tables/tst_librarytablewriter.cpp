#include "tables/libcolourtable.h"
#include "tables/librarytablewriter.h"
#include "tables/tablefingerprint.h"

#include "support/fixturefile.h"

#include <QDateTime>
#include <QLockFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QByteArray kGreens = "# Greens\n0.1000, 0.5000, 0.1000, Moss\n0.2000, 0.8000, 0.2000, Lime\n";

QStringList namesOf(const CColourTable &table)
{
    QStringList names;
    for (const CColourTableEntry *entry : table.entries())
        names << entry->name;
    return names;
}

} // namespace

// Writes of a library table never overwrite a change made on disk since the
// table was read: an added colour joins the new contents, other writes are
// refused unless told to overwrite; and two writers in two processes never
// lose a colour nor leave a torn file.
class TestLibraryTableWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fingerprintSeesAChangeOfSameSizeAndTime();
    void addingToAnUnchangedTableWritesIt();
    void addingAfterATextEditorChangeKeepsBothColours();
    void addingANameTheChangedTableNowHoldsWritesNothing();
    void addingToAChangedTableThatNoLongerParsesWritesNothing();
    void writeOntoAChangedFileIsRefusedUnlessOverwriting();
    void writeOfANewTableChecksTheFileWasNotThere();
    void writerWaitsForTheLockAndGivesUp();
    void lockOfADeadWriterIsTakenOver();
    void twoProcessesAddingAtOnceLoseNothing();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_path;
};

void TestLibraryTableWriter::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_path = m_dir->filePath(QStringLiteral("Greens.clrtable"));
    QVERIFY(FixtureFile::write(m_path, kGreens));
}

void TestLibraryTableWriter::fingerprintSeesAChangeOfSameSizeAndTime()
{
    CLibColourTable table;
    QCOMPARE(table.load(m_path).status, int(CColourTable::Loaded));
    QVERIFY(table.fingerprint() == CTableFingerprint::ofFile(m_path));
    const QDateTime time = QFileInfo(m_path).lastModified();
    QByteArray same = kGreens;
    same.replace("Lime", "Lama");
    QVERIFY(FixtureFile::write(m_path, same));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(QFileInfo(m_path).size(), qint64(kGreens.size()));
    QVERIFY(table.fingerprint() != CTableFingerprint::ofFile(m_path));
    QVERIFY(!CTableFingerprint::ofFile(m_dir->filePath("none")).exists());
}

void TestLibraryTableWriter::addingToAnUnchangedTableWritesIt()
{
    CLibColourTable table;
    table.load(m_path);
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::Written);
    QCOMPARE(FixtureFile::read(m_path), kGreens + "0.3000, 0.6000, 0.3000, Fern\n");
    QVERIFY(table.fingerprint() == CTableFingerprint::ofFile(m_path));
    QVERIFY(!QFileInfo::exists(CLibraryTableWriter::lockPathOf(m_path)));
}

void TestLibraryTableWriter::addingAfterATextEditorChangeKeepsBothColours()
{
    CLibColourTable table;
    table.load(m_path);
    // Another program appends a colour between the load and the add.
    QVERIFY(FixtureFile::write(m_path, kGreens + "0.0000, 0.3000, 0.0000, Edited\n"));
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::Written);
    CLibColourTable reread;
    QCOMPARE(reread.load(m_path).status, int(CColourTable::Loaded));
    QCOMPARE(namesOf(reread), QStringList({"Moss", "Lime", "Edited", "Fern"}));
    QCOMPARE(namesOf(table), namesOf(reread));
    QCOMPARE(reread.header(), QStringLiteral("# Greens"));
}

void TestLibraryTableWriter::addingANameTheChangedTableNowHoldsWritesNothing()
{
    CLibColourTable table;
    table.load(m_path);
    const QByteArray changed = kGreens + "0.0000, 0.3000, 0.0000, Fern\n";
    QVERIFY(FixtureFile::write(m_path, changed));
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::DuplicateName);
    QCOMPARE(FixtureFile::read(m_path), changed);
    QCOMPARE(namesOf(table), QStringList({"Moss", "Lime", "Fern"}));
}

void TestLibraryTableWriter::addingToAChangedTableThatNoLongerParsesWritesNothing()
{
    CLibColourTable table;
    table.load(m_path);
    const QByteArray torn = kGreens + "0.0000, 0.30";
    QVERIFY(FixtureFile::write(m_path, torn));
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::Unreadable);
    QCOMPARE(FixtureFile::read(m_path), torn);
    QCOMPARE(namesOf(table), QStringList({"Moss", "Lime"}));
}

void TestLibraryTableWriter::writeOntoAChangedFileIsRefusedUnlessOverwriting()
{
    CLibColourTable table;
    table.load(m_path);
    table.add(std::make_unique<CColourTableEntry>("Mine", 0.1, 0.1, 0.1));
    const QByteArray theirs = "0.5, 0.5, 0.5, Theirs\n";
    QVERIFY(FixtureFile::write(m_path, theirs));
    QCOMPARE(CLibraryTableWriter::write(table, m_path, table.fingerprint(), false),
             CLibraryTableWriter::ChangedOnDisk);
    QCOMPARE(FixtureFile::read(m_path), theirs);
    QCOMPARE(CLibraryTableWriter::write(table, m_path, table.fingerprint(), true),
             CLibraryTableWriter::Written);
    QVERIFY(FixtureFile::read(m_path).contains("Mine"));
    // Written, the table knows its file again.
    QCOMPARE(CLibraryTableWriter::write(table, m_path, table.fingerprint(), false),
             CLibraryTableWriter::Written);
}

void TestLibraryTableWriter::writeOfANewTableChecksTheFileWasNotThere()
{
    const QString path = m_dir->filePath(QStringLiteral("New.clrtable"));
    const CTableFingerprint seen = CTableFingerprint::ofFile(path);
    CLibColourTable table;
    QVERIFY(FixtureFile::write(path, "0.5, 0.5, 0.5, Sneaked in\n"));
    QCOMPARE(CLibraryTableWriter::write(table, path, seen, false),
             CLibraryTableWriter::ChangedOnDisk);
    QVERIFY(QFile::remove(path));
    QCOMPARE(CLibraryTableWriter::write(table, path, seen, false), CLibraryTableWriter::Written);
    QVERIFY(QFileInfo::exists(path));
}

void TestLibraryTableWriter::writerWaitsForTheLockAndGivesUp()
{
    QLockFile other(CLibraryTableWriter::lockPathOf(m_path));
    QVERIFY(other.tryLock(0));
    CLibColourTable table;
    table.load(m_path);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::Busy);
    QVERIFY(clock.elapsed() >= CLibraryTableWriter::kLockWaitMs - 100);
    QCOMPARE(FixtureFile::read(m_path), kGreens);
    QCOMPARE(namesOf(table), QStringList({"Moss", "Lime"}));
}

void TestLibraryTableWriter::lockOfADeadWriterIsTakenOver()
{
    // A lock file naming a process that is gone, as a killed writer leaves.
    QVERIFY(FixtureFile::write(CLibraryTableWriter::lockPathOf(m_path),
                               "999999999\nlibrarywriter\n" + QSysInfo::machineHostName().toUtf8()
                                   + "\n"));
    CLibColourTable table;
    table.load(m_path);
    QCOMPARE(CLibraryTableWriter::addEntry(table, CColourTableEntry("Fern", 0.3, 0.6, 0.3)),
             CLibraryTableWriter::Written);
}

void TestLibraryTableWriter::twoProcessesAddingAtOnceLoseNothing()
{
    const int count = 100;
    QProcess first;
    QProcess second;
    first.start(QStringLiteral(VELLORA_LIBRARY_WRITER), {m_path, "First", QString::number(count)});
    second.start(QStringLiteral(VELLORA_LIBRARY_WRITER), {m_path, "Second", QString::number(count)});
    QVERIFY(first.waitForStarted(5000));
    QVERIFY(second.waitForStarted(5000));
    // Whoever reads the table while they write finds a whole file.
    int reads = 0;
    while (first.state() != QProcess::NotRunning || second.state() != QProcess::NotRunning) {
        CLibColourTable seen;
        const CColourTable::LoadResult result = seen.load(m_path);
        QCOMPARE(result.status, int(CColourTable::Loaded));
        QVERIFY(seen.count() >= 2);
        ++reads;
        first.waitForFinished(5);
        second.waitForFinished(5);
    }
    QCOMPARE(first.exitCode(), 0);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(reads > 0);
    CLibColourTable final;
    QCOMPARE(final.load(m_path).status, int(CColourTable::Loaded));
    const QStringList names = namesOf(final);
    QCOMPARE(names.size(), 2 + 2 * count);
    for (int i = 0; i < count; ++i) {
        QVERIFY2(names.contains(QStringLiteral("First %1").arg(i)), qPrintable(QString::number(i)));
        QVERIFY2(names.contains(QStringLiteral("Second %1").arg(i)), qPrintable(QString::number(i)));
    }
    QVERIFY(!QFileInfo::exists(CLibraryTableWriter::lockPathOf(m_path)));
}

QTEST_MAIN(TestLibraryTableWriter)
#include "tst_librarytablewriter.moc"
