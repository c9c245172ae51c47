#include "palette/gplpalette.h"

#include <QtTest>

// GIMP palettes written here by hand, line by line, as the format is
// described: a "GIMP Palette" first line, Name and Columns headers,
// comments, and "R G B name" lines with whole numbers 0..255.
class TestGplPalette : public QObject
{
    Q_OBJECT

private slots:
    void readsHeaderCommentsAndNamesWithSpaces();
    void channelsBecomeFractionsOfTwoHundredFiftyFive();
    void crLfLinesAndByteOrderMarkAreAccepted();
    void colourWithoutNameHasEmptyName();
    void malformedLine_data();
    void malformedLine();
    void fileThatIsNotAGimpPaletteIsNamedSo_data();
    void fileThatIsNotAGimpPaletteIsNamedSo();
    void writtenFileHasHeaderAndAlignedChannels();
    void roundTripKeepsNamesAndColours();
    void outOfRangeFractionsAreClampedOnWriting();
    void lineBreaksInNamesAreWrittenAsBlanks();
};

void TestGplPalette::readsHeaderCommentsAndNamesWithSpaces()
{
    const QByteArray file = "GIMP Palette\n"
                            "Name: Summer sky\n"
                            "Columns: 4\n"
                            "# comment line\n"
                            "\n"
                            " 30 144 255\tDodger Blue\n"
                            "255   0   0 Deep  red   \n";
    const CPaletteReadResult r = CGplPalette::read(file);
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().name, QStringLiteral("Summer sky"));
    QCOMPARE(r.palette().colours.size(), 2);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Dodger Blue"));
    QCOMPARE(r.palette().colours.at(1).name, QStringLiteral("Deep  red"));
    QVERIFY(r.palette().notes.isEmpty());
}

void TestGplPalette::channelsBecomeFractionsOfTwoHundredFiftyFive()
{
    const CPaletteReadResult r = CGplPalette::read("GIMP Palette\n30 144 255 Blue\n");
    QVERIFY(r.isOk());
    const RgbColour c = r.palette().colours.at(0).rgb;
    QCOMPARE(c.red, 30 / 255.0);
    QCOMPARE(c.green, 144 / 255.0);
    QCOMPARE(c.blue, 1.0);
}

void TestGplPalette::crLfLinesAndByteOrderMarkAreAccepted()
{
    const CPaletteReadResult r =
        CGplPalette::read("\xEF\xBB\xBFGIMP Palette\r\nName: X\r\n0 0 0 Black\r\n");
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().name, QStringLiteral("X"));
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Black"));
}

void TestGplPalette::colourWithoutNameHasEmptyName()
{
    const CPaletteReadResult r = CGplPalette::read("GIMP Palette\n1 2 3\n");
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 1);
    QVERIFY(r.palette().colours.at(0).name.isEmpty());
}

void TestGplPalette::malformedLine_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("line");
    const QByteArray head = "GIMP Palette\nName: P\n# c\n\n0 0 0 Black\n";
    QTest::newRow("channel above 255") << head + "256 0 0 Too red\n" << 6;
    QTest::newRow("negative channel") << head + "0 -1 0 Minus\n" << 6;
    QTest::newRow("two channels") << head + "0 0\n" << 6;
    QTest::newRow("decimal channel") << head + "0.5 0 0 Half\n" << 6;
    QTest::newRow("comma decimal") << head + "0,5 0 0 Half\n" << 6;
    QTest::newRow("letters for a channel") << head + "0 zero 0 Z\n" << 6;
    QTest::newRow("unknown header") << head + "Colour: red\n" << 6;
    QTest::newRow("bad columns") << QByteArray("GIMP Palette\nColumns: many\n") << 2;
    QTest::newRow("bad line after good ones") << head + "1 1 1 a\n2 2 2 b\n3 3 x c\n" << 8;
}

