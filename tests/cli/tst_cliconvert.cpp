#include "clirunner.h"

#include "palette/asepalette.h"
#include "palette/gplpalette.h"
#include "palette/jsonpalette.h"
#include "tables/libcolourtable.h"

#include "support/fixturefile.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using Run = CliRunner::Result;

// vellora-cli convert, run as a separate process on files the test writes.
class TestCliConvert : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString writeFile(const QString &name, const QByteArray &bytes) const;
    static Run cli(const QStringList &arguments) { return CliRunner::run(arguments); }
    static void verifyFailure(const Run &run, int exitCode, const QString &part);

    static const QByteArray kTable;

private slots:
    void helpListsConvert();
    void tableToEveryFormatAndBack_data();
    void tableToEveryFormatAndBack();
    void gplToTableWritesTheTableFormat();
    void existingOutputIsRefusedWithoutForce();
    void forceReplacesExistingOutput();
    void fromAndToOverrideTheSuffixes();
    void usageErrors_data();
    void usageErrors();
    void malformedInputExitsTwoNamingTheLine_data();
    void malformedInputExitsTwoNamingTheLine();
    void cmykSwatchIsConvertedAndReportedOnStandardError();
    void unwritableOutputExitsTwoAndWritesNothing();
};

const QByteArray TestCliConvert::kTable = "# Greens\n0.1961, 0.8039, 0.1961, Limegreen\n"
                                          "0.0000, 0.0000, 0.5020, Navy\n"
                                          "1.0000, 1.0000, 1.0000, White\n";

QString TestCliConvert::writeFile(const QString &name, const QByteArray &bytes) const
{
    const QString file = path(name);
    if (!FixtureFile::write(file, bytes))
        qWarning("cannot write %s", qPrintable(file));
    return file;
}

void TestCliConvert::verifyFailure(const Run &run, int exitCode, const QString &part)
{
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY(run.out.isEmpty());
    QVERIFY2(run.errText().startsWith(QLatin1String("vellora-cli: ")), qPrintable(run.errText()));
    QVERIFY2(run.errText().contains(part), qPrintable(run.errText()));
    QCOMPARE(run.errText().count(QLatin1Char('\n')), 1);
}

void TestCliConvert::helpListsConvert()
{
    const Run run = cli({"--help"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.outText().contains(QLatin1String("convert IN OUT [--from F] [--to F] [--force]")));
}

void TestCliConvert::tableToEveryFormatAndBack_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *s : {"gpl", "ase", "json", "txt", "csv", "clrtable"})
        QTest::newRow(s) << QString::fromLatin1(s);
}

void TestCliConvert::tableToEveryFormatAndBack()
{
    QFETCH(QString, suffix);
    const QString table = writeFile("greens.clrtable", kTable);
    const QString middle = path("middle." + suffix);
    const QString back = path("back-" + suffix + ".clrtable");
    QFile::remove(middle);
    Run run = cli({"convert", table, middle});
    QVERIFY2(run.exitCode == 0, qPrintable(run.errText()));
    QVERIFY(run.err.isEmpty());
    QVERIFY(QFileInfo(middle).size() > 0);
    run = cli({"convert", middle, back, "--force"});
    QVERIFY2(run.exitCode == 0, qPrintable(run.errText()));
    // The colours come back as the table wrote them; the note stays behind.
    QCOMPARE(FixtureFile::read(back), kTable.mid(kTable.indexOf('\n') + 1));
}

void TestCliConvert::gplToTableWritesTheTableFormat()
{
    const QString gpl = writeFile("in.gpl", "GIMP Palette\nName: P\n#\n255 128 0 Orange peel\n");
    const Run run = cli({"convert", gpl, path("out.txt")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(FixtureFile::read(path("out.txt")), QByteArray("1.0000, 0.5020, 0.0000, Orange peel\n"));
}

void TestCliConvert::existingOutputIsRefusedWithoutForce()
{
    const QString table = writeFile("refuse.clrtable", kTable);
    const QString out = writeFile("refuse.json", "keep me");
    const Run run = cli({"convert", table, out});
    verifyFailure(run, 1, out + " already exists; give --force to replace it");
    QCOMPARE(FixtureFile::read(out), QByteArray("keep me"));
}

void TestCliConvert::forceReplacesExistingOutput()
{
    const QString table = writeFile("force.clrtable", kTable);
    const QString out = writeFile("force.json", "old");
    const Run run = cli({"convert", table, out, "--force"});
    QCOMPARE(run.exitCode, 0);
    const CPaletteReadResult r = CJsonPalette::read(FixtureFile::read(out));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 3);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Limegreen"));
    QCOMPARE(CPalette::hex(r.palette().colours.at(0).rgb), QStringLiteral("#32cd32"));
}

void TestCliConvert::fromAndToOverrideTheSuffixes()
{
    const QString in = writeFile("palette.data", "GIMP Palette\n0 0 255 Blue\n");
    const Run run = cli({"convert", in, path("swatches.bin"), "--from", "gpl", "--to=ase"});
    QCOMPARE(run.exitCode, 0);
    const CPaletteReadResult r = CAsePalette::read(FixtureFile::read(path("swatches.bin")));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 1);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Blue"));
}

