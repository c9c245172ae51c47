#include "colour/colourconversion.h"
#include "tables/colourtable.h"

#include "support/filesizelimit.h"
#include "support/fixturefile.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Counts the virtual calls a load makes.
class CountingTable : public CColourTable
{
public:
    using CColourTable::add;
    void add(CColourTableEntry *entry) override
    {
        ++addCalls;
        CColourTable::add(entry);
    }
    void clear() override
    {
        ++clearCalls;
        CColourTable::clear();
    }
    int addCalls = 0;
    int clearCalls = 0;
};

} // namespace

class TestColourTable : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    // Writes bytes to a fresh file and loads it into table.
    CColourTable::LoadResult loadBytes(CColourTable &table, const QByteArray &bytes,
                                       const QString &name = QStringLiteral("t.clrtable"));
    static void fill(CColourTable &table, int count);

private slots:
    void initTestCase();

    // Reading
    void dataLine_data();
    void dataLine();
    void badLine_data();
    void badLine();
    void commentOnlyFileLoadsAsEmptyTableWithHeader();
    void commentOnlyFileSavesBackAsSameCommentLines();
    void trailingCommentIsDroppedFromName();
    void runsOfSpacesInNameAreCollapsed();
    void badNumberOnLineSevenReportsLineSevenAndEmptiesTable();
    void lineNumbersCountCommentAndBlankLines();
    void valuesOutOfRangeLoadUnchanged();
    void labIsComputedForLoadedEntries();
    void loadSetsFilePath();
    void loadReplacesPreviousContent();
    void loadAppendsEntriesWithoutCallingAdd();
    void failedParseClearsThroughVirtualClear();
    void crlfLinesLoadWithoutCarriageReturns();
    void loneCarriageReturnInsideLineIsKept();
    void lastLineWithoutLineFeedIsRead();
    void bytesAreReadAsLatin1();
    void utf8NameDoesNotSurviveSaveAndLoad();
    void nulByteEndsTheLine();
    void numbersUseDotWhateverTheLocale();
    void hugeLineDoesNotCrash();
    void garbageBytesDoNotCrash();
    void missingFileLeavesTableUntouched();
    void folderInsteadOfFileLeavesTableUntouched();
    void emptyFileLoadsEmptyTable();

    // Writing
    void serialiseWritesHeaderThenEntries();
    void serialiseWithoutHeaderStartsWithEntries();
    void commaInNameIsWrittenAsSemicolonAndReadsBack();
    void commentsBetweenDataLinesAreWrittenAtTop();
    void numbersAreWrittenWithFourDecimals_data();
    void numbersAreWrittenWithFourDecimals();
    void nameIsWrittenAsUtf8();
    void writeProducesSerialisedBytes();
    void writeReplacesExistingFile();
    void writeCreatesMissingFolders();
    void writeFailsWhenParentIsAFile();
    void writeFailsWhenFolderStandsInPlaceOfFile();
    void writeErrorKeepsOldFileIntact_data();
    void writeErrorKeepsOldFileIntact();
    void writeErrorLeavesNoTemporaryFiles();

    // List operations
    void addTakesEntriesInOrder();
    void addOfAnOwnedEntryHandsItOverThroughTheVirtualAdd();
    void clearEmptiesEntriesPathAndHeader();
    void removeAtInRangeRemovesWithoutDeleting();
    void removeAtOutOfRangeChangesNothing_data();
    void removeAtOutOfRangeChangesNothing();
    void takeAtHandsTheEntryBackOwned();
    void takeAtOutOfRangeGivesNothingAndChangesNothing_data();
    void takeAtOutOfRangeGivesNothingAndChangesNothing();
    void sortOrdersByNameIgnoringCase();
    void containsNameIsExactAndCaseSensitive();
};

CColourTable::LoadResult TestColourTable::loadBytes(CColourTable &table, const QByteArray &bytes,
                                                    const QString &name)
{
    if (!FixtureFile::write(path(name), bytes))
        qFatal("cannot write fixture %s", qPrintable(path(name)));
    return table.load(path(name));
}

