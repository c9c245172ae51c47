#include "colour/colourconversion.h"
#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"

#include "support/fixturefile.h"

#include <QBuffer>
#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

class TestQuillonImport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    static int parseBytes(const QByteArray &bytes, CColourTable &table);

private slots:
    void initTestCase();

    void exampleLine_data();
    void exampleLine();
    void refusedLine_data();
    void refusedLine();
    void blankAndCommentOnlyLinesAddNothing_data();
    void blankAndCommentOnlyLinesAddNothing();
    void nameDecoding_data();
    void nameDecoding();
    void numbersIgnoreTheLocale();
    void bytesAreReadAsLatin1();
    void entriesGetTheirLabValues();

    void lineNumbersCountBlankAndCommentLines();
    void parseFileReturnsZeroWhenEveryLineIsAccepted();
    void crLfLineEndsAreAccepted();

    void importSortsByNameIgnoringCase();
    void importSetsTheNoteWithFileNameAndTime();
    void refusedLineImportsNothingEvenAfterGoodLines();
    void commentsAndBlanksOnlyAreNoRecords();
    void missingFileCannotBeOpened();
    void folderCannotBeOpened();
    void errorTexts();
    void importedTableSavesWithTheNoteFirst();
};

void TestQuillonImport::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

int TestQuillonImport::parseBytes(const QByteArray &bytes, CColourTable &table)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    return CQuillonImport::parseFile(buffer, table);
}

void TestQuillonImport::exampleLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<QString>("name");

    QTest::newRow("escaped slash and trailing equals")
        << QStringLiteral("0.5/0.25/1/Lilac \\/ blue=") << 0.5 << 0.25 << 1.0
        << QStringLiteral("Lilac / blue");
    QTest::newRow("trailing comment dropped")
        << QStringLiteral("1/0/0/Red # primary") << 1.0 << 0.0 << 0.0 << QStringLiteral("Red");
    QTest::newRow("two blanks become one")
        << QStringLiteral("1/0/0/Deep  Red") << 1.0 << 0.0 << 0.0 << QStringLiteral("Deep Red");
    QTest::newRow("empty name") << QStringLiteral("1/0/0/") << 1.0 << 0.0 << 0.0 << QString();
    QTest::newRow("out of range kept as it stands")
        << QStringLiteral("255/0/0/Red") << 255.0 << 0.0 << 0.0 << QStringLiteral("Red");
    QTest::newRow("tabs become one blank")
        << QStringLiteral("\t0.1/0.2/0.3/Sea\t\t green  ") << 0.1 << 0.2 << 0.3
        << QStringLiteral("Sea green");
    QTest::newRow("blanks around numbers")
        << QStringLiteral("0.1 / 0.2 / 0.3 /Moss") << 0.1 << 0.2 << 0.3 << QStringLiteral("Moss");
    QTest::newRow("further slashes stay in the name")
        << QStringLiteral("0/0/0/Black/White") << 0.0 << 0.0 << 0.0
        << QStringLiteral("Black/White");
}

void TestQuillonImport::exampleLine()
{
    QFETCH(QString, line);
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(QString, name);
    CLibColourTable table;
    QVERIFY(CQuillonImport::parseLine(line, table));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->red, red);
    QCOMPARE(table.at(0)->green, green);
    QCOMPARE(table.at(0)->blue, blue);
    QCOMPARE(table.at(0)->name, name);
}

void TestQuillonImport::refusedLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("no third slash") << QStringLiteral("1/0/0");
    QTest::newRow("decimal comma") << QStringLiteral("1,5/0/0/x");
    QTest::newRow("trailing garbage in a number") << QStringLiteral("1x/0/0/x");
    QTest::newRow("leading garbage in a number") << QStringLiteral("x1/0/0/x");
    QTest::newRow("empty field") << QStringLiteral("1//0/x");
    QTest::newRow("name only") << QStringLiteral("Red");
    QTest::newRow("commas as in a table file") << QStringLiteral("1, 0, 0, Red");
}

void TestQuillonImport::refusedLine()
{
    QFETCH(QString, line);
    CLibColourTable table;
    QVERIFY(!CQuillonImport::parseLine(line, table));
    QCOMPARE(table.count(), 0);
}

