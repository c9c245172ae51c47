#include "clirunner.h"

#include "tables/readymadetables.h"

#include "support/fixturefile.h"

#include <QTemporaryDir>
#include <QtTest>

using Run = CliRunner::Result;

// vellora-cli tables and find, run as a separate process: the ready-made
// tables it lists and writes are the ones the Import tab offers, and find
// searches names as the "Find Colour" window does.
class TestCliReadyMade : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    static void verifyError(const Run &run, int exitCode, const QString &start);

private slots:
    void initTestCase();

    void tablesListsNameEntriesLicenceAndSource();
    void writeGivesTheShippedBytes_data();
    void writeGivesTheShippedBytes();
    void writeRefusesAnExistingFileAndLeavesItAlone();
    void forceOverwritesAnExistingFile();
    void unknownTableIsAUsageErrorNamingTheTables();
    void usageErrors_data();
    void usageErrors();
    void unwritableFileExitsTwo();
    void findPrintsMatchingEntries();
    void findIgnoresCaseAndAccents();
    void findWithoutHitPrintsOnlyTheHeading();
    void findJoinsSeveralWords();
    void findInAMissingTableExitsTwo();
    void helpDocumentsTablesAndFind();
};

void TestCliReadyMade::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestCliReadyMade::verifyError(const Run &run, int exitCode, const QString &start)
{
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY(run.out.isEmpty());
    QVERIFY2(run.errText().startsWith(QStringLiteral("vellora-cli: ") + start),
             qPrintable(run.errText()));
}

void TestCliReadyMade::tablesListsNameEntriesLicenceAndSource()
{
    const Run run = CliRunner::run({QStringLiteral("tables")});
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(),
             QStringList({"name\tentries\tlicence\tsource",
                          "X11 Colours\t658\tMIT-style (X.Org)\tx11-common 1:7.7+23 (Debian)",
                          "xkcd Colours\t949\tCC0 1.0 (public domain)\tpython3-matplotlib 3.6.3-1+b1 (Debian)",
                          "Color Name List\t31918\tMIT\tcolor-name-list 14.51.0 (npm)"}));
}

void TestCliReadyMade::writeGivesTheShippedBytes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    QTest::newRow("as listed") << "X11 Colours" << 0;
    QTest::newRow("any case, no blanks") << "xkcdcolours" << 1;
    QTest::newRow("largest") << "Color Name List" << 2;
}

void TestCliReadyMade::writeGivesTheShippedBytes()
{
    QFETCH(QString, name);
    QFETCH(int, index);
    const QString file = path(QStringLiteral("written%1.clrtable").arg(index));
    const Run run = CliRunner::run({QStringLiteral("tables"), QStringLiteral("--write"), name, file});
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.isEmpty());
    QCOMPARE(FixtureFile::read(file), CReadyMadeTables::content(CReadyMadeTables::all().at(index)));
}

void TestCliReadyMade::writeRefusesAnExistingFileAndLeavesItAlone()
{
    const QString file = path(QStringLiteral("existing.clrtable"));
    QVERIFY(FixtureFile::write(file, "0.5, 0.5, 0.5, mine\n"));
    const Run run = CliRunner::run(
        {QStringLiteral("tables"), QStringLiteral("--write"), QStringLiteral("X11 Colours"), file});
    verifyError(run, 1, file + QStringLiteral(" already exists; give --force to overwrite it"));
    QCOMPARE(FixtureFile::read(file), QByteArray("0.5, 0.5, 0.5, mine\n"));
}

void TestCliReadyMade::forceOverwritesAnExistingFile()
{
    const QString file = path(QStringLiteral("forced.clrtable"));
    QVERIFY(FixtureFile::write(file, "0.5, 0.5, 0.5, mine\n"));
    const Run run = CliRunner::run({QStringLiteral("tables"), QStringLiteral("--write"),
                                    QStringLiteral("xkcd Colours"), file, QStringLiteral("--force")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(FixtureFile::read(file), CReadyMadeTables::content(CReadyMadeTables::all().at(1)));
}

void TestCliReadyMade::unknownTableIsAUsageErrorNamingTheTables()
{
    const QString file = path(QStringLiteral("never.clrtable"));
    const Run run = CliRunner::run(
        {QStringLiteral("tables"), QStringLiteral("--write"), QStringLiteral("Pantone"), file});
    verifyError(run, 1,
                QStringLiteral("no ready-made table \"Pantone\" (there are \"X11 Colours\", "
                               "\"xkcd Colours\", \"Color Name List\")"));
    QVERIFY(!QFileInfo::exists(file));
}

void TestCliReadyMade::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("list with an argument") << QStringList{"tables", "X11 Colours"}
                                           << "tables takes no arguments without --write";
    QTest::newRow("write without file") << QStringList{"tables", "--write", "X11 Colours"}
                                        << "tables --write needs NAME and FILE (got 1 arguments)";
    QTest::newRow("force without write") << QStringList{"tables", "--force"} << "option --force needs --write";
    QTest::newRow("unknown option") << QStringList{"tables", "--all"} << "unknown option --all";
    QTest::newRow("find without table") << QStringList{"find", "blue"} << "find needs --table FILE";
    QTest::newRow("find without text") << QStringList{"find", "--table", "t.clrtable"}
                                       << "find needs the TEXT to look for";
}

void TestCliReadyMade::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    verifyError(CliRunner::run(arguments), 1, message);
}

