#include "clirunner.h"
#include "matchrowtexts.h"

#include "colour/colouraverage.h"
#include "colour/colourconversion.h"
#include "colour/colourformat.h"
#include "colour/deltae2000.h"
#include "colour/matchscore.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include "support/fixturefile.h"
#include "support/imagewriter.h"
#include "support/pixellist.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>

using Run = CliRunner::Result;

// Without a comma locale the locale tests would compare the C locale with
// itself and prove nothing, so they fail instead.
const char *const kNoCommaLocale =
    "No de_DE.UTF-8 locale with a decimal comma: scripts/install-deps.sh builds it";

// The batch tool, run as a separate process: its output for known input is
// compared with what the colour engine computes for the same input, and its
// exit status and error line with what a script relies on.
class TestCli : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QTemporaryDir m_locales;
    bool m_commaLocaleActive = false;
    bool m_privateLocale = false; // built here, found through LOCPATH

    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString writeTable(const QString &name, const QByteArray &content) const;
    QString writeImage(const QString &name, const QImage &image) const;
    QProcessEnvironment commaLocaleEnvironment(const QString &variable) const;
    bool prepareCommaLocale();
    static bool hasCommaLocale();

    static Run cli(const QStringList &arguments, const QByteArray &input = QByteArray());
    static void verifyError(const Run &run, int exitCode, const QString &message);
    static void verifyErrorContains(const Run &run, int exitCode, const QString &part);
    static QString fixed(const QVector<double> &values, int decimals);
    static QString labLine(double r, double g, double b);
    static QString rgbLine(double L, double a, double b);
    static QString sampleLine(const RgbColour &colour);
    static void verifyRefusedArguments(int exitCode);
    static QStringList expectedTsv(const QString &tablePath, const RgbColour &sample, int count);
    static QByteArray greysTable(int nearCount, int farCount);

private slots:
    void initTestCase();

    // General
    void helpPrintsUsageAndExitsZero();
    void versionPrintsNameAndVersion();
    void usageErrors_data();
    void usageErrors();
    void malformedNumbers_data();
    void malformedNumbers();
    void outputThatCannotBeWrittenIsReported();

    // lab, rgb, deltae, score
    void labMatchesEngine_data();
    void labMatchesEngine();
    void labOfWhiteAndBlackReferenceValues();
    void rgbMatchesEngine_data();
    void rgbMatchesEngine();
    void rgbOfLabZeroIsGreyNotBlack();
    void deltaeSinglePrecision_data();
    void deltaeSinglePrecision();
    void deltaeDoublePrecision_data();
    void deltaeDoublePrecision();
    void deltaeReferencePairBothPrecisions();
    void score_data();
    void score();
    void scoreInDeltaEUnitsWritesUtf8Delta();
    void negativeNumbersAreArgumentsNotOptions();

    // Batch mode
    void batchGivesOneResultPerLine_data();
    void batchGivesOneResultPerLine();
    void batchStopsAtBadLineAndNamesIt_data();
    void batchStopsAtBadLineAndNamesIt();
    void batchAcceptsCrLfTabsAndExtraSpaces();
    void batchEmptyInputPrintsNothing();
    void batchTenMegabyteLineIsRefusedWithoutCrash();
    void batchBinaryInputIsRefusedWithoutCrash();

    // Locale independence
    void outputIgnoresCommaLocale_data();
    void outputIgnoresCommaLocale();
    void decimalCommaIsRefusedEvenInCommaLocale();

    // table
    void tablePrintsWhatSaveWrites();
    void tableWithOnlyCommentsPrintsComments();
    void emptyTableFilePrintsNothing();
    void tableThatCannotBeOpenedGivesApplicationText();
    void folderAsTableCannotBeOpened();
    void tableWithBadLineGivesLineNumber();
    void binaryFileAsTableIsRefused();

    // match
    void matchTsvRowRule_data();
    void matchTsvRowRule();
    void matchTsvColumns();
    void matchJsonHasSameRows();
    void matchHexEqualsRgb();
    void matchEmptyTableGivesApplicationText();
    void matchBadTableGivesApplicationText();

    // sample
    void sampleOnePixelReadsPixelUnderPoint();
    void sampleNineByNineAtCornerReadsFiveByFiveBlock();
    void sampleNineByNineAtBottomRightReadsLastBlock();
    void sampleBandStopsOnePixelShort();
    void sampleEmptyBandExitsThree_data();
    void sampleEmptyBandExitsThree();
    void samplePointBeyondImageExitsThree();
    void sampleLabAverageIsColourOfMeanLab();
    void sampleLabBandOverNoiseIsColourOfMeanLab();
    void sampleIndexedGif();
    void samplePngWithAlphaIgnoresAlpha();
    void sampleTiffAndJpegAreRead();
    void sampleWithTableAppendsMatchRows();
    void sampleWithEmptyTablePrintsNothing();
    void sampleUnreadableImages_data();
    void sampleUnreadableImages();
    void sampleDecompressionBombIsRefusedBeforeDecoding();
};

// ---------------------------------------------------------------- helpers

Run TestCli::cli(const QStringList &arguments, const QByteArray &input)
{
    return CliRunner::run(arguments, input);
}

void TestCli::verifyError(const Run &run, int exitCode, const QString &message)
{
    QVERIFY2(run.finished, "vellora-cli crashed or hung");
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.errText(), QStringLiteral("vellora-cli: ") + message + QLatin1Char('\n'));
}

void TestCli::verifyErrorContains(const Run &run, int exitCode, const QString &part)
{
    QVERIFY2(run.finished, "vellora-cli crashed or hung");
    QCOMPARE(run.exitCode, exitCode);
    const QString err = run.errText();
    QVERIFY2(err.startsWith(QLatin1String("vellora-cli: ")), qPrintable(err));
    QVERIFY2(err.endsWith(QLatin1Char('\n')) && err.count(QLatin1Char('\n')) == 1,
             qPrintable(err)); // exactly one line
    QVERIFY2(err.contains(part), qPrintable(err));
}

QString TestCli::fixed(const QVector<double> &values, int decimals)
{
    QStringList texts;
    for (double v : values)
        texts << QString::number(v, 'f', decimals);
    return texts.join(QLatin1Char(' '));
}

QString TestCli::labLine(double r, double g, double b)
{
    const LabColour lab = rgbToLab(r, g, b);
    return fixed({lab.L, lab.a, lab.b}, 10);
}

QString TestCli::rgbLine(double L, double a, double b)
{
    const RgbColour rgb = labToRgb(L, a, b);
    return fixed({rgb.red, rgb.green, rgb.blue}, 4);
}

QString TestCli::sampleLine(const RgbColour &c)
{
    return fixed({c.red, c.green, c.blue}, 6) + QLatin1Char(' ')
           + colourName(c.red, c.green, c.blue);
}

