#include "clirunner.h"

#include "support/fixturefile.h"
#include "support/imagewriter.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

using Run = CliRunner::Result;

// vellora-cli contrast and simulate, run as a separate process.
class TestCliContrast : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    static Run cli(const QStringList &arguments, const QByteArray &input = QByteArray())
    {
        return CliRunner::run(arguments, input);
    }
    static void verifyFailure(const Run &run, int exitCode, const QString &part);

private slots:
    void helpListsContrastAndSimulate();
    void pairPrintsRatioVerdictsAndLc_data();
    void pairPrintsRatioVerdictsAndLc();
    void threeColourFormatsGiveTheSameRow();
    void jsonHasOneObject();
    void badPairs_data();
    void badPairs();
    void batchKeepsInputOrderAndSkipsCommentsAndBlanks();
    void batchBadLineIsNamedAfterTheGoodOnes_data();
    void batchBadLineIsNamedAfterTheGoodOnes();
    void batchJsonGivesOneObjectPerLine();
    void gridOfAPalette();
    void gridAsJson();
    void gridOfAnEmptyFileIsRefused();
    void gridOfAnUnknownSuffixIsAUsageError();
    void simulateWritesPng();
    void simulateRefusesExistingOutputWithoutForce();
    void simulateUsageErrors_data();
    void simulateUsageErrors();
    void simulateUnreadablePictureWritesNothing();
};

void TestCliContrast::verifyFailure(const Run &run, int exitCode, const QString &part)
{
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.errText().startsWith(QStringLiteral("vellora-cli: ")), qPrintable(run.errText()));
    QVERIFY2(run.errText().contains(part), qPrintable(run.errText()));
}

void TestCliContrast::helpListsContrastAndSimulate()
{
    const Run run = cli({"--help"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.outText().contains("contrast FG BG"));
    QVERIFY(run.outText().contains("contrast --grid TABLE"));
    QVERIFY(run.outText().contains("simulate IN OUT --cvd TYPE"));
}

void TestCliContrast::pairPrintsRatioVerdictsAndLc_data()
{
    QTest::addColumn<QString>("foreground");
    QTest::addColumn<QString>("background");
    QTest::addColumn<QString>("row");
    // Ratios: WCAG 2.2 (21:1, 1:1), #777777 4.48:1 and #767676 4.54:1 as
    // WebAIM quotes them (shown truncated); Lc of #888888 on white 63.06 in
    // APCA's own test values.
    QTest::newRow("black on white")
        << "#000000" << "#ffffff" << "#000000\t#ffffff\t21.00\tpass\tpass\tpass\tpass\tpass\t106.0";
    QTest::newRow("white on white")
        << "ffffff" << "ffffff" << "#ffffff\t#ffffff\t1.00\tfail\tfail\tfail\tfail\tfail\t0.0";
    QTest::newRow("#777777 fails AA for normal text")
        << "777777" << "ffffff" << "#777777\t#ffffff\t4.47\tfail\tpass\tfail\tfail\tpass\t71.1";
    QTest::newRow("#767676 passes AA for normal text")
        << "767676" << "ffffff" << "#767676\t#ffffff\t4.54\tpass\tpass\tfail\tpass\tpass\t71.6";
    QTest::newRow("#888888 text on white")
        << "888888" << "ffffff" << "#888888\t#ffffff\t3.54\tfail\tpass\tfail\tfail\tpass\t63.1";
    QTest::newRow("white text on #888888 is negative")
        << "ffffff" << "888888" << "#ffffff\t#888888\t3.54\tfail\tpass\tfail\tfail\tpass\t-68.5";
}

void TestCliContrast::pairPrintsRatioVerdictsAndLc()
{
    QFETCH(QString, foreground);
    QFETCH(QString, background);
    QFETCH(QString, row);
    const Run run = cli({"contrast", foreground, background});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errText(), QString());
    QCOMPARE(run.outLines(),
             (QStringList{"foreground\tbackground\tratio\taa_normal\taa_large\taaa_normal\t"
                          "aaa_large\tnon_text\tlc",
                          row}));
}

void TestCliContrast::threeColourFormatsGiveTheSameRow()
{
    const Run hash = cli({"contrast", "#336699", "#ffcc00"});
    const Run bare = cli({"contrast", "336699", "FFCC00"});
    const Run bytes = cli({"contrast", "51,102,153", "255, 204, 0"});
    QCOMPARE(hash.exitCode, 0);
    QCOMPARE(bare.out, hash.out);
    QCOMPARE(bytes.out, hash.out);
}