void TestCliConvert::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part");
    QTest::newRow("no arguments") << QStringList{"convert"} << "convert needs IN and OUT (got 0";
    QTest::newRow("one argument") << QStringList{"convert", "a.gpl"} << "convert needs IN and OUT";
    QTest::newRow("three arguments") << QStringList{"convert", "a.gpl", "b.css", "c.json"}
                                     << "(got 3 arguments)";
    QTest::newRow("unknown suffix") << QStringList{"convert", "a.png", "b.css"}
                                    << "cannot tell the format of a.png";
    QTest::newRow("unknown --to") << QStringList{"convert", "a.gpl", "b.css", "--to", "pdf"}
                                  << "--to must be one of clrtable|txt|csv|gpl|ase|css|json";
    QTest::newRow("unknown option") << QStringList{"convert", "a.gpl", "b.css", "--quiet"}
                                    << "quiet";
}

void TestCliConvert::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    verifyFailure(cli(arguments), 1, part);
}

void TestCliConvert::malformedInputExitsTwoNamingTheLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("part");
    QTest::newRow("gpl") << "bad.gpl" << QByteArray("GIMP Palette\n0 0 0 a\n0 0 300 b\n")
                         << "Error in line 3: while processing: ";
    QTest::newRow("css") << "bad.css" << QByteArray(":root {\n --a: #12;\n}\n")
                         << "Error in line 2: while processing: ";
    QTest::newRow("json") << "bad.json" << QByteArray("[{\"rgb\":[0,0,0]},{\"hex\":\"x\"}]")
                          << "Error in entry 2: while processing: ";
    QTest::newRow("ase") << "bad.ase" << QByteArray("ASEF\0\1\0\0\0\0\0\1", 12)
                         << "Error in block 1: while processing: ";
    QTest::newRow("not a gimp palette") << "prose.gpl" << QByteArray("hello\n")
                                        << "is not a GIMP palette: its first line";
    QTest::newRow("table") << "bad.clrtable" << QByteArray("# a\n0.5, abc, 0.5, X\n")
                           << "Unable to load colour table: bad: Error in line 2";
    QTest::newRow("missing") << "" << QByteArray() << "Error, opening file:";
}

void TestCliConvert::malformedInputExitsTwoNamingTheLine()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, part);
    const QString in = name.isEmpty() ? path("missing.gpl") : writeFile(name, content);
    const QString out = path("never.json");
    verifyFailure(cli({"convert", in, out}), 2, part);
    QVERIFY(!QFileInfo::exists(out));
}

void TestCliConvert::cmykSwatchIsConvertedAndReportedOnStandardError()
{
    QByteArray ase("ASEF\0\1\0\0\0\0\0\1", 12);
    QByteArray body;
    body.append("\0\6\0P\0r\0e\0s\0s\0\0", 14).append("CMYK");
    const quint32 floats[4] = {0x00000000, 0x3F000000, 0x3F800000, 0x3F000000}; // 0, .5, 1, .5
    for (quint32 f : floats)
        body.append(char(f >> 24)).append(char(f >> 16)).append(char(f >> 8)).append(char(f));
    body.append("\0\2", 2);
    ase.append("\0\1", 2).append(char(0)).append(char(0)).append(char(0)).append(char(body.size()));
    ase += body;
    const QString in = writeFile("press.ase", ase);
    const Run run = cli({"convert", in, path("press.gpl")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errText().startsWith(QLatin1String("vellora-cli: note: \"Press\" is a CMYK colour")),
             qPrintable(run.errText()));
    QVERIFY(FixtureFile::read(path("press.gpl")).endsWith("128  64   0\tPress\n"));
}

void TestCliConvert::unwritableOutputExitsTwoAndWritesNothing()
{
    const QString table = writeFile("w.clrtable", kTable);
    QVERIFY(QDir(m_dir.path()).mkpath("taken.gpl"));
    const Run run = cli({"convert", table, path("taken.gpl"), "--force"});
    verifyFailure(run, 2, "cannot write " + path("taken.gpl"));
    QVERIFY(QFileInfo(path("taken.gpl")).isDir());
}

QTEST_GUILESS_MAIN(TestCliConvert)
#include "tst_cliconvert.moc"