QString TestCli::writeTable(const QString &name, const QByteArray &content) const
{
    const QString file = path(name);
    return FixtureFile::write(file, content) ? file : QString();
}

QString TestCli::writeImage(const QString &name, const QImage &image) const
{
    const QString file = path(name);
    return ImageWriter::write(image, file) ? file : QString();
}

// Greys just around the sample grey 128 (all within Delta E 2.5 of it) and
// saturated colours far from it.
QByteArray TestCli::greysTable(int nearCount, int farCount)
{
    QByteArray out = "# greys\n";
    for (int i = 0; i < nearCount; ++i) {
        const double v = 0.49 + 0.0005 * i;
        out += QByteArray::number(v, 'f', 4) + ", " + QByteArray::number(v, 'f', 4) + ", "
               + QByteArray::number(v, 'f', 4) + ", Grey " + QByteArray::number(i) + "\n";
    }
    const char *far[] = {"1, 0, 0, Red",  "0, 1, 0, Green",   "0, 0, 1, Blue",  "1, 1, 0, Yellow",
                         "0, 1, 1, Cyan", "1, 0, 1, Magenta", "0, 0, 0, Black", "1, 1, 1, White"};
    for (int i = 0; i < farCount; ++i)
        out += QByteArray(far[i % 8]) + " " + QByteArray::number(i) + "\n";
    return out;
}

QStringList TestCli::expectedTsv(const QString &tablePath, const RgbColour &sample, int count)
{
    CColourTable table;
    if (table.load(tablePath).status != CColourTable::Loaded)
        return {};
    const QVector<CMatchResult> sorted = CColourMatcher::match(table, sample);
    const int rows = CColourMatcher::rowsToShow(sorted, count);
    QStringList lines{QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict")};
    for (int i = 0; i < rows; ++i) {
        lines << MatchRowTexts::cells(sorted.at(i), i + 1).join(QLatin1Char('\t'));
    }
    return lines;
}

// A German locale, so that the C library really switches to a decimal comma
// in the child process: the system's own (scripts/install-deps.sh builds
// de_DE.UTF-8), or else one built into a private folder (LOCPATH).
bool TestCli::prepareCommaLocale()
{
    if (hasCommaLocale())
        return true;
    if (!m_locales.isValid())
        return false;
    QProcess localedef;
    localedef.start(QStringLiteral("localedef"),
                    {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                     QStringLiteral("UTF-8"), m_locales.filePath(QStringLiteral("de_DE.UTF-8"))});
    if (!localedef.waitForFinished(60000))
        return false;
    qputenv("LOCPATH", QFile::encodeName(m_locales.path()));
    m_privateLocale = hasCommaLocale();
    qunsetenv("LOCPATH");
    return m_privateLocale;
}

bool TestCli::hasCommaLocale()
{
    const bool active = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr
                        && QByteArray(std::localeconv()->decimal_point) == ",";
    std::setlocale(LC_NUMERIC, "C");
    return active;
}

QProcessEnvironment TestCli::commaLocaleEnvironment(const QString &variable) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LC_ALL"));
    environment.remove(QStringLiteral("LC_NUMERIC"));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.insert(variable, QStringLiteral("de_DE.UTF-8"));
    if (m_privateLocale)
        environment.insert(QStringLiteral("LOCPATH"), m_locales.path());
    return environment;
}

void TestCli::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QFileInfo(QStringLiteral(VELLORA_CLI_PATH)).isExecutable());
    m_commaLocaleActive = prepareCommaLocale();
}

// ---------------------------------------------------------------- general

void TestCli::helpPrintsUsageAndExitsZero()
{
    for (const QStringList &args :
         {QStringList{"--help"}, QStringList{"-h"}, QStringList{"lab", "--help"}}) {
        const Run run = cli(args);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.outText().startsWith(QLatin1String("Usage: vellora-cli COMMAND")));
        for (const char *command : {"lab R G B", "rgb L a b", "deltae", "score", "table FILE",
                                    "match --table", "sample IMAGE"})
            QVERIFY2(run.outText().contains(QLatin1String(command)), command);
        QVERIFY(run.err.isEmpty());
    }
}

void TestCli::versionPrintsNameAndVersion()
{
    const Run run = cli({"--version"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), QStringLiteral("vellora-cli 1.0.0\n"));
    QVERIFY(run.err.isEmpty());
}

void TestCli::usageErrors_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("message");

    QTest::newRow("no command") << QStringList{} << "no command given (try --help)";
    QTest::newRow("unknown command")
        << QStringList{"frobnicate"} << "unknown command \"frobnicate\" (try --help)";
    QTest::newRow("lab with two numbers")
        << QStringList{"lab", "1", "2"}
        << "lab needs 3 numbers, or - to read them from standard input (got 2 arguments)";
    QTest::newRow("lab with four numbers")
        << QStringList{"lab", "1", "2", "3", "4"}
        << "lab needs 3 numbers, or - to read them from standard input (got 4 arguments)";
    QTest::newRow("rgb without numbers")
        << QStringList{"rgb"}
        << "rgb needs 3 numbers, or - to read them from standard input (got 0 arguments)";
    QTest::newRow("deltae with five numbers")
        << QStringList{"deltae", "1", "2", "3", "4", "5"}
        << "deltae needs 6 numbers, or - to read them from standard input (got 5 arguments)";
    QTest::newRow("score with two numbers")
        << QStringList{"score", "1", "2"}
        << "score needs 1 numbers, or - to read them from standard input (got 2 arguments)";
    QTest::newRow("unknown option")
        << QStringList{"lab", "1", "2", "3", "--fast"} << "unknown option --fast";
    QTest::newRow("flag with a value")
        << QStringList{"deltae", "1", "2", "3", "4", "5", "6", "--double=yes"}
        << "option --double takes no value";
    QTest::newRow("unknown units")
        << QStringList{"score", "1", "--units", "furlongs"}
        << "option --units must be one of percent|deltae, not \"furlongs\"";
    QTest::newRow("units without value")
        << QStringList{"score", "1", "--units"} << "option --units needs a value";
    QTest::newRow("table without file")
        << QStringList{"table"} << "table needs one FILE (got 0 arguments)";
    QTest::newRow("table with two files")
        << QStringList{"table", "a", "b"} << "table needs one FILE (got 2 arguments)";
    QTest::newRow("match without table")
        << QStringList{"match", "--rgb", "1,2,3"} << "match needs --table FILE";
    QTest::newRow("match without colour")
        << QStringList{"match", "--table", "x"} << "match needs --rgb R,G,B or --hex RRGGBB";
    QTest::newRow("match with both colours")
        << QStringList{"match", "--table", "x", "--rgb", "1,2,3", "--hex", "010203"}
        << "options --rgb and --hex cannot be used together";
    QTest::newRow("match with unknown format")
        << QStringList{"match", "--table", "x", "--rgb", "1,2,3", "--format", "xml"}
        << "option --format must be one of tsv|json, not \"xml\"";
    QTest::newRow("match with extra argument")
        << QStringList{"match", "extra", "--table", "x", "--rgb", "1,2,3"}
        << "match takes no arguments besides its options, got \"extra\"";
    QTest::newRow("match option twice")
        << QStringList{"match", "--table", "x", "--table", "y", "--rgb", "1,2,3"}
        << "option --table given more than once";
    QTest::newRow("sample without pick")
        << QStringList{"sample", "a.png"} << "sample needs --point X,Y or --band X0,Y0,X1,Y1";
    QTest::newRow("sample without image")
        << QStringList{"sample", "--point", "1,1"} << "sample needs one IMAGE (got 0 arguments)";
    QTest::newRow("sample point and band")
        << QStringList{"sample", "a.png", "--point", "1,1", "--band", "0,0,2,2"}
        << "options --point and --band cannot be used together";
    QTest::newRow("sample band with size")
        << QStringList{"sample", "a.png", "--band", "0,0,2,2", "--size", "3"}
        << "options --band and --size cannot be used together";
    QTest::newRow("sample size 4")
        << QStringList{"sample", "a.png", "--point", "1,1", "--size", "4"}
        << "option --size must be one of 1|3|5|7|9, not \"4\"";
    QTest::newRow("sample unknown average")
        << QStringList{"sample", "a.png", "--point", "1,1", "--average", "median"}
        << "option --average must be one of rgb|lab, not \"median\"";
    QTest::newRow("sample count without table")
        << QStringList{"sample", "a.png", "--point", "1,1", "--count", "3"}
        << "option --count needs --table";
}

