#include "palette/colourcopytext.h"
#include "tables/libcolourtable.h"
#include "tables/readymadetables.h"

#include <QtTest>

#include <cmath>

// The free colour-name lists compiled into the program. The expected values
// below were read from the source packages themselves when the tables were
// generated (scripts/make-readymade-tables.sh):
//   X11:  /usr/share/X11/rgb.txt of x11-common 1:7.7+23
//   xkcd: XKCD_COLORS in matplotlib/_color_data.py of python3-matplotlib 3.6.3-1+b1
//   CNL:  dist/colornames.json of the npm package color-name-list 14.51.0
class TestReadyMadeTables : public QObject
{
    Q_OBJECT

private slots:
    void threeTablesInOrder();
    void entryCounts_data();
    void entryCounts();
    void knownNamesAndValues_data();
    void knownNamesAndValues();
    void x11SpacedAndUnspacedSpellingsAreOneEntry();
    void namesAreUniqueIgnoringCase_data();
    void namesAreUniqueIgnoringCase();
    void notesNameSourceLicenceAndSize_data();
    void notesNameSourceLicenceAndSize();
    void licenceTextsAreShipped_data();
    void licenceTextsAreShipped();
    void tablesSurviveASaveAndALoad_data();
    void tablesSurviveASaveAndALoad();
    void findIgnoresCaseAndBlanks();
    void loadLeavesNoResourcePath();

private:
    static void addTableRows();
    static const ReadyMadeTable &table(int index) { return CReadyMadeTables::all().at(index); }
};

void TestReadyMadeTables::addTableRows()
{
    QTest::addColumn<int>("index");
    QTest::newRow("X11") << 0;
    QTest::newRow("xkcd") << 1;
    QTest::newRow("Color Name List") << 2;
}

void TestReadyMadeTables::threeTablesInOrder()
{
    QCOMPARE(CReadyMadeTables::all().size(), 3);
    QCOMPARE(table(0).name, QStringLiteral("X11 Colours"));
    QCOMPARE(table(1).name, QStringLiteral("xkcd Colours"));
    QCOMPARE(table(2).name, QStringLiteral("Color Name List"));
}

void TestReadyMadeTables::entryCounts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    // rgb.txt has 753 lines of colours; 95 of them are the unspaced twin of
    // a spaced name, so 658 distinct names.
    QTest::newRow("X11") << 0 << 658;
    // len(XKCD_COLORS) before matplotlib prefixes "xkcd:".
    QTest::newRow("xkcd") << 1 << 949;
    // The entries of colornames.json.
    QTest::newRow("Color Name List") << 2 << 31918;
}

void TestReadyMadeTables::entryCounts()
{
    QFETCH(int, index);
    QFETCH(int, count);
    CLibColourTable loaded;
    QCOMPARE(CReadyMadeTables::load(table(index), loaded).status, int(CColourTable::Loaded));
    QCOMPARE(loaded.count(), count);
    QCOMPARE(CReadyMadeTables::entryCount(table(index)), count);
}

void TestReadyMadeTables::knownNamesAndValues_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("hex");
    // rgb.txt: "240 248 255  alice blue", "127 127 127  gray50",
    // "215 7 81  DebianRed", "255 239 219  AntiqueWhite1" (no spaced twin).
    QTest::newRow("alice blue") << 0 << "alice blue" << "#f0f8ff";
    QTest::newRow("gray50") << 0 << "gray50" << "#7f7f7f";
    QTest::newRow("DebianRed") << 0 << "DebianRed" << "#d70751";
    QTest::newRow("AntiqueWhite1") << 0 << "AntiqueWhite1" << "#ffefdb";
    // _color_data.py: 'cloudy blue': '#acc2d9', 'slime green': '#99cc04',
    // 'marigold': '#fcc006'.
    QTest::newRow("cloudy blue") << 1 << "cloudy blue" << "#acc2d9";
    QTest::newRow("slime green") << 1 << "slime green" << "#99cc04";
    QTest::newRow("marigold") << 1 << "marigold" << "#fcc006";
    // colornames.json: "100 Mph" #c93f38, "Zomp" #39a78e; names beyond
    // ASCII in plain letters: "5-Masted Preußen" #9bafad, "Agua Fría"
    // #9fc5cc, "Amélie’s Tutu" #fea7bd; "Rosé" #f7746b would read as
    // "Rose" #ff007f, so it keeps its accent as e'.
    QTest::newRow("100 Mph") << 2 << "100 Mph" << "#c93f38";
    QTest::newRow("Zomp") << 2 << "Zomp" << "#39a78e";
    QTest::newRow("sharp s") << 2 << "5-Masted Preussen" << "#9bafad";
    QTest::newRow("accent") << 2 << "Agua Fria" << "#9fc5cc";
    QTest::newRow("curly apostrophe") << 2 << "Amelie's Tutu" << "#fea7bd";
    QTest::newRow("Rose") << 2 << "Rose" << "#ff007f";
    QTest::newRow("Rose with accent") << 2 << "Rose'" << "#f7746b";
}

void TestReadyMadeTables::knownNamesAndValues()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(QString, hex);
    CLibColourTable loaded;
    CReadyMadeTables::load(table(index), loaded);
    int found = 0;
    for (const CColourTableEntry *entry : loaded.entries()) {
        if (entry->name != name)
            continue;
        ++found;
        QCOMPARE(CColourCopyText::hex({entry->red, entry->green, entry->blue}), hex);
        // Four decimals as the program writes b / 255: every channel
        // rounds back to its byte.
        const int red = QStringView(hex).mid(1, 2).toInt(nullptr, 16);
        QCOMPARE(int(std::lround(entry->red * 255)), red);
        QVERIFY(std::abs(entry->red - red / 255.0) <= 0.00005);
    }
    QCOMPARE(found, 1);
}