void TestColourTable::fill(CColourTable &table, int count)
{
    for (int i = 0; i < count; ++i)
        table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Colour %1").arg(i), i / 10.0,
                                                      0.5, 0.25));
}

void TestColourTable::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestColourTable::dataLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<QString>("name");

    QTest::newRow("written by the system") << QByteArray("0.1961, 0.8039, 0.1961, Limegreen")
                                           << 0.1961 << 0.8039 << 0.1961 << "Limegreen";
    QTest::newRow("no spaces") << QByteArray("0.5,0.25,0.125,Grey") << 0.5 << 0.25 << 0.125 << "Grey";
    QTest::newRow("tabs around numbers") << QByteArray("\t0.5\t,\t0.25 ,0.125\t, Tabbed")
                                         << 0.5 << 0.25 << 0.125 << "Tabbed";
    QTest::newRow("tabs inside name") << QByteArray("0.5, 0.5, 0.5, Deep\t\tSea  \t Blue")
                                      << 0.5 << 0.5 << 0.5 << "Deep Sea Blue";
    QTest::newRow("further commas stay in name")
        << QByteArray("0.1, 0.2, 0.3, Red, warm, bright") << 0.1 << 0.2 << 0.3 << "Red, warm, bright";
    QTest::newRow("no comma after third number") << QByteArray("0.1, 0.2, 0.3")
                                                 << 0.1 << 0.2 << 0.3 << "";
    QTest::newRow("comma but no name") << QByteArray("0.1, 0.2, 0.3,   ") << 0.1 << 0.2 << 0.3 << "";
    QTest::newRow("comment right after third number")
        << QByteArray("0.1, 0.2, 0.3# note") << 0.1 << 0.2 << 0.3 << "";
    QTest::newRow("integers and exponents") << QByteArray("1, 0, 2.5e-1, Exp") << 1.0 << 0.0 << 0.25
                                            << "Exp";
    QTest::newRow("decimal commas split the numbers")
        << QByteArray("0,5, 0,5, 0,5, X") << 0.0 << 5.0 << 0.0 << "5, 0,5, X";
    QTest::newRow("signs") << QByteArray("+0.5, -0.0, -1, Signs") << 0.5 << 0.0 << -1.0 << "Signs";
    QTest::newRow("leading white space") << QByteArray("   \t0.5, 0.5, 0.5, Indented")
                                         << 0.5 << 0.5 << 0.5 << "Indented";
}

void TestColourTable::dataLine()
{
    QFETCH(QByteArray, line);
    CColourTable table;
    const CColourTable::LoadResult result = loadBytes(table, line + "\n");
    QCOMPARE(result.status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QTEST(table.at(0)->red, "red");
    QTEST(table.at(0)->green, "green");
    QTEST(table.at(0)->blue, "blue");
    QTEST(table.at(0)->name, "name");
    QVERIFY(table.header().isEmpty());
}

void TestColourTable::badLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("letters for green") << QByteArray("0.5, abc, 0.5, X");
    QTest::newRow("two numbers only") << QByteArray("0.5, 0.5");
    QTest::newRow("one number only") << QByteArray("0.5");
    QTest::newRow("empty first field") << QByteArray(", 0.5, 0.5, X");
    QTest::newRow("empty third field") << QByteArray("0.5, 0.5, , X");
    QTest::newRow("semicolons") << QByteArray("0.5; 0.5; 0.5; X");
    QTest::newRow("space inside a number") << QByteArray("0. 5, 0.5, 0.5, X");
    QTest::newRow("name first") << QByteArray("Red, 1, 0, 0");
    QTest::newRow("commas only") << QByteArray(",,,");
}

void TestColourTable::badLine()
{
    QFETCH(QByteArray, line);
    CColourTable table;
    const CColourTable::LoadResult result = loadBytes(table, "#head\n" + line + "\n");
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 2);
    QCOMPARE(table.count(), 0);
}

void TestColourTable::commentOnlyFileLoadsAsEmptyTableWithHeader()
{
    CColourTable table;
    const auto result = loadBytes(table, "# first\n\n   #second  \n#third");
    QCOMPARE(result.status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 0);
    QCOMPARE(table.header(), QString("# first\n#second\n#third"));
}

