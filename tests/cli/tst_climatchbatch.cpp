#include "clirunner.h"
#include "matchrowtexts.h"

#include "colour/colourformat.h"
#include "colour/matchscore.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"
#include "tables/tablemessagetext.h"

#include "support/fixturefile.h"

#include <QColor>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using Run = CliRunner::Result;

// vellora-cli match --table FILE -, run as a separate process: its rows are
// compared with the colour engine's full match of every sample.
class TestCliMatchBatch : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_table;

    static Run cli(const QStringList &arguments, const QByteArray &input = QByteArray())
    {
        return CliRunner::run(arguments, input);
    }
    QStringList matchArgs(const QStringList &extra = {}) const
    {
        return QStringList{"match", "--table", m_table, "-"} + extra;
    }
    QStringList expectedRows(int line, const RgbColour &sample, int count) const;
    QJsonArray expectedJsonRows(const RgbColour &sample, int count) const;
    static void verifyError(const Run &run, int exitCode, const QString &message);

private slots:
    void initTestCase();
    void tsvRowsLeadWithLineNumberAndSampleColour();
    void threeColourFormatsGiveTheSameRows();
    void blankLinesAndCommentsAreSkipped();
    void jsonGivesOneObjectPerSampleOnOneLine();
    void outputKeepsInputOrderWhateverTheThreads();
    void countAboveThirtyTwoGivesMoreRows();
    void badLineIsNamedAfterTheRowsBeforeItAreWritten();
    void badLineAfterThousandsOfGoodOnesKeepsThemAll();
    void badLines_data();
    void badLines();
    void overlongLineIsNamed();
    void emptyInputPrintsOnlyTheHeader();
    void emptyTableIsRefusedWithTheApplicationText();
    void refusedOptions_data();
    void refusedOptions();
};

void TestCliMatchBatch::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QRandomGenerator random(2024);
    QByteArray content = "# a test library\n";
    for (int i = 0; i < 400; ++i) {
        // Some colours repeat, so that equal differences occur.
        const int r = i % 4 == 0 ? 128 : int(random.bounded(256));
        const int g = i % 4 == 0 ? 64 : int(random.bounded(256));
        const int b = i % 4 == 0 ? 0 : int(random.bounded(256));
        content += QByteArray::number(r / 255.0, 'f', 4) + ", " + QByteArray::number(g / 255.0, 'f', 4)
                   + ", " + QByteArray::number(b / 255.0, 'f', 4) + ", Colour "
                   + QByteArray::number(i) + "\n";
    }
    m_table = m_dir.filePath("Library.clrtable");
    QVERIFY(FixtureFile::write(m_table, content));
}

// The rows the full match gives for sample, each led by line and colour.
QStringList TestCliMatchBatch::expectedRows(int line, const RgbColour &sample, int count) const
{
    CColourTable table;
    if (table.load(m_table).status != CColourTable::Loaded)
        return {};
    const QVector<CMatchResult> sorted = CColourMatcher::match(table, sample);
    const int rows = CColourMatcher::rowsToShow(sorted, count);
    QStringList lines;
    for (int i = 0; i < rows; ++i) {
        lines << (QStringList{QString::number(line),
                              colourName(sample.red, sample.green, sample.blue)}
                  + MatchRowTexts::cells(sorted.at(i), i + 1))
                     .join(QLatin1Char('\t'));
    }
    return lines;
}

QJsonArray TestCliMatchBatch::expectedJsonRows(const RgbColour &sample, int count) const
{
    QJsonArray rows;
    for (const QString &line : expectedRows(0, sample, count)) {
        const QStringList cells = line.split(QLatin1Char('\t'));
        rows.append(QJsonObject{{"rank", cells.at(2).toInt()},
                                {"name", cells.at(3)},
                                {"hex", cells.at(4)},
                                {"deltaE", cells.at(5).toDouble()},
                                {"percent", cells.at(6).toDouble()},
                                {"verdict", cells.at(7)}});
    }
    return rows;
}

void TestCliMatchBatch::verifyError(const Run &run, int exitCode, const QString &message)
{
    QVERIFY2(run.finished, "vellora-cli crashed or hung");
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.errText(), QStringLiteral("vellora-cli: ") + message + QLatin1Char('\n'));
}

const char kHeader[] = "line\tsample\trank\tname\thex\tdeltaE\tpercent\tverdict";

void TestCliMatchBatch::tsvRowsLeadWithLineNumberAndSampleColour()
{
    const Run run = cli(matchArgs(), "#ff8000\n3366cc\n");
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.isEmpty());
    const QStringList expected = QStringList{kHeader}
                                 + expectedRows(1, RgbColour{1.0, 128 / 255.0, 0.0}, 4)
                                 + expectedRows(2, RgbColour{0x33 / 255.0, 0x66 / 255.0, 0.8}, 4);
    QVERIFY(expected.size() >= 9);
    QCOMPARE(run.outLines(), expected);
}