void TestQuillonImport::blankAndCommentOnlyLinesAddNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks and tabs") << QStringLiteral(" \t  ");
    QTest::newRow("comment") << QStringLiteral("# colours of the spring range");
    QTest::newRow("indented comment") << QStringLiteral("   # 1/0/0/Red");
}

void TestQuillonImport::blankAndCommentOnlyLinesAddNothing()
{
    QFETCH(QString, line);
    CLibColourTable table;
    QVERIFY(CQuillonImport::parseLine(line, table));
    QCOMPARE(table.count(), 0);
}

void TestQuillonImport::nameDecoding_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("backslash before a letter") << QStringLiteral("0/0/0/\\Red") << "Red";
    QTest::newRow("double backslash gives one") << QStringLiteral("0/0/0/a\\\\b") << "a\\b";
    QTest::newRow("trailing backslash kept") << QStringLiteral("0/0/0/Red\\") << "Red\\";
    QTest::newRow("escaped trailing equals kept") << QStringLiteral("0/0/0/Red\\=") << "Red=";
    QTest::newRow("equals inside kept") << QStringLiteral("0/0/0/a=b") << "a=b";
    QTest::newRow("only the last equals dropped") << QStringLiteral("0/0/0/a==") << "a=";
    QTest::newRow("lone equals gives empty name") << QStringLiteral("0/0/0/=") << "";
    QTest::newRow("escaped blank") << QStringLiteral("0/0/0/a\\ b") << "a b";
}

void TestQuillonImport::nameDecoding()
{
    QFETCH(QString, line);
    QFETCH(QString, name);
    CLibColourTable table;
    QVERIFY(CQuillonImport::parseLine(line, table));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, name);
}

void TestQuillonImport::numbersIgnoreTheLocale()
{
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CLibColourTable table;
    const bool comma = CQuillonImport::parseLine(QStringLiteral("0,5/0/0/x"), table);
    const bool point = CQuillonImport::parseLine(QStringLiteral("0.5/0/0/y"), table);
    QLocale::setDefault(previous);
    QVERIFY(!comma);
    QVERIFY(point);
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->red, 0.5);
}

void TestQuillonImport::bytesAreReadAsLatin1()
{
    CLibColourTable table;
    QCOMPARE(parseBytes(QByteArray("1/1/1/Cr\xe8me\n"), table), 0);
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, QString::fromUtf8("Cr\xc3\xa8me"));
}

void TestQuillonImport::entriesGetTheirLabValues()
{
    CLibColourTable table;
    QVERIFY(CQuillonImport::parseLine(QStringLiteral("0.2/0.4/0.6/Steel"), table));
    const LabColour lab = rgbToLab(0.2, 0.4, 0.6);
    QCOMPARE(table.at(0)->L, lab.L);
    QCOMPARE(table.at(0)->a, lab.a);
    QCOMPARE(table.at(0)->b, lab.b);
    QVERIFY(table.at(0)->L > 0.0);
}

void TestQuillonImport::lineNumbersCountBlankAndCommentLines()
{
    CLibColourTable table;
    const QByteArray bytes("# spring\n\n1/0/0/Red\n   \n# more\n0/1/0/Green\n1/0/0\n0/0/1/Blue\n");
    QCOMPARE(parseBytes(bytes, table), 7);
}

void TestQuillonImport::parseFileReturnsZeroWhenEveryLineIsAccepted()
{
    CLibColourTable table;
    QCOMPARE(parseBytes(QByteArray("1/0/0/Red\n# c\n\n0/1/0/Green"), table), 0);
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(1)->name, QStringLiteral("Green"));
}

void TestQuillonImport::crLfLineEndsAreAccepted()
{
    CLibColourTable table;
    QCOMPARE(parseBytes(QByteArray("1/0/0/Red=\r\n0/1/0/Green\r\n"), table), 0);
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(0)->name, QStringLiteral("Red"));
    QCOMPARE(table.at(1)->name, QStringLiteral("Green"));
}

void TestQuillonImport::importSortsByNameIgnoringCase()
{
    const QString file = path(QStringLiteral("sort.config"));
    QVERIFY(FixtureFile::write(file, "0/0/1/blue\n1/0/0/Red\n0/1/0/Aqua\n0/0/0/black\n"));
    CLibColourTable table;
    const CQuillonImport::Result result =
        CQuillonImport::importFile(file, table, QDateTime::currentDateTime());
    QCOMPARE(result.status, int(CQuillonImport::Imported));
    QStringList names;
    for (const CColourTableEntry *entry : table.entries())
        names << entry->name;
    QCOMPARE(names, QStringList({"Aqua", "black", "blue", "Red"}));
}