// Runs the row's arguments, which must be refused before anything is printed.
void TestCli::verifyRefusedArguments(int exitCode)
{
    QFETCH(QStringList, args);
    QFETCH(QString, message);
    const Run run = cli(args);
    verifyError(run, exitCode, message);
    QVERIFY(run.out.isEmpty());
}

void TestCli::usageErrors()
{
    verifyRefusedArguments(1);
}

void TestCli::malformedNumbers_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("message");

    QTest::newRow("word") << QStringList{"lab", "0.5", "abc", "0.5"} << "\"abc\" is not a number";
    QTest::newRow("decimal comma")
        << QStringList{"lab", "0,5", "0.5", "0.5"} << "\"0,5\" is not a number";
    QTest::newRow("nan") << QStringList{"lab", "nan", "0.5", "0.5"}
                         << "\"nan\" is not a finite number";
    QTest::newRow("inf") << QStringList{"rgb", "50", "inf", "0"}
                         << "\"inf\" is not a finite number";
    QTest::newRow("minus inf") << QStringList{"rgb", "50", "0", "-inf"}
                               << "\"-inf\" is not a finite number";
    QTest::newRow("overflow") << QStringList{"score", "1e999"}
                              << "\"1e999\" is not a finite number";
    QTest::newRow("empty word") << QStringList{"deltae", "1", "2", "3", "4", "5", ""}
                                << "\"\" is not a number";
    QTest::newRow("score nan") << QStringList{"score", "NaN"} << "\"NaN\" is not a finite number";
    QTest::newRow("byte above 255")
        << QStringList{"match", "--table", "x", "--rgb", "256,0,0"}
        << "--rgb R,G,B needs 3 whole numbers from 0 to 255 separated by "
           "commas, not \"256,0,0\"";
    QTest::newRow("negative byte")
        << QStringList{"match", "--table", "x", "--rgb", "-1,0,0"}
        << "--rgb R,G,B needs 3 whole numbers from 0 to 255 separated by "
           "commas, not \"-1,0,0\"";
    QTest::newRow("two bytes") << QStringList{"match", "--table", "x", "--rgb", "1,2"}
                               << "--rgb R,G,B needs 3 whole numbers from 0 to 255 separated by "
                                  "commas, not \"1,2\"";
    QTest::newRow("fractional byte") << QStringList{"match", "--table", "x", "--rgb", "1.5,2,3"}
                                     << "--rgb R,G,B needs 3 whole numbers from 0 to 255 separated "
                                        "by commas, not \"1.5,2,3\"";
    QTest::newRow("bad hex") << QStringList{"match", "--table", "x", "--hex", "12345g"}
                             << "--hex needs six hexadecimal digits RRGGBB, not \"12345g\"";
    QTest::newRow("short hex") << QStringList{"match", "--table", "x", "--hex", "fff"}
                               << "--hex needs six hexadecimal digits RRGGBB, not \"fff\"";
    QTest::newRow("negative count")
        << QStringList{"match", "--table", "x", "--rgb", "1,2,3", "--count", "-1"}
        << "--count must be a whole number from 0 to 1000000, not \"-1\"";
    QTest::newRow("word as count")
        << QStringList{"match", "--table", "x", "--rgb", "1,2,3", "--count", "many"}
        << "--count must be a whole number from 0 to 1000000, not \"many\"";
    QTest::newRow("point with one number")
        << QStringList{"sample", "a.png", "--point", "5"}
        << "--point X,Y needs 2 whole numbers from -1000000000 to "
           "1000000000 separated by commas, not \"5\"";
    QTest::newRow("band with words")
        << QStringList{"sample", "a.png", "--band", "a,b,c,d"}
        << "--band X0,Y0,X1,Y1 needs 4 whole numbers from -1000000000 to 1000000000 separated by "
           "commas, not \"a,b,c,d\"";
    QTest::newRow("huge point")
        << QStringList{"sample", "a.png", "--point", "1,99999999999"}
        << "--point X,Y needs 2 whole numbers from -1000000000 to 1000000000 "
           "separated by commas, not \"1,99999999999\"";
    QTest::newRow("long word is shortened")
        << QStringList{"lab", QString(100, QLatin1Char('x')), "1", "1"}
        << "\"" + QString(40, QLatin1Char('x')) + "...\" is not a number";
}

void TestCli::malformedNumbers()
{
    verifyRefusedArguments(2);
}

void TestCli::outputThatCannotBeWrittenIsReported()
{
    if (!QFileInfo::exists(QStringLiteral("/dev/full")))
        QSKIP("This system has no /dev/full to stand for a full disk");
    const Run run = CliRunner::runToFile({"lab", "1", "1", "1"}, QStringLiteral("/dev/full"));
    verifyError(run, 2, QStringLiteral("cannot write to standard output"));
}

// ---------------------------------------------------------------- conversions

void TestCli::labMatchesEngine_data()
{
    QTest::addColumn<double>("r");
    QTest::addColumn<double>("g");
    QTest::addColumn<double>("b");
    QTest::newRow("mid grey") << 0.5 << 0.5 << 0.5;
    QTest::newRow("orange") << 1.0 << 0.5 << 0.0;
    QTest::newRow("linear branch") << 0.04045 << 0.01 << 0.0;
    QTest::newRow("byte fractions") << 12 / 255.0 << 200 / 255.0 << 99 / 255.0;
    QTest::newRow("out of range kept") << 1.2 << -0.1 << 0.5;
}