void TestCliMatchBatch::threeColourFormatsGiveTheSameRows()
{
    const Run run = cli(matchArgs(), "#10a0f0\n10A0F0\n16,160,240\n 16 , 160 ,240\t\n");
    QCOMPARE(run.exitCode, 0);
    const RgbColour sample{16 / 255.0, 160 / 255.0, 240 / 255.0};
    QStringList expected{kHeader};
    for (int line = 1; line <= 4; ++line)
        expected += expectedRows(line, sample, 4);
    QCOMPARE(run.outLines(), expected);
}

void TestCliMatchBatch::blankLinesAndCommentsAreSkipped()
{
    const QByteArray input = "# swatch book 3\n"
                             "\n"
                             "   \t\n"
                             "#\n"
                             "#00ff00 # a note after the colour\n"
                             "0,0,255\t# another note\n"
                             "\r\n"
                             "#808080\r\n";
    const Run run = cli(matchArgs(), input);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.isEmpty());
    const QStringList expected = QStringList{kHeader} + expectedRows(5, RgbColour{0, 1, 0}, 4)
                                 + expectedRows(6, RgbColour{0, 0, 1}, 4)
                                 + expectedRows(8, RgbColour{128 / 255.0, 128 / 255.0, 128 / 255.0}, 4);
    QCOMPARE(run.outLines(), expected);
}

void TestCliMatchBatch::jsonGivesOneObjectPerSampleOnOneLine()
{
    const Run run = cli(matchArgs({"--format", "json"}), "\n#ff8000\n# note\n0,0,0\n");
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), 2);
    const struct
    {
        int line;
        RgbColour colour;
        QString hex;
    } samples[] = {{2, RgbColour{1.0, 128 / 255.0, 0.0}, "#ff8000"}, {4, RgbColour{0, 0, 0}, "#000000"}};
    for (int i = 0; i < 2; ++i) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(lines.at(i).toUtf8(), &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        const QJsonObject object = document.object();
        QCOMPARE(object.value("line").toInt(), samples[i].line);
        QCOMPARE(object.value("sample").toString(), samples[i].hex);
        QCOMPARE(object.value("matches").toArray(), expectedJsonRows(samples[i].colour, 4));
    }
}

void TestCliMatchBatch::outputKeepsInputOrderWhateverTheThreads()
{
    // More samples than one round of reading holds, in random colours.
    QRandomGenerator random(99);
    QByteArray input;
    for (int i = 0; i < 5000; ++i)
        input += colourName(random.generateDouble(), random.generateDouble(), random.generateDouble())
                     .toLatin1()
                 + "\n";
    const Run one = cli(matchArgs({"--jobs", "1"}), input);
    const Run four = cli(matchArgs({"--jobs", "4"}), input);
    const Run all = cli(matchArgs(), input);
    QCOMPARE(one.exitCode, 0);
    QCOMPARE(four.exitCode, 0);
    QCOMPARE(all.exitCode, 0);
    QCOMPARE(four.out, one.out);
    QCOMPARE(all.out, one.out);
    const QStringList lines = one.outLines();
    QVERIFY(lines.size() >= 1 + 4 * 5000);
    int previous = 0;
    for (int i = 1; i < lines.size(); ++i) {
        const int line = lines.at(i).section(QLatin1Char('\t'), 0, 0).toInt();
        QVERIFY(line == previous || line == previous + 1);
        previous = line;
    }
    QCOMPARE(previous, 5000);
    // Spot checks against the full match.
    for (int line : {1, 2048, 2049, 5000}) {
        const QString hex = QString::fromLatin1(input.split('\n').at(line - 1));
        const QColor colour(hex);
        const QStringList expected =
            expectedRows(line, RgbColour{colour.red() / 255.0, colour.green() / 255.0, colour.blue() / 255.0}, 4);
        const int first = lines.indexOf(expected.first());
        QVERIFY2(first > 0, qPrintable(hex));
        QCOMPARE(lines.mid(first, expected.size()), expected);
    }
}

void TestCliMatchBatch::countAboveThirtyTwoGivesMoreRows()
{
    const Run run = cli(matchArgs({"--count", "40"}), "808080\n");
    QCOMPARE(run.exitCode, 0);
    const QStringList expected =
        QStringList{kHeader} + expectedRows(1, RgbColour{128 / 255.0, 128 / 255.0, 128 / 255.0}, 40);
    QCOMPARE(expected.size(), 41);
    QCOMPARE(run.outLines(), expected);
}

void TestCliMatchBatch::badLineIsNamedAfterTheRowsBeforeItAreWritten()
{
    const Run run = cli(matchArgs(), "#ff0000\n\n00ff00\nzz\n0000ff\n");
    verifyError(run, 2,
                "line 4: \"zz\" is not a colour (#rrggbb, rrggbb or R,G,B with 0 to 255)");
    const QStringList expected = QStringList{kHeader} + expectedRows(1, RgbColour{1, 0, 0}, 4)
                                 + expectedRows(3, RgbColour{0, 1, 0}, 4);
    QCOMPARE(run.outLines(), expected);
}