void TestCliContrast::jsonHasOneObject()
{
    const Run run = cli({"contrast", "777777", "ffffff", "--format", "json"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines().size(), 1);
    const QJsonObject object = QJsonDocument::fromJson(run.out).object();
    QCOMPARE(object.value("foreground").toString(), QStringLiteral("#777777"));
    QCOMPARE(object.value("ratio").toDouble(), 4.47);
    QCOMPARE(object.value("aa_normal").toBool(), false);
    QCOMPARE(object.value("aa_large").toBool(), true);
    QCOMPARE(object.value("non_text").toBool(), true);
    QCOMPARE(object.value("lc").toDouble(), 71.1);
    QCOMPARE(object.value("apca_level").toInt(), 60);
}

void TestCliContrast::badPairs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QTest::newRow("one colour") << QStringList{"contrast", "000000"} << 1
                                << "contrast needs FG and BG";
    QTest::newRow("three colours") << QStringList{"contrast", "000000", "ffffff", "777777"} << 1
                                   << "got 3 arguments";
    QTest::newRow("short hex") << QStringList{"contrast", "#000", "ffffff"} << 2
                               << "\"#000\" is not a colour";
    QTest::newRow("byte over 255") << QStringList{"contrast", "000000", "256,0,0"} << 2
                                   << "\"256,0,0\" is not a colour";
    QTest::newRow("unknown format") << QStringList{"contrast", "000000", "ffffff", "--format", "xml"}
                                    << 1 << "--format must be one of tsv|json";
    QTest::newRow("grid with colours") << QStringList{"contrast", "000000", "--grid", "a.gpl"} << 1
                                       << "takes no colours";
}

void TestCliContrast::badPairs()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    const Run run = cli(arguments);
    verifyFailure(run, exitCode, message);
    QVERIFY(run.out.isEmpty());
}

void TestCliContrast::batchKeepsInputOrderAndSkipsCommentsAndBlanks()
{
    const QByteArray input = "# text and background\n"
                             "#000000 #ffffff\n"
                             "\n"
                             "777777 ffffff   # a comment after the pair\n"
                             "10, 20, 30\t255,255,255\n"
                             "  #767676\t#ffffff  \r\n";
    const Run run = cli({"contrast", "-"}, input);
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.at(0).startsWith("line\tforeground\tbackground\tratio"));
    QVERIFY(lines.at(1).startsWith("2\t#000000\t#ffffff\t21.00\t"));
    QVERIFY(lines.at(2).startsWith("4\t#777777\t#ffffff\t4.47\tfail\t"));
    QVERIFY(lines.at(3).startsWith("5\t#0a141e\t#ffffff\t"));
    QVERIFY(lines.at(4).startsWith("6\t#767676\t#ffffff\t4.54\tpass\t"));
}

void TestCliContrast::batchBadLineIsNamedAfterTheGoodOnes_data()
{
    QTest::addColumn<QByteArray>("badLine");
    QTest::addColumn<QString>("message");
    QTest::newRow("one colour") << QByteArray("#000000") << "line 3: expected two colours, found 1";
    QTest::newRow("three colours") << QByteArray("000000 ffffff 777777")
                                   << "line 3: expected two colours, found 3";
    QTest::newRow("not a colour") << QByteArray("000000 white")
                                  << "line 3: \"white\" is not a colour";
    // Found by fuzzing: blanks between two tabs are no colour of their own.
    QTest::newRow("blank between tabs") << QByteArray("000000\t \t777777\tffffff")
                                        << "line 3: expected two colours, found 3";
}

void TestCliContrast::batchBadLineIsNamedAfterTheGoodOnes()
{
    QFETCH(QByteArray, badLine);
    QFETCH(QString, message);
    const QByteArray input = "000000 ffffff\n777777 ffffff\n" + badLine + "\n767676 ffffff\n";
    const Run run = cli({"contrast", "-"}, input);
    verifyFailure(run, 2, message);
    const QStringList lines = run.outLines();
    // The header and both good lines are out; nothing after the bad line.
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(1).startsWith("1\t"));
    QVERIFY(lines.at(2).startsWith("2\t"));
}

void TestCliContrast::batchJsonGivesOneObjectPerLine()
{
    const Run run = cli({"contrast", "-", "--format", "json"}, "000000 ffffff\n\nffffff 888888\n");
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), 2);
    const QJsonObject first = QJsonDocument::fromJson(lines.at(0).toUtf8()).object();
    const QJsonObject second = QJsonDocument::fromJson(lines.at(1).toUtf8()).object();
    QCOMPARE(first.value("line").toInt(), 1);
    QCOMPARE(first.value("ratio").toDouble(), 21.0);
    QCOMPARE(second.value("line").toInt(), 3);
    QCOMPARE(second.value("lc").toDouble(), -68.5);
}

void TestCliContrast::gridOfAPalette()
{
    const QString path = m_dir.filePath("grid.gpl");
    QVERIFY(FixtureFile::write(path, "GIMP Palette\nName: Grid\n#\n0 0 0 Black\n"
                                     "255 255 255 White\n119 119 119 Grey\n"));
    const Run run = cli({"contrast", "--grid", path});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines(), (QStringList{"colour\tname\t#000000\t#ffffff\t#777777",
                                          "#000000\tBlack\t1.00\t21.00\t4.68",
                                          "#ffffff\tWhite\t21.00\t1.00\t4.47",
                                          "#777777\tGrey\t4.68\t4.47\t1.00"}));
}

