#include "palette/csspalette.h"

#include <QtTest>

class TestCssPalette : public QObject
{
    Q_OBJECT

private:
    static CPalette readOk(const QByteArray &sheet);

private slots:
    void colourForms_data();
    void colourForms();
    void customPropertiesAreNamedWithoutDashes();
    void otherDeclarationsAreNamedBySelectorAndProperty();
    void secondColourInOneValueIsNumbered();
    void selectorsCommentsStringsAndUrlsHoldNoColours();
    void transparencyIsDroppedAndReported();
    void malformedColour_data();
    void malformedColour();
    void unclosedCommentNamesItsLine();
    void fileThatIsNotAStyleSheetIsNamedSo_data();
    void fileThatIsNotAStyleSheetIsNamedSo();
    void sheetWithoutColoursIsAnEmptyPalette();
    void writtenFileIsRootRuleOfCustomProperties();
    void safeNames_data();
    void safeNames();
    void duplicateSafeNamesAreNumbered();
    void roundTripKeepsSafeNamesAndColours();
};

CPalette TestCssPalette::readOk(const QByteArray &sheet)
{
    const CPaletteReadResult r = CCssPalette::read(sheet);
    if (!r.isOk())
        qWarning() << r.message(QStringLiteral("sheet"));
    return r.palette();
}

void TestCssPalette::colourForms_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("hex");
    QTest::newRow("#rgb") << QByteArray("#1ef") << "#11eeff";
    QTest::newRow("#rrggbb") << QByteArray("#1E90FF") << "#1e90ff";
    QTest::newRow("rgb with commas") << QByteArray("rgb(30, 144, 255)") << "#1e90ff";
    QTest::newRow("rgb with blanks") << QByteArray("rgb(30 144 255)") << "#1e90ff";
    QTest::newRow("rgb percentages") << QByteArray("rgb(100%, 50%, 0%)") << "#ff8000";
    QTest::newRow("RGB upper case") << QByteArray("RGB(0,0,255)") << "#0000ff";
    QTest::newRow("rgba") << QByteArray("rgba(255, 0, 0, 0.5)") << "#ff0000";
    QTest::newRow("decimal channels") << QByteArray("rgb(127.5, 0, 0)") << "#800000";
    QTest::newRow("inside a longer value") << QByteArray("1px solid #000") << "#000000";
}

void TestCssPalette::colourForms()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, hex);
    const CPalette p = readOk(":root { --c: " + value + "; }");
    QCOMPARE(p.colours.size(), 1);
    QCOMPARE(CPalette::hex(p.colours.at(0).rgb), hex);
}

void TestCssPalette::customPropertiesAreNamedWithoutDashes()
{
    const CPalette p = readOk(":root {\n  --brand-blue: #1e90ff;\n  --brand-red:#f00\n}\n");
    QCOMPARE(p.colours.size(), 2);
    QCOMPARE(p.colours.at(0).name, QStringLiteral("brand-blue"));
    QCOMPARE(p.colours.at(0).rgb.red, 30 / 255.0);
    QCOMPARE(p.colours.at(1).name, QStringLiteral("brand-red"));
}

void TestCssPalette::otherDeclarationsAreNamedBySelectorAndProperty()
{
    const CPalette p = readOk("body { color: #333; }\na:hover,\n  .button { background-color: #fff }");
    QCOMPARE(p.colours.size(), 2);
    QCOMPARE(p.colours.at(0).name, QStringLiteral("body color"));
    QCOMPARE(p.colours.at(1).name, QStringLiteral("a:hover, .button background-color"));
}

void TestCssPalette::secondColourInOneValueIsNumbered()
{
    const CPalette p = readOk(".g { background: linear-gradient(#000, rgb(255,255,255)); }");
    QCOMPARE(p.colours.size(), 2);
    QCOMPARE(p.colours.at(0).name, QStringLiteral(".g background"));
    QCOMPARE(p.colours.at(1).name, QStringLiteral(".g background 2"));
    QCOMPARE(CPalette::hex(p.colours.at(1).rgb), QStringLiteral("#ffffff"));
}

void TestCssPalette::selectorsCommentsStringsAndUrlsHoldNoColours()
{
    const CPalette p = readOk("#main > p.x { /* color: #zz; */ content: \"#bad; rgb(1)\";\n"
                              "  fill: url(#gradient); }\n@media (max-width: 600px) {\n"
                              "  #side { color: #123456; } }\n");
    QCOMPARE(p.colours.size(), 1);
    QCOMPARE(p.colours.at(0).name, QStringLiteral("#side color"));
    QCOMPARE(CPalette::hex(p.colours.at(0).rgb), QStringLiteral("#123456"));
}

void TestCssPalette::transparencyIsDroppedAndReported()
{
    const CPaletteReadResult r = CCssPalette::read(":root { --glass: #11223380; --fog: rgba(1,2,3,50%); }");
    QVERIFY(r.isOk());
    QCOMPARE(CPalette::hex(r.palette().colours.at(0).rgb), QStringLiteral("#112233"));
    QCOMPARE(CPalette::hex(r.palette().colours.at(1).rgb), QStringLiteral("#010203"));
    QCOMPARE(r.palette().notes.size(), 2);
    QCOMPARE(r.palette().notes.at(0), QStringLiteral("\"glass\": its transparency is not kept."));
}

