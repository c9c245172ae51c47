#include "clirunner.h"

#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"

#include "support/quillonexamplelines.h"
#include "support/filesizelimit.h"
#include "support/fixturefile.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using Run = CliRunner::Result;

// vellora-cli import-config, run as a separate process: the table it prints
// or writes is the one the Import tab would save.
class TestCliImport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString writeConfig(const QString &name, const QByteArray &content) const;
    static void verifyError(const Run &run, int exitCode, const QString &message);
    // The output lines with the date line (the second) taken out.
    static QStringList withoutDateLine(const QByteArray &bytes);

private slots:
    void initTestCase();

    void exampleLine_data();
    void exampleLine();
    void refusedExampleLineNamesLineAndPath_data();
    void refusedExampleLineNamesLineAndPath();
    void lineNumbersCountBlankAndCommentLines();
    void printsTheTableAsItWouldBeSaved();
    void dateLineIsTheCurrentTime();
    void outputEqualsWhatTheImporterSerialises();
    void commentsOnlyIsNoRecords();
    void missingFileCannotBeOpened();
    void folderCannotBeOpened();
    void outWritesTheTableFile();
    void outRefusesAnExistingFileAndLeavesItAlone();
    void forceOverwritesAnExistingFile();
    void forceWithoutOutIsAUsageError();
    void wrongArgumentCountIsAUsageError();
    void failedWriteLeavesTheOldFileAndExitsTwo();
    void helpDocumentsImportConfig();
};

void TestCliImport::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

QString TestCliImport::writeConfig(const QString &name, const QByteArray &content) const
{
    const QString file = path(name);
    return FixtureFile::write(file, content) ? file : QString();
}

void TestCliImport::verifyError(const Run &run, int exitCode, const QString &message)
{
    QVERIFY2(run.finished, "vellora-cli crashed or hung");
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.errText(), QStringLiteral("vellora-cli: ") + message + QLatin1Char('\n'));
}

QStringList TestCliImport::withoutDateLine(const QByteArray &bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    if (lines.size() > 1)
        lines.removeAt(1);
    return lines;
}

void TestCliImport::exampleLine_data()
{
    QuillonExampleLines::addAcceptedRows();
}

void TestCliImport::exampleLine()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, entry);
    const QString file = writeConfig(QStringLiteral("example.config"), line + '\n');
    const Run run = CliRunner::run({"import-config", file});
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.isEmpty());
    QCOMPARE(withoutDateLine(run.out),
             QStringList({"#Imported from example.config", "", "", entry, ""}));
}

void TestCliImport::refusedExampleLineNamesLineAndPath_data()
{
    QuillonExampleLines::addRefusedRows();
}

void TestCliImport::refusedExampleLineNamesLineAndPath()
{
    QFETCH(QByteArray, line);
    const QString file = writeConfig(QStringLiteral("refused.config"), line + '\n');
    const Run run = CliRunner::run({"import-config", file});
    verifyError(run, 2, QStringLiteral("Error in line 1: while processing: %1.").arg(file));
    QVERIFY(run.out.isEmpty());
}

void TestCliImport::lineNumbersCountBlankAndCommentLines()
{
    const QString file = writeConfig(QStringLiteral("lines.config"),
                                     "# spring\n\n1/0/0/Red\n   \n# more\n1,5/0/0/x\n0/0/1/Blue\n");
    const Run run = CliRunner::run({"import-config", file});
    verifyError(run, 2, QStringLiteral("Error in line 6: while processing: %1.").arg(file));
    QVERIFY(run.out.isEmpty());
}

void TestCliImport::printsTheTableAsItWouldBeSaved()
{
    const QString file = writeConfig(QStringLiteral("spring.config"),
                                     "# Spring range\n0/0/1/blue\n1/0/0/Red, warm\n\n0/1/0/Aqua\n");
    const Run run = CliRunner::run({"import-config", file});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(withoutDateLine(run.out),
             QStringList({"#Imported from spring.config", "", "", "0.0000, 1.0000, 0.0000, Aqua",
                          "0.0000, 0.0000, 1.0000, blue", "1.0000, 0.0000, 0.0000, Red; warm",
                          ""}));
}