void TestReadyMadeTables::x11SpacedAndUnspacedSpellingsAreOneEntry()
{
    CLibColourTable loaded;
    CReadyMadeTables::load(table(0), loaded);
    QStringList names;
    for (const CColourTableEntry *entry : loaded.entries())
        names << entry->name;
    QVERIFY(names.contains(QStringLiteral("dark slate gray")));
    QVERIFY(!names.contains(QStringLiteral("DarkSlateGray")));
    QVERIFY(!names.contains(QStringLiteral("AliceBlue")));
    // The grey and gray spellings are different names and both stay.
    QVERIFY(names.contains(QStringLiteral("dark slate grey")));
    QSet<QString> keys;
    for (QString name : names)
        keys.insert(name.remove(QLatin1Char(' ')).toLower());
    QCOMPARE(keys.size(), names.size());
}

void TestReadyMadeTables::namesAreUniqueIgnoringCase_data()
{
    addTableRows();
}

void TestReadyMadeTables::namesAreUniqueIgnoringCase()
{
    QFETCH(int, index);
    CLibColourTable loaded;
    CReadyMadeTables::load(table(index), loaded);
    QSet<QString> names;
    for (const CColourTableEntry *entry : loaded.entries()) {
        QVERIFY2(!entry->name.isEmpty(), "an entry without a name");
        names.insert(entry->name.toLower());
    }
    QCOMPARE(names.size(), loaded.count());
}

void TestReadyMadeTables::notesNameSourceLicenceAndSize_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("X11") << 0
                         << QStringList{"#X11 colour names: 658 entries",
                                        "#Source: /usr/share/X11/rgb.txt (X.Org's rgb.txt) of the "
                                        "Debian package x11-common 1:7.7+23",
                                        "#Licence: MIT-style X.Org licence, text in "
                                        "licences/x11-common.copyright.txt"};
    QTest::newRow("xkcd") << 1
                          << QStringList{"#xkcd colour survey names: 949 entries",
                                         "#Licence: public domain (CC0 1.0), text in "
                                         "licences/xkcd.CC0-1.0.txt"};
    QTest::newRow("Color Name List")
        << 2
        << QStringList{"#Color Name List: 31918 entries",
                       "#Source: dist/colornames.json of the npm package "
                       "color-name-list@14.51.0, https://github.com/meodai/color-names",
                       "#Licence: MIT, Copyright (c) 2017 David Aerne, text in "
                       "licences/color-name-list.MIT.txt"};
}

void TestReadyMadeTables::notesNameSourceLicenceAndSize()
{
    QFETCH(int, index);
    QFETCH(QStringList, lines);
    CLibColourTable loaded;
    CReadyMadeTables::load(table(index), loaded);
    const QStringList note = loaded.header().split(QLatin1Char('\n'));
    for (const QString &line : lines)
        QVERIFY2(note.contains(line), qPrintable(line));
    QVERIFY(note.contains(QStringLiteral("#Generated by scripts/make-readymade-tables.sh")));
    QVERIFY(table(index).source.contains(index == 2 ? QStringLiteral("14.51.0")
                                                    : QStringLiteral("(Debian)")));
}

void TestReadyMadeTables::licenceTextsAreShipped_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("phrase");
    QTest::newRow("X11") << 0 << "Permission is hereby granted, free of charge";
    QTest::newRow("xkcd") << 1 << "https://creativecommons.org/publicdomain/zero/1.0/";
    QTest::newRow("Color Name List") << 2 << "Copyright (c) 2017 David Aerne";
}

void TestReadyMadeTables::licenceTextsAreShipped()
{
    QFETCH(int, index);
    QFETCH(QString, phrase);
    QVERIFY(CReadyMadeTables::licenceText(table(index)).contains(phrase));
}

// Library tables are read as Latin-1 and written as UTF-8: plain ASCII names
// are the only ones that read the same after any number of saves.
void TestReadyMadeTables::tablesSurviveASaveAndALoad_data()
{
    addTableRows();
}

void TestReadyMadeTables::tablesSurviveASaveAndALoad()
{
    QFETCH(int, index);
    const QByteArray shipped = CReadyMadeTables::content(table(index));
    QVERIFY(!shipped.isEmpty());
    for (const char c : shipped)
        QVERIFY2(uchar(c) < 0x80, "a byte beyond ASCII");
    CLibColourTable loaded;
    CReadyMadeTables::load(table(index), loaded);
    QCOMPARE(loaded.serialise(), shipped);
}

void TestReadyMadeTables::findIgnoresCaseAndBlanks()
{
    QCOMPARE(CReadyMadeTables::find(QStringLiteral("x11colours")), &table(0));
    QCOMPARE(CReadyMadeTables::find(QStringLiteral("XKCD Colours")), &table(1));
    QCOMPARE(CReadyMadeTables::find(QStringLiteral("color name list")), &table(2));
    QVERIFY(CReadyMadeTables::find(QStringLiteral("Pantone")) == nullptr);
    QVERIFY(CReadyMadeTables::find(QString()) == nullptr);
}

void TestReadyMadeTables::loadLeavesNoResourcePath()
{
    CLibColourTable loaded;
    CReadyMadeTables::load(table(1), loaded);
    QVERIFY(loaded.filePath().isEmpty());
}

QTEST_GUILESS_MAIN(TestReadyMadeTables)
#include "tst_readymadetables.moc"
