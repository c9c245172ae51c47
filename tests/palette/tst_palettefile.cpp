#include "palette/palettefile.h"
#include "tables/datacolourtable.h"
#include "tables/libcolourtable.h"

#include "support/fixturefile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class TestPaletteFile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    static CPalette sample();

private slots:
    void formatForPath_data();
    void formatForPath();
    void formatForName_data();
    void formatForName();
    void everyFormatRoundTripsThroughAFile_data();
    void everyFormatRoundTripsThroughAFile();
    void tableFileIsReadWithTheTableReader();
    void tableWithBadLineNamesTheLine();
    void missingFileCannotBeOpened();
    void folderCannotBeOpened();
    void writeCreatesMissingFolders();
    void failedWriteLeavesTheOldFileIntact();
    void tableGetsColoursThroughAddWithLab();
    void namesWithLineBreaksBecomeOneTableLine();
    void writeNotesReportWhatIsNotKept();
};

CPalette TestPaletteFile::sample()
{
    CPalette p;
    p.name = QStringLiteral("Sample");
    p.colours = {{QStringLiteral("Limegreen"), {50 / 255.0, 205 / 255.0, 50 / 255.0}},
                 {QStringLiteral("navy"), {0.0, 0.0, 128 / 255.0}},
                 {QStringLiteral("white"), {1.0, 1.0, 1.0}}};
    return p;
}

void TestPaletteFile::formatForPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("format");
    QTest::newRow("clrtable") << "/a/b.clrtable" << int(CPaletteFile::ColourTable);
    QTest::newRow("txt") << "b.txt" << int(CPaletteFile::DataSet);
    QTest::newRow("csv") << "b.CSV" << int(CPaletteFile::DataSet);
    QTest::newRow("gpl") << "b.gpl" << int(CPaletteFile::Gpl);
    QTest::newRow("ase") << "b.Ase" << int(CPaletteFile::Ase);
    QTest::newRow("css") << "b.css" << int(CPaletteFile::Css);
    QTest::newRow("json") << "b.json" << int(CPaletteFile::Json);
    QTest::newRow("png") << "b.png" << int(CPaletteFile::Unknown);
    QTest::newRow("none") << "b" << int(CPaletteFile::Unknown);
}

void TestPaletteFile::formatForPath()
{
    QFETCH(QString, path);
    QFETCH(int, format);
    QCOMPARE(int(CPaletteFile::formatForPath(path)), format);
}

void TestPaletteFile::formatForName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("format");
    QTest::newRow("gpl") << "gpl" << int(CPaletteFile::Gpl);
    QTest::newRow("JSON") << "JSON" << int(CPaletteFile::Json);
    QTest::newRow("csv") << "csv" << int(CPaletteFile::DataSet);
    QTest::newRow("dotted") << ".gpl" << int(CPaletteFile::Unknown);
    QTest::newRow("empty") << "" << int(CPaletteFile::Unknown);
}

void TestPaletteFile::formatForName()
{
    QFETCH(QString, name);
    QFETCH(int, format);
    QCOMPARE(int(CPaletteFile::formatForName(name)), format);
}

void TestPaletteFile::everyFormatRoundTripsThroughAFile_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &name : CPaletteFile::formatNames())
        QTest::newRow(qPrintable(name)) << QStringLiteral("trip.") + name;
}

void TestPaletteFile::everyFormatRoundTripsThroughAFile()
{
    QFETCH(QString, file);
    const CPaletteFile::Format format = CPaletteFile::formatForPath(file);
    const CPalette original = sample();
    QString error;
    QVERIFY2(CPaletteFile::write(path(file), format, original, &error), qPrintable(error));
    const CPaletteReadResult r = CPaletteFile::read(path(file), format);
    QVERIFY2(r.isOk(), qPrintable(r.message(file)));
    QCOMPARE(r.palette().colours.size(), original.colours.size());
    for (int i = 0; i < original.colours.size(); ++i) {
        const QString name = original.colours.at(i).name;
        QCOMPARE(r.palette().colours.at(i).name, name.toLower() == name || format != CPaletteFile::Css
                                                     ? name : name.toLower());
        QCOMPARE(CPalette::hex(r.palette().colours.at(i).rgb), CPalette::hex(original.colours.at(i).rgb));
        QVERIFY(qAbs(r.palette().colours.at(i).rgb.blue - original.colours.at(i).rgb.blue) < 1e-4);
    }
}