void TestCli::labMatchesEngine()
{
    QFETCH(double, r);
    QFETCH(double, g);
    QFETCH(double, b);
    const Run run = cli({"lab", QString::number(r, 'g', 17), QString::number(g, 'g', 17),
                         QString::number(b, 'g', 17)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), labLine(r, g, b) + "\n");
    QVERIFY(run.err.isEmpty());
}

void TestCli::labOfWhiteAndBlackReferenceValues()
{
    const Run white = cli({"lab", "1", "1", "1"});
    QCOMPARE(white.exitCode, 0);
    const QStringList lab = white.outText().trimmed().split(' ');
    QCOMPARE(lab.size(), 3);
    QCOMPARE(lab.at(0), QStringLiteral("100.0000000000"));
    QVERIFY(std::fabs(lab.at(1).toDouble()) < 0.01);
    QVERIFY(std::fabs(lab.at(2).toDouble()) < 0.02);
    QCOMPARE(cli({"lab", "0", "0", "0"}).outText(),
             QStringLiteral("0.0000000000 0.0000000000 0.0000000000\n"));
}

void TestCli::rgbMatchesEngine_data()
{
    QTest::addColumn<double>("L");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::newRow("grey") << 53.39 << 0.0 << 0.0;
    QTest::newRow("red") << 53.24 << 80.09 << 67.2;
    QTest::newRow("clamped above") << 100.0 << 100.0 << 100.0;
    QTest::newRow("clamped below") << 10.0 << -100.0 << 50.0;
    QTest::newRow("negative lightness") << -5.0 << 0.0 << 0.0;
}

void TestCli::rgbMatchesEngine()
{
    QFETCH(double, L);
    QFETCH(double, a);
    QFETCH(double, b);
    const Run run = cli({"rgb", QString::number(L, 'g', 17), QString::number(a, 'g', 17),
                         QString::number(b, 'g', 17)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), rgbLine(L, a, b) + "\n");
}

void TestCli::rgbOfLabZeroIsGreyNotBlack()
{
    QCOMPARE(cli({"rgb", "0", "0", "0"}).outText(), QStringLiteral("0.1415 0.1415 0.1415\n"));
}

void TestCli::deltaeSinglePrecision_data()
{
    QTest::addColumn<QVector<double>>("v");
    QTest::newRow("identical") << QVector<double>{50, 10, -10, 50, 10, -10};
    QTest::newRow("greys") << QVector<double>{40, 0, 0, 60, 0, 0};
    QTest::newRow("blues") << QVector<double>{50, 2.6772, -79.7751, 50, 0, -82.7485};
    QTest::newRow("hue across red") << QVector<double>{50, 20, -3, 50, 20, 3};
    QTest::newRow("far apart") << QVector<double>{90, -60, 80, 10, 70, -90};
}

void TestCli::deltaeSinglePrecision()
{
    QFETCH(QVector<double>, v);
    QStringList args{"deltae"};
    for (double x : v)
        args << QString::number(x, 'g', 17);
    const float expected =
        deltaE2000(float(v[0]), float(v[1]), float(v[2]), float(v[3]), float(v[4]), float(v[5]));
    const Run run = cli(args);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), QString::number(double(expected), 'f', 6) + "\n");
}

void TestCli::deltaeDoublePrecision_data()
{
    deltaeSinglePrecision_data();
}

void TestCli::deltaeDoublePrecision()
{
    QFETCH(QVector<double>, v);
    QStringList args{"deltae"};
    for (double x : v)
        args << QString::number(x, 'g', 17);
    args << "--double";
    const Run run = cli(args);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(),
             QString::number(deltaE2000(v[0], v[1], v[2], v[3], v[4], v[5]), 'f', 6) + "\n");
}

void TestCli::deltaeReferencePairBothPrecisions()
{
    // The first pair of the published CIEDE2000 test data: 2.0425.
    const QStringList pair{"deltae", "50", "2.6772", "-79.7751", "50", "0", "-82.7485"};
    const double single = cli(pair).outText().toDouble();
    const double twice = cli(pair + QStringList{"--double"}).outText().toDouble();
    QVERIFY(std::fabs(single - 2.0425) < 0.0001);
    QVERIFY(std::fabs(twice - 2.0425) < 0.0001);
    QVERIFY(single != twice); // float and double really differ in the sixth decimal
}

void TestCli::score_data()
{
    QTest::addColumn<QString>("deltaE");
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("asPercent");
    QTest::addColumn<QString>("reference");

    QTest::newRow("zero, default units")
        << "0" << QString() << true << "Visually identical\n100% match";
    QTest::newRow("zero in delta e") << "0"
                                     << "deltae" << false << "Visually identical\nΔE:0.0";
    QTest::newRow("0.99 percent") << "0.99"
                                  << "percent" << true << "Visually identical\n99% match";
    QTest::newRow("1.0 percent") << "1.0"
                                 << "percent" << true << "Visually similar\n99% match";
    QTest::newRow("9.99 delta e") << "9.99"
                                  << "deltae" << false << "Noticably different\nΔE:10.0";
    QTest::newRow("10 percent") << "10"
                                << "percent" << true << "Significantly Different\n67% match";
    QTest::newRow("150 delta e") << "150"
                                 << "deltae" << false << "Significantly Different\nΔE:100.0";
    QTest::newRow("150 percent") << "150"
                                 << "percent" << true << "Significantly Different\n0% match";
    QTest::newRow("minus one delta e") << "-1"
                                       << "deltae" << false << "Visually identical\nΔE:0.0";
}

void TestCli::score()
{
    QFETCH(QString, deltaE);
    QFETCH(QString, units);
    QFETCH(bool, asPercent);
    QFETCH(QString, reference);
    QStringList args{"score", deltaE};
    if (!units.isEmpty())
        args << "--units" << units;
    const Run run = cli(args);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), matchText(deltaE.toFloat(), asPercent) + "\n");
    QCOMPARE(run.outText(), reference + "\n");
}