void TestCliContrast::gridAsJson()
{
    const QString path = m_dir.filePath("grid.css");
    QVERIFY(FixtureFile::write(path, ":root {\n  --ink: #000000;\n  --paper: #ffffff;\n}\n"));
    const Run run = cli({"contrast", "--grid", path, "--format", "json"});
    QCOMPARE(run.exitCode, 0);
    const QJsonObject object = QJsonDocument::fromJson(run.out).object();
    QCOMPARE(object.value("colours").toArray().size(), 2);
    QCOMPARE(object.value("ratios").toArray().at(0).toArray().at(1).toDouble(), 21.0);
    QCOMPARE(object.value("ratios").toArray().at(1).toArray().at(1).toDouble(), 1.0);
}

void TestCliContrast::gridOfAnEmptyFileIsRefused()
{
    const QString path = m_dir.filePath("empty.gpl");
    QVERIFY(FixtureFile::write(path, "GIMP Palette\nName: Empty\n#\n"));
    verifyFailure(cli({"contrast", "--grid", path}), 2, "holds no colours");
}

void TestCliContrast::gridOfAnUnknownSuffixIsAUsageError()
{
    verifyFailure(cli({"contrast", "--grid", m_dir.filePath("colours.xyz")}), 1,
                  "cannot tell the format");
}

void TestCliContrast::simulateWritesPng()
{
    const QString in = m_dir.filePath("in.png");
    const QString out = m_dir.filePath("out.png");
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(qRgb(255, 0, 0));
    image.setPixel(1, 0, qRgb(0, 255, 0));
    QVERIFY(ImageWriter::write(image, in));
    const Run run = cli({"simulate", in, out, "--cvd", "achromatopsia"});
    QCOMPARE(run.exitCode, 0);
    QImage written;
    QVERIFY(written.load(out, "png"));
    QCOMPARE(written.size(), image.size());
    // Linear luminance of red 0.2126 and green 0.7152, encoded: 127 and 220
    // (worked out in the core's test).
    QCOMPARE(QColor(written.pixel(0, 0)), QColor(127, 127, 127));
    QCOMPARE(QColor(written.pixel(1, 0)), QColor(220, 220, 220));
    // Protanomaly at 0.5: red becomes (180, 86, 0).
    const QString half = m_dir.filePath("half.png");
    QCOMPARE(cli({"simulate", in, half, "--cvd", "protanomaly", "--severity", "0.5"}).exitCode, 0);
    QVERIFY(written.load(half, "png"));
    QCOMPARE(QColor(written.pixel(0, 0)), QColor(180, 86, 0));
}

void TestCliContrast::simulateRefusesExistingOutputWithoutForce()
{
    const QString in = m_dir.filePath("keep-in.png");
    const QString out = m_dir.filePath("keep-out.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(8, 8), in));
    QVERIFY(FixtureFile::write(out, "not a picture"));
    verifyFailure(cli({"simulate", in, out, "--cvd", "tritanopia"}), 1, "already exists");
    QCOMPARE(FixtureFile::read(out), QByteArray("not a picture"));
    QCOMPARE(cli({"simulate", in, out, "--cvd", "tritanopia", "--force"}).exitCode, 0);
    QVERIFY(!QImage(out).isNull());
}

void TestCliContrast::simulateUsageErrors_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QTest::newRow("no --cvd") << QStringList{} << 1 << "needs --cvd";
    QTest::newRow("unknown type") << QStringList{"--cvd", "colourblind"} << 1
                                  << "--cvd must be one of normal|protanopia";
    QTest::newRow("severity of a dichromacy") << QStringList{"--cvd", "protanopia", "--severity", "0.5"}
                                              << 1 << "--severity belongs to";
    QTest::newRow("severity too small") << QStringList{"--cvd", "tritanomaly", "--severity", "0"}
                                        << 2 << "from 0.1 to 1.0";
    QTest::newRow("severity too large") << QStringList{"--cvd", "tritanomaly", "--severity", "1.5"}
                                        << 2 << "from 0.1 to 1.0";
    QTest::newRow("severity not a number")
        << QStringList{"--cvd", "tritanomaly", "--severity", "half"} << 2 << "is not a number";
}

void TestCliContrast::simulateUsageErrors()
{
    QFETCH(QStringList, options);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    const QString in = m_dir.filePath("usage-in.png");
    const QString out = m_dir.filePath("usage-out.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(4, 4), in));
    verifyFailure(cli(QStringList{"simulate", in, out} + options), exitCode, message);
    QVERIFY(!QFileInfo::exists(out));
}

void TestCliContrast::simulateUnreadablePictureWritesNothing()
{
    const QString in = m_dir.filePath("broken.png");
    const QString out = m_dir.filePath("broken-out.png");
    QVERIFY(FixtureFile::write(in, "not a picture at all"));
    verifyFailure(cli({"simulate", in, out, "--cvd", "deuteranopia"}), 2, "cannot read image");
    QVERIFY(!QFileInfo::exists(out));
}

QTEST_MAIN(TestCliContrast)
#include "tst_clicontrast.moc"