void TestColourTable::commentOnlyFileSavesBackAsSameCommentLines()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "#Only comments\n#here\n").status, int(CColourTable::Loaded));
    QVERIFY(table.write(path("comments-out.clrtable")));
    QCOMPARE(FixtureFile::read(path("comments-out.clrtable")), QByteArray("#Only comments\n#here\n"));
}

void TestColourTable::trailingCommentIsDroppedFromName()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.5, 0.5, 0.5, Grey # mid grey\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, QString("Grey"));
    QVERIFY(table.header().isEmpty());
}

void TestColourTable::runsOfSpacesInNameAreCollapsed()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.5,0.5,0.5,Dark   slate  grey\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, QString("Dark slate grey"));
}

void TestColourTable::badNumberOnLineSevenReportsLineSevenAndEmptiesTable()
{
    CColourTable table;
    const QByteArray content = "#Header\n"
                               "0.1, 0.1, 0.1, A\n"
                               "\n"
                               "0.2, 0.2, 0.2, B\n"
                               "# between\n"
                               "0.3, 0.3, 0.3, C\n"
                               "0.5, abc, 0.5, X\n"
                               "0.4, 0.4, 0.4, D\n";
    const auto result = loadBytes(table, content);
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 7);
    QCOMPARE(table.count(), 0);
    QVERIFY(table.header().isEmpty());
    QVERIFY(table.filePath().isEmpty());
}

void TestColourTable::lineNumbersCountCommentAndBlankLines()
{
    CColourTable table;
    const auto result = loadBytes(table, "\n\n#c\n   \n\t\n0.1, 0.1, 0.1, ok\nbroken\n");
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 7);
}

void TestColourTable::valuesOutOfRangeLoadUnchanged()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "1.2, -0.1, 0.5, Odd\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->red, 1.2);
    QCOMPARE(table.at(0)->green, -0.1);
    QCOMPARE(table.at(0)->blue, 0.5);
    QCOMPARE(table.at(0)->name, QString("Odd"));
}

void TestColourTable::labIsComputedForLoadedEntries()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.2, 0.6, 0.9, Sky\n").status, int(CColourTable::Loaded));
    const LabColour lab = rgbToLab(0.2, 0.6, 0.9);
    QCOMPARE(table.at(0)->L, lab.L);
    QCOMPARE(table.at(0)->a, lab.a);
    QCOMPARE(table.at(0)->b, lab.b);
    QVERIFY(table.at(0)->L > 50.0);
}

void TestColourTable::loadSetsFilePath()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.2, 0.3, A\n", "path.clrtable").status, int(CColourTable::Loaded));
    QCOMPARE(table.filePath(), path("path.clrtable"));
}

void TestColourTable::loadReplacesPreviousContent()
{
    CColourTable table;
    fill(table, 3);
    table.setHeader("#old");
    QCOMPARE(loadBytes(table, "#new\n0.1, 0.2, 0.3, Only\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, QString("Only"));
    QCOMPARE(table.header(), QString("#new"));
}

void TestColourTable::loadAppendsEntriesWithoutCallingAdd()
{
    CountingTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.2, 0.3, A\n0.3, 0.2, 0.1, B\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.addCalls, 0);
    QCOMPARE(table.clearCalls, 1);
}

void TestColourTable::failedParseClearsThroughVirtualClear()
{
    CountingTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.2, 0.3, A\nbad\n").status, int(CColourTable::BadLine));
    QCOMPARE(table.clearCalls, 2);
    QCOMPARE(table.count(), 0);
}

void TestColourTable::crlfLinesLoadWithoutCarriageReturns()
{
    CColourTable table;
    const auto result = loadBytes(table, "#Windows file\r\n\r\n0.1, 0.2, 0.3, Red, warm\r\n"
                                         "0.4, 0.5, 0.6\r\nbad\r\n");
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 5);

    QCOMPARE(loadBytes(table, "#Windows file\r\n\r\n0.1, 0.2, 0.3, Red, warm\r\n0.4, 0.5, 0.6\r\n").status,
             int(CColourTable::Loaded));
    QCOMPARE(table.header(), QString("#Windows file"));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(0)->name, QString("Red, warm"));
    QCOMPARE(table.at(1)->name, QString());
    QCOMPARE(table.at(1)->blue, 0.6);
}