void TestPaletteFile::tableFileIsReadWithTheTableReader()
{
    QVERIFY(FixtureFile::write(path("t.clrtable"), "# note\n0.5,0.5,0.5,Dark   slate  grey # c\n"));
    const CPaletteReadResult r = CPaletteFile::read(path("t.clrtable"), CPaletteFile::ColourTable);
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().name, QStringLiteral("t"));
    QCOMPARE(r.palette().colours.size(), 1);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Dark slate grey"));
    QCOMPARE(r.palette().colours.at(0).rgb.red, 0.5);
}

void TestPaletteFile::tableWithBadLineNamesTheLine()
{
    QVERIFY(FixtureFile::write(path("bad.csv"), "# a\n\n0.5, abc, 0.5, X\n"));
    const CPaletteReadResult r = CPaletteFile::read(path("bad.csv"), CPaletteFile::DataSet);
    QCOMPARE(r.status(), CPaletteReadResult::BadPart);
    QCOMPARE(r.position(), 3);
    QVERIFY(r.palette().colours.isEmpty());
}

void TestPaletteFile::missingFileCannotBeOpened()
{
    const CPaletteReadResult r = CPaletteFile::read(path("none.gpl"), CPaletteFile::Gpl);
    QCOMPARE(r.status(), CPaletteReadResult::CannotOpen);
    QCOMPARE(r.message(path("none.gpl")),
             QStringLiteral("Error, opening file: %1.").arg(QDir::toNativeSeparators(path("none.gpl"))));
}

void TestPaletteFile::folderCannotBeOpened()
{
    QVERIFY(QDir(m_dir.path()).mkpath("folder.gpl"));
    QCOMPARE(CPaletteFile::read(path("folder.gpl"), CPaletteFile::Gpl).status(),
             CPaletteReadResult::CannotOpen);
    QCOMPARE(CPaletteFile::read(path("folder.gpl"), CPaletteFile::ColourTable).status(),
             CPaletteReadResult::CannotOpen);
}

void TestPaletteFile::writeCreatesMissingFolders()
{
    const QString target = path("deep/er/p.css");
    QVERIFY(CPaletteFile::write(target, CPaletteFile::Css, sample()));
    QVERIFY(FixtureFile::read(target).startsWith("/* Sample */\n:root {\n"));
}

void TestPaletteFile::failedWriteLeavesTheOldFileIntact()
{
    const QString target = path("keep.json");
    QVERIFY(FixtureFile::write(target, "old"));
    QVERIFY(QDir(m_dir.path()).mkpath("keep.json.dir"));
    QString error;
    // A folder in the way cannot be written; the other file stays as it was.
    QVERIFY(!CPaletteFile::write(path("keep.json.dir"), CPaletteFile::Json, sample(), &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(FixtureFile::read(target), QByteArray("old"));
    QCOMPARE(QDir(m_dir.path()).entryList({"keep.json*"}, QDir::Files), QStringList({"keep.json"}));
}

void TestPaletteFile::tableGetsColoursThroughAddWithLab()
{
    CDataColourTable table;
    CPaletteFile::toTable(sample(), &table);
    QCOMPARE(table.count(), 3);
    QCOMPARE(table.markerAList().size(), 3);
    QCOMPARE(table.at(2)->name, QStringLiteral("white"));
    QVERIFY(qAbs(table.at(2)->L - 100.0) < 0.01);
}

void TestPaletteFile::namesWithLineBreaksBecomeOneTableLine()
{
    CPalette p;
    p.colours = {{QStringLiteral("two\r\nlines"), {0, 0, 0}}};
    QCOMPARE(CPaletteFile::serialise(p, CPaletteFile::ColourTable),
             QByteArray("0.0000, 0.0000, 0.0000, two  lines\n"));
}

void TestPaletteFile::writeNotesReportWhatIsNotKept()
{
    CPalette p;
    p.colours = {{QStringLiteral("Odd"), {1.2, -0.1, 0.5}}, {QStringLiteral("No #1"), {0, 0, 0}}};
    QCOMPARE(CPaletteFile::writeNotes(p, CPaletteFile::Gpl),
             QStringList({"\"Odd\": components outside 0 to 1 are written as 0 or 1."}));
    QCOMPARE(CPaletteFile::writeNotes(p, CPaletteFile::ColourTable),
             QStringList({"\"No #1\": a colour table reads the name only up to its \"#\"."}));
    QVERIFY(CPaletteFile::writeNotes(sample(), CPaletteFile::Ase).isEmpty());
}

QTEST_GUILESS_MAIN(TestPaletteFile)
#include "tst_palettefile.moc"