void TestCliReadyMade::unwritableFileExitsTwo()
{
    const QString file = path(QStringLiteral("no/such/folder/t.clrtable"));
    const Run run = CliRunner::run(
        {QStringLiteral("tables"), QStringLiteral("--write"), QStringLiteral("X11 Colours"), file});
    verifyError(run, 2, QStringLiteral("Error, writing to file: %1.").arg(file));
}

void TestCliReadyMade::findPrintsMatchingEntries()
{
    const QString file = path(QStringLiteral("x11.clrtable"));
    QCOMPARE(CliRunner::run({"tables", "--write", "X11 Colours", file}).exitCode, 0);
    // rgb.txt: "240 248 255  alice blue".
    const Run run = CliRunner::run({QStringLiteral("find"), QStringLiteral("--table"), file,
                                    QStringLiteral("alice")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), QStringList({"name\thex\tred\tgreen\tblue",
                                          "alice blue\t#f0f8ff\t0.9412\t0.9725\t1.0000"}));
}

void TestCliReadyMade::findIgnoresCaseAndAccents()
{
    const QString file = path(QStringLiteral("latin1.clrtable"));
    // Table files are read as Latin-1: "Café" is C a f 0xE9.
    QVERIFY(FixtureFile::write(file, "0.4000, 0.2000, 0.0000, Caf\xe9 au Lait\n"
                                     "0.1000, 0.1000, 0.1000, Noir\n"));
    const Run run = CliRunner::run({QStringLiteral("find"), QStringLiteral("--table"), file,
                                    QStringLiteral("CAFE")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), QStringList({"name\thex\tred\tgreen\tblue",
                                          "Café au Lait\t#663300\t0.4000\t0.2000\t0.0000"}));
}

void TestCliReadyMade::findWithoutHitPrintsOnlyTheHeading()
{
    const QString file = path(QStringLiteral("x11b.clrtable"));
    QCOMPARE(CliRunner::run({"tables", "--write", "X11 Colours", file}).exitCode, 0);
    const Run run = CliRunner::run({QStringLiteral("find"), QStringLiteral("--table"), file,
                                    QStringLiteral("qqxqq")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), QStringList{"name\thex\tred\tgreen\tblue"});
}

void TestCliReadyMade::findJoinsSeveralWords()
{
    const QString file = path(QStringLiteral("x11c.clrtable"));
    QCOMPARE(CliRunner::run({"tables", "--write", "X11 Colours", file}).exitCode, 0);
    // rgb.txt: "47 79 79  dark slate gray" and "... dark slate grey".
    const Run run = CliRunner::run({"find", "--table", file, "DARK", "SLATE", "GR"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines().mid(1),
             QStringList({"dark slate gray\t#2f4f4f\t0.1843\t0.3098\t0.3098",
                          "dark slate grey\t#2f4f4f\t0.1843\t0.3098\t0.3098"}));
}

void TestCliReadyMade::findInAMissingTableExitsTwo()
{
    const QString file = path(QStringLiteral("missing.clrtable"));
    verifyError(CliRunner::run({QStringLiteral("find"), QStringLiteral("--table"), file,
                                QStringLiteral("blue")}),
                2, QStringLiteral("Error while attempting to open colour table file:"));
}

void TestCliReadyMade::helpDocumentsTablesAndFind()
{
    const Run run = CliRunner::run({QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.outText().contains(QStringLiteral("  tables --write NAME FILE [--force]\n")));
    QVERIFY(run.outText().contains(QStringLiteral("  find --table FILE TEXT ")));
}

QTEST_GUILESS_MAIN(TestCliReadyMade)
#include "tst_clireadymade.moc"
