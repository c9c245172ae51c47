#include "colour/wcagcontrast.h"
#include "palette/contrastgrid.h"

#include <QtTest>

class TestContrastGrid : public QObject
{
    Q_OBJECT

private slots:
    void ratiosAreThoseOfEachPair();
    void marks_data();
    void marks();
    void tsvWithAndWithoutMarks();
    void namesStayInTheirCell();
    void emptyGridHasOnlyItsHeader();
};

namespace {

PaletteColour grey(const QString &name, int level)
{
    return {name, {level / 255.0, level / 255.0, level / 255.0}};
}

} // namespace

void TestContrastGrid::ratiosAreThoseOfEachPair()
{
    const QVector<PaletteColour> colours{grey("Black", 0), grey("White", 255),
                                         {"Orange", {1.0, 0.5, 0.0}}};
    const ContrastGrid grid(colours);
    QCOMPARE(grid.size(), 3);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            QCOMPARE(grid.ratio(r, c), WcagContrast::ratio(colours[r].rgb, colours[c].rgb));
    }
    QCOMPARE(grid.ratio(0, 1), 21.0);
}

void TestContrastGrid::marks_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("mark");
    QTest::newRow("21") << 21.0 << "AAA";
    QTest::newRow("7") << 7.0 << "AAA";
    QTest::newRow("6.99") << 6.99 << "AA";
    QTest::newRow("4.5") << 4.5 << "AA";
    QTest::newRow("4.478 (#777777 on white)") << 4.478 << "large only";
    QTest::newRow("3") << 3.0 << "large only";
    QTest::newRow("2.999") << 2.999 << "fail";
}

void TestContrastGrid::marks()
{
    QFETCH(double, ratio);
    QFETCH(QString, mark);
    QCOMPARE(ContrastGrid::markText(ContrastGrid::mark(ratio)), mark);
}

void TestContrastGrid::tsvWithAndWithoutMarks()
{
    const ContrastGrid grid({grey("Black", 0), grey("Grey", 0x77), grey("White", 255)});
    QCOMPARE(grid.tsv(), QStringLiteral("colour\tname\t#000000\t#777777\t#ffffff\n"
                                        "#000000\tBlack\t1.00\t4.68\t21.00\n"
                                        "#777777\tGrey\t4.68\t1.00\t4.47\n"
                                        "#ffffff\tWhite\t21.00\t4.47\t1.00"));
    QVERIFY(grid.tsv(true).contains("#777777\tGrey\t4.68 AA\t1.00 fail\t4.47 large only\n"));
}

void TestContrastGrid::namesStayInTheirCell()
{
    const ContrastGrid grid({grey("Two\tparts\nand a line", 0)});
    QCOMPARE(grid.tsv().split('\n').at(1), QStringLiteral("#000000\tTwo parts and a line\t1.00"));
}

void TestContrastGrid::emptyGridHasOnlyItsHeader()
{
    QCOMPARE(ContrastGrid().tsv(), QStringLiteral("colour\tname"));
}

QTEST_APPLESS_MAIN(TestContrastGrid)
#include "tst_contrastgrid.moc"