void TestColourTable::loneCarriageReturnInsideLineIsKept()
{
    // Only the CR of a CR LF ending goes; a CR inside a name is no line end.
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.2, 0.3, Half\rLine\n").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0)->name, QString("Half\rLine"));
}

void TestColourTable::lastLineWithoutLineFeedIsRead()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.2, 0.3, A\n0.4, 0.5, 0.6, Last").status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(1)->name, QString("Last"));
}

void TestColourTable::bytesAreReadAsLatin1()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "#Caf\xe9 table\n0.1, 0.2, 0.3, Cr\xe8me br\xfbl\xe9\xff\n").status,
             int(CColourTable::Loaded));
    QCOMPARE(table.header(), QString::fromUtf8("#Café table"));
    QCOMPARE(table.at(0)->name, QString::fromUtf8("Crème brûléÿ"));
}

void TestColourTable::utf8NameDoesNotSurviveSaveAndLoad()
{
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QString::fromUtf8("Crème"), 0.1, 0.2, 0.3));
    QVERIFY(table.write(path("utf8.clrtable")));
    CColourTable reread;
    QCOMPARE(reread.load(path("utf8.clrtable")).status, int(CColourTable::Loaded));
    QCOMPARE(reread.at(0)->name, QString::fromLatin1("Cr\xc3\xa8me"));
}

void TestColourTable::nulByteEndsTheLine()
{
    CColourTable table;
    static const char raw[] = "0.1, 0.2, 0.3, Ab\0cd\n\0garbage, not a colour\n0.4, 0.5, 0.6, Next\n";
    const QByteArray content(raw, int(sizeof(raw)) - 1);
    QCOMPARE(content.count('\0'), 2);
    const auto result = loadBytes(table, content);
    QCOMPARE(result.status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(0)->name, QString("Ab"));
    QCOMPARE(table.at(1)->name, QString("Next"));
}

void TestColourTable::numbersUseDotWhateverTheLocale()
{
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CColourTable table;
    const auto result = loadBytes(table, "0.5, 0.25, 0.125, Dot\n");
    const QByteArray written = table.serialise();
    QLocale::setDefault(previous);
    QCOMPARE(result.status, int(CColourTable::Loaded));
    QCOMPARE(table.at(0)->green, 0.25);
    QCOMPARE(written, QByteArray("0.5000, 0.2500, 0.1250, Dot\n"));
}

void TestColourTable::hugeLineDoesNotCrash()
{
    CColourTable table;
    QByteArray huge = "0.1, 0.2, 0.3, ";
    huge += QByteArray(8 * 1024 * 1024, 'x');
    huge += "\n";
    QCOMPARE(loadBytes(table, huge).status, int(CColourTable::Loaded));
    QCOMPARE(table.at(0)->name.size(), 8 * 1024 * 1024);

    const auto result = loadBytes(table, "#ok\n" + QByteArray(4 * 1024 * 1024, '7') + "\n");
    QCOMPARE(result.status, int(CColourTable::BadLine));
    QCOMPARE(result.lineNumber, 2);
    QCOMPARE(table.count(), 0);
}

void TestColourTable::garbageBytesDoNotCrash()
{
    QRandomGenerator random(20200101);
    for (int round = 0; round < 20; ++round) {
        QByteArray garbage(64 * 1024, '\0');
        for (char &c : garbage)
            c = char(random.bounded(256));
        CColourTable table;
        const auto result = loadBytes(table, garbage);
        QVERIFY(result.status == CColourTable::Loaded || result.status == CColourTable::BadLine);
        if (result.status == CColourTable::BadLine) {
            QVERIFY(result.lineNumber >= 1);
            QCOMPARE(table.count(), 0);
        }
    }
}

void TestColourTable::missingFileLeavesTableUntouched()
{
    CColourTable table;
    fill(table, 2);
    table.setHeader("#kept");
    table.setFilePath("/previous/path");
    const auto result = table.load(path("does-not-exist.clrtable"));
    QCOMPARE(result.status, int(CColourTable::CannotOpen));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.header(), QString("#kept"));
    QCOMPARE(table.filePath(), QString("/previous/path"));
}