void TestCliMatchBatch::badLineAfterThousandsOfGoodOnesKeepsThemAll()
{
    QByteArray input;
    for (int i = 0; i < 3000; ++i)
        input += "#204060\n";
    input += "#2040\n#204060\n";
    const Run run = cli(matchArgs({"--jobs", "2"}), input);
    verifyError(run, 2,
                "line 3001: \"#2040\" is not a colour (#rrggbb, rrggbb or R,G,B with 0 to 255)");
    const QStringList lines = run.outLines();
    const QStringList one = expectedRows(3000, RgbColour{0x20 / 255.0, 0x40 / 255.0, 0x60 / 255.0}, 4);
    QCOMPARE(lines.size(), 1 + 3000 * one.size());
    QCOMPARE(lines.mid(lines.size() - one.size()), one);
}

void TestCliMatchBatch::badLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("shown");

    QTest::newRow("byte above 255") << QByteArray("256,0,0") << "256,0,0";
    QTest::newRow("two bytes") << QByteArray("1,2") << "1,2";
    QTest::newRow("four bytes") << QByteArray("1,2,3,4") << "1,2,3,4";
    QTest::newRow("negative byte") << QByteArray("-1,2,3") << "-1,2,3";
    QTest::newRow("fractions") << QByteArray("0.5,0.5,0.5") << "0.5,0.5,0.5";
    QTest::newRow("five hex digits") << QByteArray("#12345") << "#12345";
    QTest::newRow("seven hex digits") << QByteArray("1234567") << "1234567";
    QTest::newRow("not hex") << QByteArray("12345g") << "12345g";
    QTest::newRow("comment without a blank") << QByteArray("#note") << "#note";
    QTest::newRow("two colours") << QByteArray("ff0000 00ff00") << "ff0000 00ff00";
    QTest::newRow("binary") << QByteArray("\x01\x02\x7f", 3) << "???";
}

void TestCliMatchBatch::badLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, shown);
    const Run run = cli(matchArgs(), "ffffff\n" + line + "\n");
    verifyError(run, 2,
                QStringLiteral("line 2: \"%1\" is not a colour (#rrggbb, rrggbb or R,G,B with 0 to 255)")
                    .arg(shown));
    QCOMPARE(run.outLines(), QStringList{kHeader} + expectedRows(1, RgbColour{1, 1, 1}, 4));
}

void TestCliMatchBatch::overlongLineIsNamed()
{
    const QByteArray input = "000000\n" + QByteArray(2 << 20, 'f') + "\n";
    const Run run = cli(matchArgs(), input);
    verifyError(run, 2, "line 2: longer than 1048576 bytes");
    QCOMPARE(run.outLines(), QStringList{kHeader} + expectedRows(1, RgbColour{0, 0, 0}, 4));
}

void TestCliMatchBatch::emptyInputPrintsOnlyTheHeader()
{
    const Run tsv = cli(matchArgs(), "");
    QCOMPARE(tsv.exitCode, 0);
    QCOMPARE(tsv.outText(), QString(kHeader) + "\n");
    const Run json = cli(matchArgs({"--format", "json"}), "\n# nothing\n");
    QCOMPARE(json.exitCode, 0);
    QVERIFY(json.out.isEmpty());
}

void TestCliMatchBatch::emptyTableIsRefusedWithTheApplicationText()
{
    const QString empty = m_dir.filePath("Empty.clrtable");
    QVERIFY(FixtureFile::write(empty, "# nothing here\n"));
    const Run run = cli({"match", "--table", empty, "-"}, "ff0000\n");
    verifyError(run, 2, CTableMessageText::emptyLibrary("Empty"));
    QVERIFY(run.out.isEmpty());
}

void TestCliMatchBatch::refusedOptions_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");

    QTest::newRow("colour given as well")
        << QStringList{"--rgb", "1,2,3"} << 1
        << "match - reads its colours from standard input, not from --rgb or --hex";
    QTest::newRow("no jobs") << QStringList{"--jobs", "0"} << 2
                             << "--jobs must be a whole number from 1 to 1024, not \"0\"";
    QTest::newRow("jobs not a number") << QStringList{"--jobs", "many"} << 2
                                       << "--jobs must be a whole number from 1 to 1024, not \"many\"";
}

void TestCliMatchBatch::refusedOptions()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    const Run run = cli(matchArgs(args), "ff0000\n");
    verifyError(run, exitCode, message);
    QVERIFY(run.out.isEmpty());

    const Run single = cli({"match", "--table", m_table, "--hex", "ff0000", "--jobs", "2"});
    verifyError(single, 1, "--jobs needs match -");
}

QTEST_GUILESS_MAIN(TestCliMatchBatch)
#include "tst_climatchbatch.moc"