void TestQuillonImport::importSetsTheNoteWithFileNameAndTime()
{
    const QString file = path(QStringLiteral("note.config"));
    QVERIFY(FixtureFile::write(file, "1/0/0/Red\n"));
    CLibColourTable table;
    const QDateTime when(QDate(2024, 3, 9), QTime(7, 5, 2));
    QCOMPARE(CQuillonImport::importFile(file, table, when).status, int(CQuillonImport::Imported));
    QCOMPARE(table.header(), QStringLiteral("#Imported from note.config\n#2024-03-09 07:05:02\n\n"));
}

void TestQuillonImport::refusedLineImportsNothingEvenAfterGoodLines()
{
    const QString file = path(QStringLiteral("bad.config"));
    QVERIFY(FixtureFile::write(file, "1/0/0/Red\n0/1/0/Green\n\n# c\n0/0/x/Blue\n0/0/0/Black\n"));
    CLibColourTable table;
    const CQuillonImport::Result result =
        CQuillonImport::importFile(file, table, QDateTime::currentDateTime());
    QCOMPARE(result.status, int(CQuillonImport::BadLine));
    QCOMPARE(result.lineNumber, 5);
    QCOMPARE(table.count(), 0);
}

void TestQuillonImport::commentsAndBlanksOnlyAreNoRecords()
{
    const QString file = path(QStringLiteral("empty.config"));
    QVERIFY(FixtureFile::write(file, "# nothing here\n\n   \n#1/0/0/Red\n"));
    CLibColourTable table;
    QCOMPARE(CQuillonImport::importFile(file, table, QDateTime::currentDateTime()).status,
             int(CQuillonImport::NoRecords));
    QCOMPARE(table.count(), 0);
}

void TestQuillonImport::missingFileCannotBeOpened()
{
    CLibColourTable table;
    QCOMPARE(CQuillonImport::importFile(path(QStringLiteral("none.config")), table,
                                        QDateTime::currentDateTime())
                 .status,
             int(CQuillonImport::CannotOpen));
}

void TestQuillonImport::folderCannotBeOpened()
{
    CLibColourTable table;
    QCOMPARE(CQuillonImport::importFile(m_dir.path(), table, QDateTime::currentDateTime()).status,
             int(CQuillonImport::CannotOpen));
}

void TestQuillonImport::errorTexts()
{
    const QString file = QStringLiteral("/data/x.config");
    CQuillonImport::Result result;
    QCOMPARE(CQuillonImport::errorText(result, file), QString());
    result.status = CQuillonImport::CannotOpen;
    QCOMPARE(CQuillonImport::errorText(result, file),
             QStringLiteral("Error, opening file: /data/x.config."));
    result.status = CQuillonImport::BadLine;
    result.lineNumber = 12;
    QCOMPARE(CQuillonImport::errorText(result, file),
             QStringLiteral("Error in line 12\nwhile processing:\n/data/x.config."));
    result.status = CQuillonImport::NoRecords;
    QCOMPARE(CQuillonImport::errorText(result, file),
             QStringLiteral("Error while processing:\n/data/x.config\nNo records found"));
}

void TestQuillonImport::importedTableSavesWithTheNoteFirst()
{
    const QString file = path(QStringLiteral("save.config"));
    QVERIFY(FixtureFile::write(file, "0.5/0.25/1/Lilac \\/ blue=\n1/0/0/Red, warm\n"));
    CLibColourTable table;
    const QDateTime when(QDate(2025, 12, 31), QTime(23, 59, 59));
    QCOMPARE(CQuillonImport::importFile(file, table, when).status, int(CQuillonImport::Imported));
    QCOMPARE(table.serialise(), QByteArray("#Imported from save.config\n#2025-12-31 23:59:59\n\n\n"
                                           "0.5000, 0.2500, 1.0000, Lilac / blue\n"
                                           "1.0000, 0.0000, 0.0000, Red; warm\n"));
}

QTEST_GUILESS_MAIN(TestQuillonImport)
#include "tst_quillonimport.moc"