void TestColourTable::folderInsteadOfFileLeavesTableUntouched()
{
    QVERIFY(QDir(m_dir.path()).mkpath("folder.clrtable"));
    CColourTable table;
    fill(table, 2);
    const auto result = table.load(path("folder.clrtable"));
    QCOMPARE(result.status, int(CColourTable::CannotOpen));
    QCOMPARE(table.count(), 2);
}

void TestColourTable::emptyFileLoadsEmptyTable()
{
    CColourTable table;
    fill(table, 2);
    const auto result = loadBytes(table, QByteArray());
    QCOMPARE(result.status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 0);
    QVERIFY(table.header().isEmpty());
}

void TestColourTable::serialiseWritesHeaderThenEntries()
{
    CColourTable table;
    table.setHeader("#First\n#Second");
    table.add(std::make_unique<CColourTableEntry>("Alpha", 0.1, 0.25, 1.0));
    table.add(std::make_unique<CColourTableEntry>("Beta", 0.0, 0.5, 0.75));
    QCOMPARE(table.serialise(), QByteArray("#First\n#Second\n"
                                           "0.1000, 0.2500, 1.0000, Alpha\n"
                                           "0.0000, 0.5000, 0.7500, Beta\n"));
}

void TestColourTable::serialiseWithoutHeaderStartsWithEntries()
{
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Alpha", 0.1, 0.25, 1.0));
    QCOMPARE(table.serialise(), QByteArray("0.1000, 0.2500, 1.0000, Alpha\n"));
    CColourTable empty;
    QCOMPARE(empty.serialise(), QByteArray());
}

void TestColourTable::commaInNameIsWrittenAsSemicolonAndReadsBack()
{
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Red, warm", 1.0, 0.0, 0.0));
    QCOMPARE(table.serialise(), QByteArray("1.0000, 0.0000, 0.0000, Red; warm\n"));
    QCOMPARE(table.at(0)->name, QString("Red, warm"));
    QVERIFY(table.write(path("comma.clrtable")));
    CColourTable reread;
    QCOMPARE(reread.load(path("comma.clrtable")).status, int(CColourTable::Loaded));
    QCOMPARE(reread.count(), 1);
    QCOMPARE(reread.at(0)->name, QString("Red; warm"));
}

void TestColourTable::commentsBetweenDataLinesAreWrittenAtTop()
{
    CColourTable table;
    QCOMPARE(loadBytes(table, "0.1, 0.1, 0.1, A\n#one\n0.2, 0.2, 0.2, B\n  # two\n0.3, 0.3, 0.3, C\n")
                 .status,
             int(CColourTable::Loaded));
    QVERIFY(table.write(path("moved.clrtable")));
    QCOMPARE(FixtureFile::read(path("moved.clrtable")), QByteArray("#one\n# two\n"
                                                                   "0.1000, 0.1000, 0.1000, A\n"
                                                                   "0.2000, 0.2000, 0.2000, B\n"
                                                                   "0.3000, 0.3000, 0.3000, C\n"));
}

void TestColourTable::numbersAreWrittenWithFourDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("0.123456") << 0.123456 << QByteArray("0.1235");
    QTest::newRow("0.5") << 0.5 << QByteArray("0.5000");
    QTest::newRow("1") << 1.0 << QByteArray("1.0000");
    QTest::newRow("0.00004") << 0.00004 << QByteArray("0.0000");
    QTest::newRow("-0.1") << -0.1 << QByteArray("-0.1000");
    QTest::newRow("12.34567") << 12.34567 << QByteArray("12.3457");
}

void TestColourTable::numbersAreWrittenWithFourDecimals()
{
    QFETCH(double, value);
    QFETCH(QByteArray, written);
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>("N", value, value, value));
    QCOMPARE(table.serialise(), written + ", " + written + ", " + written + ", N\n");
}