void TestCssPalette::malformedColour_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<int>("line");
    const QByteArray head = "/* brand */\n:root {\n  --ok: #fff;\n";
    QTest::newRow("five hex digits") << head + "  --bad: #12345;\n}" << 4;
    QTest::newRow("not hex digits") << head + "  --bad: #ggg;\n}" << 4;
    QTest::newRow("channel above 255") << head + "  --bad: rgb(256, 0, 0);\n}" << 4;
    QTest::newRow("two channels") << head + "  --bad: rgb(1, 2);\n}" << 4;
    QTest::newRow("comma decimals") << head + "  --bad: rgb(0,5 0 0);\n}" << 4;
    QTest::newRow("letters") << head + "  --bad: rgb(a, b, c);\n}" << 4;
    QTest::newRow("unclosed function") << head + "  --bad: rgb(1, 2, 3;\n}" << 4;
    QTest::newRow("value on the next line") << head + "  --bad:\n\n   #1;\n}" << 6;
}

void TestCssPalette::malformedColour()
{
    QFETCH(QByteArray, sheet);
    QFETCH(int, line);
    const CPaletteReadResult r = CCssPalette::read(sheet);
    QCOMPARE(r.status(), CPaletteReadResult::BadPart);
    QCOMPARE(r.kind(), QStringLiteral("line"));
    QCOMPARE(r.position(), line);
    QVERIFY(r.palette().colours.isEmpty());
}

void TestCssPalette::unclosedCommentNamesItsLine()
{
    const CPaletteReadResult r = CCssPalette::read("a { color: #fff; }\n\n/* never closed\n");
    QCOMPARE(r.status(), CPaletteReadResult::BadPart);
    QCOMPARE(r.position(), 3);
    QCOMPARE(r.reason(), QStringLiteral("a comment is never closed."));
}

void TestCssPalette::fileThatIsNotAStyleSheetIsNamedSo_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0", 10);
    QTest::newRow("prose") << QByteArray("Just some words without any rule\n");
}

void TestCssPalette::fileThatIsNotAStyleSheetIsNamedSo()
{
    QFETCH(QByteArray, file);
    const CPaletteReadResult r = CCssPalette::read(file);
    QCOMPARE(r.status(), CPaletteReadResult::NotThisFormat);
    QVERIFY(r.message(QStringLiteral("x.css")).startsWith(QStringLiteral("The file:\nx.css\nis not a style sheet:\n")));
}

void TestCssPalette::sheetWithoutColoursIsAnEmptyPalette()
{
    const CPaletteReadResult r = CCssPalette::read("p { margin: 0; }\n");
    QVERIFY(r.isOk());
    QVERIFY(r.palette().colours.isEmpty());
}

void TestCssPalette::writtenFileIsRootRuleOfCustomProperties()
{
    CPalette p;
    p.name = QStringLiteral("Brand */ colours");
    p.colours = {{QStringLiteral("Dodger Blue"), {30 / 255.0, 144 / 255.0, 1.0}},
                 {QStringLiteral("3 Greys"), {0.5, 0.5, 0.5}}};
    QCOMPARE(CCssPalette::write(p), QByteArray("/* Brand * / colours */\n:root {\n"
                                               "  --dodger-blue: #1e90ff;\n"
                                               "  --colour-3-greys: #808080;\n}\n"));
}

void TestCssPalette::safeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("safe");
    QTest::newRow("blanks") << "Dark  slate grey" << "dark-slate-grey";
    QTest::newRow("punctuation") << "Red; warm (2)" << "red-warm-2";
    QTest::newRow("leading digit") << "50% grey" << "colour-50-grey";
    QTest::newRow("empty") << "" << "colour";
    QTest::newRow("only symbols") << "***" << "colour";
    QTest::newRow("accents") << "Caf\u00e9 cr\u00e8me" << "caf-cr-me";
    QTest::newRow("underscore and dash kept") << "a_b-c" << "a_b-c";
}

void TestCssPalette::safeNames()
{
    QFETCH(QString, name);
    QFETCH(QString, safe);
    QSet<QString> used;
    QCOMPARE(CCssPalette::safeName(name, &used), safe);
}

void TestCssPalette::duplicateSafeNamesAreNumbered()
{
    QSet<QString> used;
    QCOMPARE(CCssPalette::safeName(QStringLiteral("Red"), &used), QStringLiteral("red"));
    QCOMPARE(CCssPalette::safeName(QStringLiteral("red"), &used), QStringLiteral("red-2"));
    QCOMPARE(CCssPalette::safeName(QStringLiteral("RED!"), &used), QStringLiteral("red-3"));
}

void TestCssPalette::roundTripKeepsSafeNamesAndColours()
{
    CPalette p;
    for (int i = 0; i < 256; i += 15)
        p.colours.append({QStringLiteral("tone-%1").arg(i), {i / 255.0, 1 - i / 255.0, 0.2}});
    const CPaletteReadResult r = CCssPalette::read(CCssPalette::write(p));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), p.colours.size());
    for (int i = 0; i < p.colours.size(); ++i) {
        QCOMPARE(r.palette().colours.at(i).name, p.colours.at(i).name);
        QCOMPARE(r.palette().colours.at(i).rgb.red, p.colours.at(i).rgb.red);
        QCOMPARE(r.palette().colours.at(i).rgb.green, p.colours.at(i).rgb.green);
        QCOMPARE(CPalette::hex(r.palette().colours.at(i).rgb), CPalette::hex(p.colours.at(i).rgb));
    }
}

QTEST_GUILESS_MAIN(TestCssPalette)
#include "tst_csspalette.moc"