void TestCliImport::dateLineIsTheCurrentTime()
{
    const QString file = writeConfig(QStringLiteral("date.config"), "1/0/0/Red\n");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    const Run run = CliRunner::run({"import-config", file});
    const QDateTime after = QDateTime::currentDateTime().addSecs(1);
    QCOMPARE(run.exitCode, 0);
    const QString dateLine = QString::fromUtf8(run.out).split(QLatin1Char('\n')).value(1);
    QVERIFY2(dateLine.startsWith(QLatin1Char('#')), qPrintable(dateLine));
    const QDateTime stamp =
        QDateTime::fromString(dateLine.mid(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    QVERIFY2(stamp.isValid(), qPrintable(dateLine));
    QVERIFY(stamp >= before.addMSecs(-before.time().msec()));
    QVERIFY(stamp <= after);
}

void TestCliImport::outputEqualsWhatTheImporterSerialises()
{
    const QString file =
        writeConfig(QStringLiteral("same.config"), "0.1/0.2/0.3/Moss\n0.9/0.8/0.7/\\#Hash=\n");
    CLibColourTable table;
    const Run run = CliRunner::run({"import-config", file});
    QCOMPARE(run.exitCode, 0);
    const QString dateLine = QString::fromUtf8(run.out).split(QLatin1Char('\n')).value(1);
    const QDateTime stamp =
        QDateTime::fromString(dateLine.mid(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    QCOMPARE(CQuillonImport::importFile(file, table, stamp).status, int(CQuillonImport::Imported));
    QCOMPARE(run.out, table.serialise());
}

void TestCliImport::commentsOnlyIsNoRecords()
{
    const QString file = writeConfig(QStringLiteral("none.config"), "# only a comment\n\n");
    const Run run = CliRunner::run({"import-config", file});
    verifyError(run, 2, QStringLiteral("Error while processing: %1: No records found").arg(file));
    QVERIFY(run.out.isEmpty());
}

void TestCliImport::missingFileCannotBeOpened()
{
    const QString missing = path(QStringLiteral("missing.config"));
    verifyError(CliRunner::run({"import-config", missing}), 2,
                QStringLiteral("Error, opening file: %1.").arg(missing));
}

void TestCliImport::folderCannotBeOpened()
{
    verifyError(CliRunner::run({"import-config", m_dir.path()}), 2,
                QStringLiteral("Error, opening file: %1.").arg(m_dir.path()));
}

void TestCliImport::outWritesTheTableFile()
{
    const QString file = writeConfig(QStringLiteral("out.config"), "1/0/0/Red\n0/0/1/Blue\n");
    const QString table = path(QStringLiteral("lib/Imported.clrtable"));
    const Run run = CliRunner::run({"import-config", file, "--out", table});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.isEmpty());
    QCOMPARE(withoutDateLine(FixtureFile::read(table)),
             QStringList({"#Imported from out.config", "", "", "0.0000, 0.0000, 1.0000, Blue",
                          "1.0000, 0.0000, 0.0000, Red", ""}));
}

void TestCliImport::outRefusesAnExistingFileAndLeavesItAlone()
{
    const QString file = writeConfig(QStringLiteral("keep.config"), "1/0/0/Red\n");
    const QString table = writeConfig(QStringLiteral("Keep.clrtable"), "0.5, 0.5, 0.5, Grey\n");
    const Run run = CliRunner::run({"import-config", file, "--out", table});
    verifyError(run, 1, QStringLiteral("%1 already exists; give --force to overwrite it").arg(table));
    QCOMPARE(FixtureFile::read(table), QByteArray("0.5, 0.5, 0.5, Grey\n"));
}

void TestCliImport::forceOverwritesAnExistingFile()
{
    const QString file = writeConfig(QStringLiteral("force.config"), "1/0/0/Red\n");
    const QString table = writeConfig(QStringLiteral("Force.clrtable"), "0.5, 0.5, 0.5, Grey\n");
    const Run run = CliRunner::run({"import-config", file, "--out", table, "--force"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(withoutDateLine(FixtureFile::read(table)),
             QStringList({"#Imported from force.config", "", "", "1.0000, 0.0000, 0.0000, Red", ""}));
}

void TestCliImport::forceWithoutOutIsAUsageError()
{
    const QString file = writeConfig(QStringLiteral("f.config"), "1/0/0/Red\n");
    const Run run = CliRunner::run({"import-config", file, "--force"});
    verifyError(run, 1, QStringLiteral("option --force needs --out"));
    QVERIFY(run.out.isEmpty());
}

void TestCliImport::wrongArgumentCountIsAUsageError()
{
    verifyError(CliRunner::run({"import-config"}), 1,
                QStringLiteral("import-config needs one FILE (got 0 arguments)"));
    verifyError(CliRunner::run({"import-config", "a.config", "b.config"}), 1,
                QStringLiteral("import-config needs one FILE (got 2 arguments)"));
}

void TestCliImport::failedWriteLeavesTheOldFileAndExitsTwo()
{
    const QString file = writeConfig(QStringLiteral("big.config"),
                                     QByteArray("0.1/0.2/0.3/A rather long colour name\n")
                                         .repeated(200));
    const QByteArray old("0.5, 0.5, 0.5, Grey\n");
    const QString table = writeConfig(QStringLiteral("Full.clrtable"), old);
    Run run;
    {
        // The limit is inherited by the child process: its write fails as on
        // a full disk.
        FileSizeLimit limit(512);
        QVERIFY(limit.isActive());
        run = CliRunner::run({"import-config", file, "--out", table, "--force"});
    }
    verifyError(run, 2, QStringLiteral("Error, writing to file: %1.").arg(table));
    QCOMPARE(FixtureFile::read(table), old);
    QCOMPARE(QDir(m_dir.path()).entryList({"Full.clrtable*"}, QDir::Files | QDir::Hidden),
             QStringList({"Full.clrtable"}));
}

void TestCliImport::helpDocumentsImportConfig()
{
    const Run run = CliRunner::run({"--help"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.outText().contains(QStringLiteral("import-config FILE [--out TABLE [--force]]")));
}

QTEST_GUILESS_MAIN(TestCliImport)
#include "tst_cliimport.moc"