void TestColourTable::nameIsWrittenAsUtf8()
{
    CColourTable table;
    table.setHeader(QString::fromUtf8("#Ünïcode"));
    table.add(std::make_unique<CColourTableEntry>(QString::fromUtf8("Grün"), 0.0, 1.0, 0.0));
    QCOMPARE(table.serialise(), QByteArray("#\xc3\x9cn\xc3\xaf" "code\n0.0000, 1.0000, 0.0000, Gr\xc3\xbcn\n"));
}

void TestColourTable::writeProducesSerialisedBytes()
{
    CColourTable table;
    table.setHeader("#h");
    fill(table, 5);
    QString error;
    QVERIFY(table.write(path("exact.clrtable"), &error));
    QVERIFY(error.isEmpty());
    QCOMPARE(FixtureFile::read(path("exact.clrtable")), table.serialise());
}

void TestColourTable::writeReplacesExistingFile()
{
    QVERIFY(FixtureFile::write(path("replace.clrtable"), QByteArray(10000, 'o')));
    CColourTable table;
    fill(table, 1);
    QVERIFY(table.write(path("replace.clrtable")));
    QCOMPARE(FixtureFile::read(path("replace.clrtable")), table.serialise());
}

void TestColourTable::writeCreatesMissingFolders()
{
    const QString target = path("new/deeper/still/table.clrtable");
    QVERIFY(!QFileInfo::exists(path("new")));
    CColourTable table;
    fill(table, 2);
    QVERIFY(table.write(target));
    QCOMPARE(FixtureFile::read(target), table.serialise());
}

void TestColourTable::writeFailsWhenParentIsAFile()
{
    const QByteArray blocker = "I am a file, not a folder\n";
    QVERIFY(FixtureFile::write(path("blocker"), blocker));
    CColourTable table;
    fill(table, 2);
    QString error;
    QVERIFY(!table.write(path("blocker/sub/table.clrtable"), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!table.write(path("blocker/table.clrtable"), &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(FixtureFile::read(path("blocker")), blocker);
    QCOMPARE(table.count(), 2);
}

void TestColourTable::writeFailsWhenFolderStandsInPlaceOfFile()
{
    QVERIFY(FixtureFile::write(path("taken.clrtable/inside.txt"), "keep me"));
    CColourTable table;
    fill(table, 2);
    QString error;
    QVERIFY(!table.write(path("taken.clrtable"), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(QFileInfo(path("taken.clrtable")).isDir());
    QCOMPARE(FixtureFile::read(path("taken.clrtable/inside.txt")), QByteArray("keep me"));
}

void TestColourTable::writeErrorKeepsOldFileIntact_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("limit");
    // Content that fits in the write buffer only fails when it is flushed.
    QTest::newRow("short content") << 10 << 64;
    QTest::newRow("long content") << 5000 << 4096;
}

void TestColourTable::writeErrorKeepsOldFileIntact()
{
    QFETCH(int, entries);
    QFETCH(int, limit);
    const QString target = path("precious.clrtable");
    const QByteArray old = "#old\n0.1000, 0.2000, 0.3000, Old\n";
    QVERIFY(FixtureFile::write(target, old));
    CColourTable table;
    fill(table, entries);
    QVERIFY(table.serialise().size() > limit);
    QString error;
    bool written = true;
    {
        FileSizeLimit sizeLimit{rlim_t(limit)};
        QVERIFY(sizeLimit.isActive());
        written = table.write(target, &error);
    }
    QVERIFY(!written);
    QVERIFY(!error.isEmpty());
    QCOMPARE(FixtureFile::read(target), old);
}

void TestColourTable::writeErrorLeavesNoTemporaryFiles()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString target = dir.filePath("only.clrtable");
    QVERIFY(FixtureFile::write(target, "#old\n"));
    CColourTable table;
    fill(table, 5000);
    {
        FileSizeLimit limit(4096);
        QVERIFY(limit.isActive());
        QVERIFY(!table.write(target));
    }
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"only.clrtable"});
}

void TestColourTable::addTakesEntriesInOrder()
{
    CColourTable table;
    auto *first = new CColourTableEntry("First", 0.0, 0.0, 0.0);
    auto *second = new CColourTableEntry("Second", 1.0, 1.0, 1.0);
    table.add(first);
    table.add(second);
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(0), first);
    QCOMPARE(table.at(1), second);
    QCOMPARE(second->L, 100.0);
}