void TestGplPalette::malformedLine()
{
    QFETCH(QByteArray, file);
    QFETCH(int, line);
    const CPaletteReadResult r = CGplPalette::read(file);
    QCOMPARE(r.status(), CPaletteReadResult::BadPart);
    QCOMPARE(r.position(), line);
    QCOMPARE(r.kind(), QStringLiteral("line"));
    // All or nothing: the good lines before are not kept.
    QVERIFY(r.palette().colours.isEmpty());
    QVERIFY(r.message(QStringLiteral("/p/x.gpl"))
                .startsWith(QStringLiteral("Error in line %1\nwhile processing:\n/p/x.gpl\n")
                                .arg(line)));
}

void TestGplPalette::fileThatIsNotAGimpPaletteIsNamedSo_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("colour table") << QByteArray("0.5, 0.5, 0.5, Grey\n");
    QTest::newRow("binary") << QByteArray("GIMP Palette\n\0\1\2", 16);
    QTest::newRow("header later") << QByteArray("\nGIMP Palette\n");
}

void TestGplPalette::fileThatIsNotAGimpPaletteIsNamedSo()
{
    QFETCH(QByteArray, file);
    const CPaletteReadResult r = CGplPalette::read(file);
    QCOMPARE(r.status(), CPaletteReadResult::NotThisFormat);
    QCOMPARE(r.message(QStringLiteral("/p/x.gpl")),
             QStringLiteral("The file:\n/p/x.gpl\nis not a GIMP palette:\n"
                            "its first line is not \"GIMP Palette\"."));
}

void TestGplPalette::writtenFileHasHeaderAndAlignedChannels()
{
    CPalette p;
    p.name = QStringLiteral("Mine");
    p.colours = {{QStringLiteral("Dodger Blue"), {30 / 255.0, 144 / 255.0, 1.0}},
                 {QStringLiteral("Black"), {0, 0, 0}}};
    QCOMPARE(CGplPalette::write(p), QByteArray("GIMP Palette\nName: Mine\nColumns: 0\n#\n"
                                               " 30 144 255\tDodger Blue\n"
                                               "  0   0   0\tBlack\n"));
}

void TestGplPalette::roundTripKeepsNamesAndColours()
{
    CPalette p;
    p.name = QStringLiteral("Trip");
    for (int i = 0; i < 256; i += 17) {
        p.colours.append({QStringLiteral("Colour %1 \u00e9").arg(i),
                          {i / 255.0, (255 - i) / 255.0, (i * 7 % 256) / 255.0}});
    }
    const CPaletteReadResult r = CGplPalette::read(CGplPalette::write(p));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().name, p.name);
    QCOMPARE(r.palette().colours.size(), p.colours.size());
    for (int i = 0; i < p.colours.size(); ++i) {
        QCOMPARE(r.palette().colours.at(i).name, p.colours.at(i).name);
        QCOMPARE(r.palette().colours.at(i).rgb.red, p.colours.at(i).rgb.red);
        QCOMPARE(r.palette().colours.at(i).rgb.green, p.colours.at(i).rgb.green);
        QCOMPARE(r.palette().colours.at(i).rgb.blue, p.colours.at(i).rgb.blue);
    }
}

void TestGplPalette::outOfRangeFractionsAreClampedOnWriting()
{
    CPalette p;
    p.colours = {{QStringLiteral("Odd"), {1.2, -0.1, 0.5}}};
    QVERIFY(CGplPalette::write(p).endsWith("255   0 128\tOdd\n"));
}

void TestGplPalette::lineBreaksInNamesAreWrittenAsBlanks()
{
    CPalette p;
    p.colours = {{QStringLiteral("Two\nlines"), {0, 0, 0}}};
    const CPaletteReadResult r = CGplPalette::read(CGplPalette::write(p));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 1);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Two lines"));
}

QTEST_GUILESS_MAIN(TestGplPalette)
#include "tst_gplpalette.moc"