void TestCli::scoreInDeltaEUnitsWritesUtf8Delta()
{
    const Run run = cli({"score", "2.5", "--units", "deltae"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QByteArray("Noticably different\n\xce\x94"
                                 "E:2.5\n"));
    // The same bytes whatever the locale's character set.
    QProcessEnvironment posix = CliRunner::defaultEnvironment();
    posix.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    QCOMPARE(CliRunner::run({"score", "2.5", "--units", "deltae"}, {}, posix).out, run.out);
}

void TestCli::negativeNumbersAreArgumentsNotOptions()
{
    const Run run = cli({"lab", "-0.5", "-.25", "-1e-3"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), labLine(-0.5, -0.25, -0.001) + "\n");
    const Run afterDashes = cli({"rgb", "--", "50", "-20", "-30"});
    QCOMPARE(afterDashes.exitCode, 0);
    QCOMPARE(afterDashes.outText(), rgbLine(50, -20, -30) + "\n");
}

// ---------------------------------------------------------------- batch mode

void TestCli::batchGivesOneResultPerLine_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("lab") << "lab" << QByteArray("1 1 1\n0.5 0.25 0.125\n0 0 0\n")
                         << QStringList{labLine(1, 1, 1), labLine(0.5, 0.25, 0.125),
                                        labLine(0, 0, 0)};
    QTest::newRow("lab without final line feed")
        << "lab" << QByteArray("0.1 0.2 0.3\n0.4 0.5 0.6")
        << QStringList{labLine(0.1, 0.2, 0.3), labLine(0.4, 0.5, 0.6)};
    QTest::newRow("rgb") << "rgb" << QByteArray("0 0 0\n53.24 80.09 67.2\n")
                         << QStringList{rgbLine(0, 0, 0), rgbLine(53.24, 80.09, 67.2)};
    const float d1 = deltaE2000(50.f, 2.6772f, -79.7751f, 50.f, 0.f, -82.7485f);
    const float d2 = deltaE2000(40.f, 0.f, 0.f, 60.f, 0.f, 0.f);
    QTest::newRow("deltae") << "deltae"
                            << QByteArray("50 2.6772 -79.7751 50 0 -82.7485\n40 0 0 60 0 0\n")
                            << QStringList{QString::number(double(d1), 'f', 6),
                                           QString::number(double(d2), 'f', 6)};
    QTest::newRow("score") << "score" << QByteArray("0\n150\n")
                           << QStringList{"Visually identical", "100% match",
                                          "Significantly Different", "0% match"};
}

void TestCli::batchGivesOneResultPerLine()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, input);
    QFETCH(QStringList, expected);
    const Run run = cli({command, "-"}, input);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), expected);
    QVERIFY(run.err.isEmpty());
}

void TestCli::batchStopsAtBadLineAndNamesIt_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("goodLines");
    QTest::addColumn<QString>("message");

    QTest::newRow("word on line 3") << "lab" << QByteArray("1 1 1\n0 0 0\n0.1 x 0.2\n0.5 0.5 0.5\n")
                                    << 2 << "line 3: \"x\" is not a number";
    QTest::newRow("too few numbers")
        << "lab" << QByteArray("1 1 1\n1 1\n") << 1 << "line 2: expected 3 numbers, found 2 words";
    QTest::newRow("too many numbers")
        << "rgb" << QByteArray("1 2 3 4\n") << 0 << "line 1: expected 3 numbers, found 4 words";
    QTest::newRow("blank line") << "lab" << QByteArray("1 1 1\n\n1 1 1\n") << 1
                                << "line 2: expected 3 numbers, found 0 words";
    QTest::newRow("nan") << "deltae" << QByteArray("1 2 3 4 5 6\n1 2 3 4 5 nan\n") << 1
                         << "line 2: \"nan\" is not a finite number";
    QTest::newRow("decimal comma")
        << "score" << QByteArray("1.5\n2,5\n") << 1 << "line 2: \"2,5\" is not a number";
    QTest::newRow("comma separated")
        << "lab" << QByteArray("1,1,1\n") << 0 << "line 1: expected 3 numbers, found 1 words";
}

void TestCli::batchStopsAtBadLineAndNamesIt()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, input);
    QFETCH(int, goodLines);
    QFETCH(QString, message);
    const Run run = cli({command, "-"}, input);
    verifyError(run, 2, message);
    // The lines before the bad one have been answered (score: two lines each).
    const int perLine = command == QLatin1String("score") ? 2 : 1;
    QCOMPARE(run.out.count('\n'), goodLines * perLine);
}

void TestCli::batchAcceptsCrLfTabsAndExtraSpaces()
{
    const Run run = cli({"lab", "-"}, "0.1\t0.2   0.3\r\n  0.4 0.5 0.6  \r\n");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), (QStringList{labLine(0.1, 0.2, 0.3), labLine(0.4, 0.5, 0.6)}));
}

void TestCli::batchEmptyInputPrintsNothing()
{
    const Run run = cli({"lab", "-"}, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.isEmpty());
    QVERIFY(run.err.isEmpty());
}

void TestCli::batchTenMegabyteLineIsRefusedWithoutCrash()
{
    QByteArray input = "1 1 1\n";
    input += QByteArray(10 * 1024 * 1024, '7');
    input += " 1 1\n";
    const Run run = cli({"lab", "-"}, input);
    verifyError(run, 2, QStringLiteral("line 2: longer than 1048576 bytes"));
    QCOMPARE(run.outLines(), QStringList{labLine(1, 1, 1)});
}

void TestCli::batchBinaryInputIsRefusedWithoutCrash()
{
    QByteArray input;
    for (int i = 0; i < 4096; ++i)
        input += char((i * 37 + 11) % 256);
    input.replace('\n', '\0');
    input.prepend("1 1 1\n");
    const Run run = cli({"lab", "-"}, input);
    verifyErrorContains(run, 2, QStringLiteral("line 2: "));
    QCOMPARE(run.outLines(), QStringList{labLine(1, 1, 1)});
}

// ---------------------------------------------------------------- locale

void TestCli::outputIgnoresCommaLocale_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QByteArray>("input");

    for (const QString &variable : {QStringLiteral("LC_ALL"), QStringLiteral("LC_NUMERIC")}) {
        const QByteArray v = variable.toLatin1();
        QTest::addRow("%s lab", v.constData())
            << variable << QStringList{"lab", "0.5", "0.25", "0.125"} << QByteArray();
        QTest::addRow("%s lab batch", v.constData())
            << variable << QStringList{"lab", "-"} << QByteArray("0.5 0.25 0.125\n0.9 0.1 0.3\n");
        QTest::addRow("%s rgb", v.constData())
            << variable << QStringList{"rgb", "53.5", "-12.25", "30.5"} << QByteArray();
        QTest::addRow("%s deltae", v.constData())
            << variable << QStringList{"deltae", "50", "2.6772", "-79.7751", "50", "0", "-82.7485"}
            << QByteArray();
        QTest::addRow("%s score percent", v.constData())
            << variable << QStringList{"score", "2.5"} << QByteArray();
        QTest::addRow("%s score delta e", v.constData())
            << variable << QStringList{"score", "5.75", "--units", "deltae"} << QByteArray();
    }
}

void TestCli::outputIgnoresCommaLocale()
{
    QFETCH(QString, variable);
    QFETCH(QStringList, args);
    QFETCH(QByteArray, input);
    QVERIFY2(m_commaLocaleActive, kNoCommaLocale);
    const Run inC = cli(args, input);
    const Run inGerman = CliRunner::run(args, input, commaLocaleEnvironment(variable));
    QCOMPARE(inC.exitCode, 0);
    QCOMPARE(inGerman.exitCode, 0);
    QCOMPARE(inGerman.out, inC.out);
    QVERIFY(!inGerman.out.contains(','));
}