void TestColourTable::addOfAnOwnedEntryHandsItOverThroughTheVirtualAdd()
{
    CountingTable table;
    auto entry = std::make_unique<CColourTableEntry>("Owned", 1.0, 1.0, 1.0);
    const CColourTableEntry *handed = entry.get();
    table.add(std::move(entry));
    QVERIFY(!entry); // the caller holds nothing any more
    QCOMPARE(table.addCalls, 1);
    QCOMPARE(table.count(), 1);
    QCOMPARE(table.at(0), handed);
    QCOMPARE(table.at(0)->name, QString("Owned"));
    QCOMPARE(table.at(0)->L, 100.0);
    // The table frees it: the leak checker would report it otherwise.
}

void TestColourTable::clearEmptiesEntriesPathAndHeader()
{
    CColourTable table;
    fill(table, 3);
    table.setHeader("#h");
    table.setFilePath("/some/file");
    table.clear();
    QCOMPARE(table.count(), 0);
    QVERIFY(table.header().isEmpty());
    QVERIFY(table.filePath().isEmpty());
}

void TestColourTable::removeAtInRangeRemovesWithoutDeleting()
{
    CColourTable table;
    fill(table, 3);
    CColourTableEntry *middle = table.at(1);
    QVERIFY(table.removeAt(1));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(1)->name, QString("Colour 2"));
    // Still alive and ours: adopting it frees it, and would fail under the
    // sanitizer had the table already deleted it.
    const std::unique_ptr<CColourTableEntry> owned(middle);
    QCOMPARE(owned->name, QString("Colour 1"));
}

void TestColourTable::removeAtOutOfRangeChangesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("count") << 3;
    QTest::newRow("far beyond") << 1000;
}

void TestColourTable::removeAtOutOfRangeChangesNothing()
{
    QFETCH(int, index);
    CColourTable table;
    fill(table, 3);
    QVERIFY(!table.removeAt(index));
    QCOMPARE(table.count(), 3);
    QCOMPARE(table.at(2)->name, QString("Colour 2"));
}

void TestColourTable::takeAtHandsTheEntryBackOwned()
{
    CColourTable table;
    fill(table, 3);
    const CColourTableEntry *middle = table.at(1);
    const std::unique_ptr<CColourTableEntry> taken = table.takeAt(1);
    QCOMPARE(taken.get(), middle);
    QCOMPARE(taken->name, QString("Colour 1"));
    QCOMPARE(table.count(), 2);
    QCOMPARE(table.at(1)->name, QString("Colour 2"));
}

void TestColourTable::takeAtOutOfRangeGivesNothingAndChangesNothing_data()
{
    removeAtOutOfRangeChangesNothing_data();
}

void TestColourTable::takeAtOutOfRangeGivesNothingAndChangesNothing()
{
    QFETCH(int, index);
    CColourTable table;
    fill(table, 3);
    QVERIFY(!table.takeAt(index));
    QCOMPARE(table.count(), 3);
    QCOMPARE(table.at(2)->name, QString("Colour 2"));
}

void TestColourTable::sortOrdersByNameIgnoringCase()
{
    CColourTable table;
    for (const char *name : {"delta", "Bravo", "alpha", "Charlie", "ALPHA2"})
        table.add(std::make_unique<CColourTableEntry>(name, 0.0, 0.0, 0.0));
    table.sort();
    QStringList names;
    for (const CColourTableEntry *e : table.entries())
        names << e->name;
    QCOMPARE(names, (QStringList{"alpha", "ALPHA2", "Bravo", "Charlie", "delta"}));
}

void TestColourTable::containsNameIsExactAndCaseSensitive()
{
    CColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Sky Blue", 0.0, 0.0, 0.0));
    QVERIFY(table.containsName("Sky Blue"));
    QVERIFY(!table.containsName("sky blue"));
    QVERIFY(!table.containsName("Sky"));
    QVERIFY(!table.containsName("Sky Blue "));
}

QTEST_GUILESS_MAIN(TestColourTable)
#include "tst_colourtable.moc"
