#include "tables/colournamesearch.h"
#include "tables/libcolourtable.h"
#include "tables/readymadetables.h"

#include <QtTest>

// Finding entries by a few letters of their names, as the "Find Colour"
// window and "vellora-cli find" do: case and accents do not matter.
class TestColourNameSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void finds_data();
    void finds();
    void blankTextFindsEveryEntry();
    void foldDropsAccentsAndCase();
    void followsANewTable();
    void searchesTheColorNameList();

private:
    static QStringList names(const CColourTable &table, const QVector<int> &hits);
    CLibColourTable m_table;
};

void TestColourNameSearch::initTestCase()
{
    // Names as a user's own table may hold them: read as Latin-1, so with
    // accents; in a fixed order to check that hits keep it.
    const QStringList names{QStringLiteral("Dark Slate Blue"), QStringLiteral("Café au Lait"),
                            QStringLiteral("Crème Brûlée"), QStringLiteral("cafe noir"),
                            QStringLiteral("Straße Grey"), QStringLiteral("Sky  Blue")};
    for (const QString &name : names)
        m_table.add(std::make_unique<CColourTableEntry>(name, 0.5, 0.5, 0.5));
}

QStringList TestColourNameSearch::names(const CColourTable &table, const QVector<int> &hits)
{
    QStringList out;
    for (const int index : hits)
        out << table.at(index)->name;
    return out;
}

void TestColourNameSearch::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("lower case finds capitals") << "blue" << QStringList{"Dark Slate Blue", "Sky  Blue"};
    QTest::newRow("capitals find lower case") << "CAFE" << QStringList{"Café au Lait", "cafe noir"};
    QTest::newRow("accent typed, none stored") << "café n" << QStringList{"cafe noir"};
    QTest::newRow("no accent typed, one stored") << "creme brulee" << QStringList{"Crème Brûlée"};
    QTest::newRow("sharp s as ss") << "STRASSE" << QStringList{"Straße Grey"};
    QTest::newRow("blanks collapse") << "sky   blue" << QStringList{"Sky  Blue"};
    QTest::newRow("surrounding blanks ignored") << "  slate " << QStringList{"Dark Slate Blue"};
    QTest::newRow("no hit") << "mauve" << QStringList{};
    QTest::newRow("longer than any name") << "dark slate blue and more" << QStringList{};
}

void TestColourNameSearch::finds()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    const CColourNameSearch search(m_table);
    QCOMPARE(names(m_table, search.find(text)), expected);
}

void TestColourNameSearch::blankTextFindsEveryEntry()
{
    const CColourNameSearch search(m_table);
    QCOMPARE(search.find(QString()), (QVector<int>{0, 1, 2, 3, 4, 5}));
    QCOMPARE(search.find(QStringLiteral("   ")).size(), 6);
}

void TestColourNameSearch::foldDropsAccentsAndCase()
{
    QCOMPARE(CColourNameSearch::fold(QStringLiteral("Crème  BRÛLÉE")), QStringLiteral("creme brulee"));
    QCOMPARE(CColourNameSearch::fold(QStringLiteral("Ångström\tX")), QStringLiteral("angstrom x"));
}

void TestColourNameSearch::followsANewTable()
{
    CColourNameSearch search(m_table);
    CLibColourTable other;
    other.add(std::make_unique<CColourTableEntry>(QStringLiteral("Mauve"), 0.8, 0.6, 0.8));
    search.setTable(other);
    QCOMPARE(search.count(), 1);
    QCOMPARE(search.find(QStringLiteral("mauve")), QVector<int>{0});
    QVERIFY(search.find(QStringLiteral("blue")).isEmpty());
}

// The largest ready-made table: 31,918 names. The counts were taken from
// colornames.json of color-name-list 14.51.0 (1750 names contain "blue" in
// any case; "5-Masted Preußen" is the one name with "preu").
void TestColourNameSearch::searchesTheColorNameList()
{
    CLibColourTable table;
    QCOMPARE(CReadyMadeTables::load(CReadyMadeTables::all().at(2), table).status,
             int(CColourTable::Loaded));
    const CColourNameSearch search(table);
    QCOMPARE(search.count(), 31918);
    QCOMPARE(search.find(QStringLiteral("BLUE")).size(), 1750);
    QCOMPARE(names(table, search.find(QStringLiteral("Preußen"))),
             QStringList{"5-Masted Preussen"});
    QCOMPARE(names(table, search.find(QStringLiteral("agua fría"))).first(),
             QStringLiteral("Agua Fria"));
    // Typed as the list spells it: accent and curly apostrophe.
    QCOMPARE(names(table, search.find(QStringLiteral("Amélie\u2019s"))),
             QStringList{"Amelie's Tutu"});
    QVERIFY(search.find(QStringLiteral("qqxqq")).isEmpty());
}

QTEST_GUILESS_MAIN(TestColourNameSearch)
#include "tst_colournamesearch.moc"