void TestCli::decimalCommaIsRefusedEvenInCommaLocale()
{
    QVERIFY2(m_commaLocaleActive, kNoCommaLocale);
    const Run run = CliRunner::run({"score", "2,5"}, {}, commaLocaleEnvironment("LC_ALL"));
    verifyError(run, 2, QStringLiteral("\"2,5\" is not a number"));
}

// ---------------------------------------------------------------- table

void TestCli::tablePrintsWhatSaveWrites()
{
    const QString file = writeTable(
        "mixed.clrtable",
        "# first comment\n0.123456, 0.5, 0.5, Grey # mid grey\n# second comment\n"
        "0.5,0.5,0.5,Dark   slate  grey\r\n1.2, -0.1, 0.5, Odd\n0.1, 0.2, 0.3, Red, warm\n");
    CColourTable table;
    QCOMPARE(int(table.load(file).status), int(CColourTable::Loaded));
    const Run run = cli({"table", file});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, table.serialise());
    QCOMPARE(run.outText(), QStringLiteral("# first comment\n# second comment\n"
                                           "0.1235, 0.5000, 0.5000, Grey\n"
                                           "0.5000, 0.5000, 0.5000, Dark slate grey\n"
                                           "1.2000, -0.1000, 0.5000, Odd\n"
                                           "0.1000, 0.2000, 0.3000, Red; warm\n"));
}

void TestCli::tableWithOnlyCommentsPrintsComments()
{
    const QString file = writeTable("comments.clrtable", "# one\n\n  # two\n");
    const Run run = cli({"table", file});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outText(), QStringLiteral("# one\n# two\n"));
}

void TestCli::emptyTableFilePrintsNothing()
{
    const QString file = writeTable("empty.clrtable", QByteArray());
    const Run run = cli({"table", file});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.isEmpty());
    QVERIFY(run.err.isEmpty());
}

void TestCli::tableThatCannotBeOpenedGivesApplicationText()
{
    const QString missing = path("missing.clrtable");
    verifyError(cli({"table", missing}), 2,
                "Error while attempting to open colour table file: " + missing);
}

void TestCli::folderAsTableCannotBeOpened()
{
    verifyError(cli({"table", m_dir.path()}), 2,
                "Error while attempting to open colour table file: " + m_dir.path());
}

void TestCli::tableWithBadLineGivesLineNumber()
{
    const QString file = writeTable(
        "Broken.clrtable", "# a\n0.1, 0.1, 0.1, A\n\n0.2,0.2,0.2,B\n# c\n\n0.5, abc, 0.5, X\n");
    const Run run = cli({"table", file});
    verifyError(run, 2, QStringLiteral("Unable to load colour table: Broken: Error in line 7"));
    QVERIFY(run.out.isEmpty()); // nothing of the table is printed
}

void TestCli::binaryFileAsTableIsRefused()
{
    QByteArray bytes;
    for (int i = 0; i < 65536; ++i)
        bytes += char((i * 7919 + 13) % 256);
    const QString file = writeTable("binary.clrtable", bytes);
    CColourTable table;
    const CColourTable::LoadResult expected = table.load(file);
    QCOMPARE(int(expected.status), int(CColourTable::BadLine));
    verifyError(cli({"table", file}), 2,
                QStringLiteral("Unable to load colour table: binary: Error in line %1")
                    .arg(expected.lineNumber));
}

// ---------------------------------------------------------------- match

void TestCli::matchTsvRowRule_data()
{
    QTest::addColumn<int>("near");
    QTest::addColumn<int>("far");
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("rows");

    QTest::newRow("default four of far colours") << 0 << 8 << QString() << 4;
    QTest::newRow("close ones beyond count are added") << 3 << 5 << "2" << 3;
    QTest::newRow("forty close ones stop at 32") << 40 << 2 << "4" << 32;
    QTest::newRow("count above 32 is honoured") << 40 << 2 << "36" << 36;
    QTest::newRow("short table shows all") << 1 << 2 << "8" << 3;
    QTest::newRow("count zero shows only close ones") << 2 << 3 << "0" << 2;
}

void TestCli::matchTsvRowRule()
{
    QFETCH(int, near);
    QFETCH(int, far);
    QFETCH(QString, count);
    QFETCH(int, rows);
    const QString file = writeTable("greys.clrtable", greysTable(near, far));
    QStringList args{"match", "--table", file, "--rgb", "128,128,128"};
    if (!count.isEmpty())
        args << "--count" << count;
    const Run run = cli(args);
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), rows + 1);
    QCOMPARE(lines, expectedTsv(file, {128 / 255.0, 128 / 255.0, 128 / 255.0},
                                count.isEmpty() ? 4 : count.toInt()));
    for (int i = 1; i < lines.size(); ++i) {
        const double deltaE = lines.at(i).split('\t').at(3).toDouble();
        const int asked = count.isEmpty() ? 4 : count.toInt();
        QVERIFY2(i <= asked || deltaE < 2.5, qPrintable(lines.at(i)));
    }
}

void TestCli::matchTsvColumns()
{
    const QString file =
        writeTable("few.clrtable", "1, 0, 0, Red\n0.9, 0.1, 0.1, Brick, dark\n0, 0, 1, Blue\n");
    const Run run = cli({"match", "--table", file, "--rgb", "250,5,5"});
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.first(), QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict"));
    const QStringList first = lines.at(1).split('\t');
    QCOMPARE(first.size(), 6);
    QCOMPARE(first.at(0), QStringLiteral("1"));
    QCOMPARE(first.at(1), QStringLiteral("Red"));
    QCOMPARE(first.at(2), QStringLiteral("#ff0000"));
    QVERIFY(QRegularExpression("^\\d+\\.\\d{4}$").match(first.at(3)).hasMatch());
    QVERIFY(QRegularExpression("^\\d+\\.\\d{4}$").match(first.at(4)).hasMatch());
    QCOMPARE(first.at(5), verdictShortText(verdict(first.at(3).toFloat())));
    QCOMPARE(lines.at(2).split('\t').at(1), QStringLiteral("Brick, dark"));
    QCOMPARE(lines.at(3).split('\t').at(5), QStringLiteral("Significantly Different"));
}

void TestCli::matchJsonHasSameRows()
{
    const QString file = writeTable("json.clrtable", greysTable(6, 6));
    const QStringList base{"match", "--table", file, "--hex", "#808080", "--count", "3"};
    const Run tsv = cli(base);
    const Run json = cli(base + QStringList{"--format", "json"});
    QCOMPARE(json.exitCode, 0);
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json.out, &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QVERIFY(doc.isArray());
    const QJsonArray rows = doc.array();
    const QStringList lines = tsv.outLines().mid(1);
    QCOMPARE(rows.size(), lines.size());
    QCOMPARE(rows.size(), 6);
    for (int i = 0; i < rows.size(); ++i) {
        const QJsonObject row = rows.at(i).toObject();
        const QStringList cells = lines.at(i).split('\t');
        QCOMPARE(row.keys().size(), 6);
        QCOMPARE(row.value("rank").toInt(), cells.at(0).toInt());
        QCOMPARE(row.value("name").toString(), cells.at(1));
        QCOMPARE(row.value("hex").toString(), cells.at(2));
        QCOMPARE(row.value("deltaE").toDouble(), cells.at(3).toDouble());
        QCOMPARE(row.value("percent").toDouble(), cells.at(4).toDouble());
        QCOMPARE(row.value("verdict").toString(), cells.at(5));
    }
}

void TestCli::matchHexEqualsRgb()
{
    const QString file = writeTable("hex.clrtable", greysTable(3, 8));
    const Run rgb = cli({"match", "--table", file, "--rgb", "18,52,86"});
    const Run hex = cli({"match", "--table", file, "--hex", "123456"});
    const Run hash = cli({"match", "--table", file, "--hex=#123456"});
    QCOMPARE(rgb.exitCode, 0);
    QCOMPARE(hex.out, rgb.out);
    QCOMPARE(hash.out, rgb.out);
    QCOMPARE(rgb.outLines(), expectedTsv(file, {18 / 255.0, 52 / 255.0, 86 / 255.0}, 4));
}

void TestCli::matchEmptyTableGivesApplicationText()
{
    const QString file = writeTable("my.blue.clrtable", "# nothing here\n");
    verifyError(
        cli({"match", "--table", file, "--rgb", "1,2,3"}), 2,
        QStringLiteral("The my Colour Match Library is empty, so a match cannot be attempted."));
}

void TestCli::matchBadTableGivesApplicationText()
{
    const QString file = writeTable("Bad.clrtable", "0.1, 0.2\n");
    verifyError(cli({"match", "--table", file, "--rgb", "1,2,3"}), 2,
                QStringLiteral("Unable to load colour table: Bad: Error in line 1"));
    verifyError(cli({"match", "--table", path("none.clrtable"), "--rgb", "1,2,3"}), 2,
                "Error while attempting to open colour table file: " + path("none.clrtable"));
}

// ---------------------------------------------------------------- sample

void TestCli::sampleOnePixelReadsPixelUnderPoint()
{
    const QImage image = ImageWriter::gradient(30, 20);
    const QString file = writeImage("gradient.png", image);
    const Run run = cli({"sample", file, "--point", "7,11"});
    QCOMPARE(run.exitCode, 0);
    const QRgb p = image.pixel(7, 11);
    const RgbColour pixel{qRed(p) / 255.0, qGreen(p) / 255.0, qBlue(p) / 255.0};
    QCOMPARE(run.outText(), sampleLine(pixel) + "\n");
    QCOMPARE(cli({"sample", file, "--point", "7,11", "--size", "1"}).out, run.out);
}

void TestCli::sampleNineByNineAtCornerReadsFiveByFiveBlock()
{
    const QImage image = ImageWriter::gradient(30, 20);
    const QString file = writeImage("corner.png", image);
    const Run run = cli({"sample", file, "--point", "0,0", "--size", "9"});
    QCOMPARE(run.exitCode, 0);
    const RgbColour expected = averageColours(PixelList::read(image, QRect(0, 0, 5, 5)), true);
    QCOMPARE(run.outText(), sampleLine(expected) + "\n");
    const RgbColour wrong = averageColours(PixelList::read(image, QRect(0, 0, 9, 9)), true);
    QVERIFY(sampleLine(wrong) != sampleLine(expected));
}

void TestCli::sampleNineByNineAtBottomRightReadsLastBlock()
{
    const QImage image = ImageWriter::gradient(30, 20);
    const QString file = writeImage("bottomright.png", image);
    const Run run = cli({"sample", file, "--point", "29,19", "--size", "9", "--average", "lab"});
    QCOMPARE(run.exitCode, 0);
    const RgbColour expected =
        averageColours(PixelList::read(image, QRect(QPoint(25, 15), QPoint(29, 19))), false);
    QCOMPARE(run.outText(), sampleLine(expected) + "\n");
}

void TestCli::sampleBandStopsOnePixelShort()
{
    const QImage image = ImageWriter::gradient(10, 10);
    const QString file = writeImage("band.png", image);
    const RgbColour expected = averageColours(PixelList::read(image, QRect(0, 0, 9, 9)), true);
    for (const QString &band :
         {QStringLiteral("0,0,9,9"), QStringLiteral("9,9,0,0"), QStringLiteral("-4,-4,50,50")}) {
        const Run run = cli({"sample", file, "--band", band});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.outText(), sampleLine(expected) + "\n");
    }
    const RgbColour whole = averageColours(PixelList::read(image, image.rect()), true);
    QVERIFY(sampleLine(whole) != sampleLine(expected)); // the last row and column are left out
}

void TestCli::sampleEmptyBandExitsThree_data()
{
    QTest::addColumn<QString>("band");
    QTest::newRow("last column only") << "9,0,9,5";
    QTest::newRow("last row only") << "0,9,5,9";
    QTest::newRow("beyond the image") << "20,20,30,30";
    QTest::newRow("left of the image") << "-30,0,-10,5";
}

void TestCli::sampleEmptyBandExitsThree()
{
    QFETCH(QString, band);
    const QString file = writeImage("empty-band.png", ImageWriter::gradient(10, 10));
    const Run run = cli({"sample", file, "--band", band});
    verifyError(run, 3, QStringLiteral("the selection holds no pixels of the 10 x 10 image"));
    QVERIFY(run.out.isEmpty());
}

void TestCli::samplePointBeyondImageExitsThree()
{
    const QString file = writeImage("beyond.png", ImageWriter::gradient(10, 10));
    verifyError(cli({"sample", file, "--point", "10,3"}), 3,
                QStringLiteral("the selection holds no pixels of the 10 x 10 image"));
    verifyError(cli({"sample", file, "--point", "-5,-5", "--size", "9"}), 3,
                QStringLiteral("the selection holds no pixels of the 10 x 10 image"));
    QCOMPARE(cli({"sample", file, "--point", "-4,-4", "--size", "9"}).exitCode, 0);
}

void TestCli::sampleLabAverageIsColourOfMeanLab()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    const QString file = writeImage("blackwhite.png", image);
    // A band never reads the last row, so a one-row image is picked by click.
    const QStringList pick{"sample", file, "--point", "0,0", "--size", "3"};
    const Run rgb = cli(pick);
    QCOMPARE(rgb.exitCode, 0);
    QVERIFY(rgb.outText().startsWith(QLatin1String("0.707107 0.707107 0.707107 #b4b4b4")));
    const Run lab = cli(pick + QStringList{"--average", "lab"});
    const LabColour black = rgbToLab(0, 0, 0);
    const LabColour white = rgbToLab(1, 1, 1);
    QCOMPARE(lab.outText(), sampleLine(labToRgb((black.L + white.L) / 2, (black.a + white.a) / 2,
                                                (black.b + white.b) / 2))
                                + "\n");
}

// A band of noise large enough to be split over two threads, every row a
// row of unrepeated colours for the vector path: the same line as the
// colour of the mean L*a*b* of its pixels, each converted exactly.
void TestCli::sampleLabBandOverNoiseIsColourOfMeanLab()
{
    QImage image(1031, 521, QImage::Format_RGB32);
    QRandomGenerator rng(17);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = 0xff000000u | rng.bounded(0x1000000u);
    }
    const QString file = writeImage("noise.png", image);
    const Run run = cli({"sample", file, "--band", "0,0,1031,521", "--average", "lab"});
    QCOMPARE(run.exitCode, 0);
    // (A band leaves the picture's last row and column out.)
    const QVector<RgbColour> pixels = PixelList::read(image, QRect(0, 0, 1030, 520));
    QCOMPARE(run.outText(), sampleLine(averageColours(pixels, false)) + "\n");
    QVERIFY(sampleLine(averageColours(pixels, false)) != sampleLine(averageColours(pixels, true)));
}

void TestCli::sampleIndexedGif()
{
    const QString file = path("stripes.gif");
    QVERIFY(ImageWriter::writeIndexedGif(file, 12, 6,
                                         {qRgb(255, 0, 0), qRgb(0, 128, 0), qRgb(10, 20, 250)}));
    const QImage read(file);
    QCOMPARE(read.size(), QSize(12, 6)); // Qt's GIF reader hands the palette colours over as RGB
    QCOMPARE(read.pixel(0, 0), qRgb(255, 0, 0));
    for (const QString &average : {QStringLiteral("rgb"), QStringLiteral("lab")}) {
        const Run run = cli({"sample", file, "--band", "0,0,12,6", "--average", average});
        QCOMPARE(run.exitCode, 0);
        const RgbColour expected = averageColours(PixelList::read(read, QRect(0, 0, 11, 5)),
                                                  average == QLatin1String("rgb"));
        QCOMPARE(run.outText(), sampleLine(expected) + "\n");
    }
    QCOMPARE(cli({"sample", file, "--point", "11,0"}).outText(),
             sampleLine({10 / 255.0, 20 / 255.0, 250 / 255.0}) + "\n");
}

void TestCli::samplePngWithAlphaIgnoresAlpha()
{
    const QString file = path("alpha.png");
    QVERIFY(ImageWriter::writeAlphaPng(file, 10, 4, QColor(200, 100, 50)));
    const QImage read(file);
    QVERIFY(read.hasAlphaChannel());
    // Opaque half: the colour itself.
    QCOMPARE(cli({"sample", file, "--point", "7,1", "--size", "3"}).outText(),
             sampleLine({200 / 255.0, 100 / 255.0, 50 / 255.0}) + "\n");
    // Across both halves: the stored colours, whatever their alpha.
    const RgbColour expected = averageColours(PixelList::read(read, QRect(0, 0, 9, 3)), true);
    QCOMPARE(cli({"sample", file, "--band", "0,0,10,4"}).outText(), sampleLine(expected) + "\n");
}

void TestCli::sampleTiffAndJpegAreRead()
{
    const QString tiff = path("flat.tiff");
    QVERIFY(ImageWriter::writeTiff(tiff, 8, 8, QColor(30, 60, 90)));
    QCOMPARE(cli({"sample", tiff, "--point", "3,3", "--size", "5"}).outText(),
             sampleLine({30 / 255.0, 60 / 255.0, 90 / 255.0}) + "\n");
    const QString jpeg = path("flat.jpg");
    QVERIFY(ImageWriter::writeJpeg(jpeg, 16, 16, QColor(30, 60, 90)));
    const QImage read(jpeg);
    const RgbColour expected = averageColours(PixelList::read(read, QRect(6, 6, 5, 5)), true);
    QCOMPARE(cli({"sample", jpeg, "--point", "8,8", "--size", "5"}).outText(),
             sampleLine(expected) + "\n");
}

void TestCli::sampleWithTableAppendsMatchRows()
{
    QImage image(6, 6, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    const QString file = writeImage("grey.png", image);
    const QString table = writeTable("sample-greys.clrtable", greysTable(5, 5));
    const Run run =
        cli({"sample", file, "--point", "2,2", "--size", "3", "--table", table, "--count", "2"});
    QCOMPARE(run.exitCode, 0);
    const RgbColour grey{128 / 255.0, 128 / 255.0, 128 / 255.0};
    QCOMPARE(run.outLines(), QStringList{sampleLine(grey)} + expectedTsv(table, grey, 2));
    QCOMPARE(run.outLines().size(), 1 + 1 + 5); // header and the five close greys
    const Run defaultCount = cli({"sample", file, "--point", "2,2", "--table", table});
    QCOMPARE(defaultCount.outLines().mid(1), expectedTsv(table, grey, 4));
}

void TestCli::sampleWithEmptyTablePrintsNothing()
{
    const QString file = writeImage("for-empty.png", ImageWriter::gradient(6, 6));
    const QString table = writeTable("Nothing.clrtable", "# no colours\n");
    const Run run = cli({"sample", file, "--point", "2,2", "--table", table});
    verifyError(run, 2, "The Nothing Colour Match Library is empty, so a match cannot be attempted.");
    QVERIFY(run.out.isEmpty());
}

void TestCli::sampleUnreadableImages_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");

    QByteArray png;
    {
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        ImageWriter::gradient(200, 200).save(&buffer, "PNG");
    }
    QTest::newRow("truncated png") << "truncated.png" << png.left(png.size() / 2) << QString();
    QTest::newRow("png header only") << "header.png" << png.left(40) << QString();
    QTest::newRow("empty file") << "empty.png" << QByteArray() << QString();
    QTest::newRow("text file") << "text.png" << QByteArray("not an image at all\n") << QString();
    QTest::newRow("missing file") << "missing.png" << QByteArray() << "File not found";
}

void TestCli::sampleUnreadableImages()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString file = path(name);
    if (reason.isEmpty())
        QVERIFY(FixtureFile::write(file, content));
    const Run run = cli({"sample", file, "--point", "1,1"});
    verifyErrorContains(run, 2, "cannot read image " + file + ": " + reason);
    QVERIFY(run.out.isEmpty());
}

void TestCli::sampleDecompressionBombIsRefusedBeforeDecoding()
{
    const QString file = path("bomb.png");
    QVERIFY(FixtureFile::write(file, ImageWriter::pngClaimingSize(100000, 100000)));
    const Run run = cli({"sample", file, "--point", "1,1"});
    verifyError(run, 2,
                "cannot read image " + file
                    + ": a picture of 100000 x 100000 pixels would take more than 2 GiB");
    QVERIFY(run.out.isEmpty());
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
