#include "colour/colouraverage.h"
#include "sample/multipleselectionmodel.h"

#include <QtTest>

#include <cmath>

namespace {

const RgbColour kRed{1.0, 0.0, 0.0};
const RgbColour kBlue{0.0, 0.0, 1.0};

RgbColour grey(int step)
{
    const double v = step / 10.0;
    return RgbColour{v, v, v};
}

QRect square(int step)
{
    return QRect(step, step, step + 1, step + 1);
}

// Five entries grey(0)..grey(4), at square(0)..square(4).
CMultipleSelectionModel fiveEntries()
{
    CMultipleSelectionModel selection;
    for (int i = 0; i < 5; ++i)
        selection.add(grey(i), square(i));
    return selection;
}

bool same(const RgbColour &a, const RgbColour &b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

} // namespace

class TestMultipleSelectionModel : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void picksKeepTheirOrderColourAndRectangle();
    void eightPicksFillTheSelection();
    void ninthPickIsRefusedAndChangesNothing();
    void removingEntryThreeOfFiveMovesTheLaterEntriesUp();
    void removingOutsideTheEntriesChangesNothing_data();
    void removingOutsideTheEntriesChangesNothing();
    void removingTheOnlyEntryLeavesItEmpty();
    void removingFromAFullSelectionMakesRoomForOneMore();
    void clearEmptiesItAndEightFitAgain();
    void redAndBlueAverageToRootMeanSquare();
    void labRuleAveragesAsTheColourAverageDoes();
    void eachEntryWeighsTheSameWhateverItsRectangle();
    void averageLeavesOutARemovedEntry();
    void noEntriesAverageAsAnEmptyList_data();
    void noEntriesAverageAsAnEmptyList();
};

void TestMultipleSelectionModel::startsEmpty()
{
    const CMultipleSelectionModel selection;
    QCOMPARE(selection.count(), 0);
    QVERIFY(selection.isEmpty());
    QVERIFY(!selection.isFull());
}

void TestMultipleSelectionModel::picksKeepTheirOrderColourAndRectangle()
{
    const CMultipleSelectionModel selection = fiveEntries();
    QCOMPARE(selection.count(), 5);
    QVERIFY(!selection.isEmpty());
    for (int i = 0; i < 5; ++i) {
        QVERIFY(same(selection.at(i).colour, grey(i)));
        QCOMPARE(selection.at(i).rect, square(i));
    }
}

void TestMultipleSelectionModel::eightPicksFillTheSelection()
{
    CMultipleSelectionModel selection;
    for (int i = 0; i < 7; ++i)
        QVERIFY(selection.add(grey(i), square(i)));
    QVERIFY(!selection.isFull());
    QVERIFY(selection.add(grey(7), square(7)));
    QVERIFY(selection.isFull());
    QCOMPARE(selection.count(), CMultipleSelectionModel::kCapacity);
    QCOMPARE(CMultipleSelectionModel::kCapacity, 8);
}

void TestMultipleSelectionModel::ninthPickIsRefusedAndChangesNothing()
{
    CMultipleSelectionModel selection;
    for (int i = 0; i < 8; ++i)
        selection.add(grey(i), square(i));
    const RgbColour before = selection.average(true);
    QVERIFY(!selection.add(kRed, QRect(50, 50, 3, 3)));
    QCOMPARE(selection.count(), 8);
    QVERIFY(same(selection.at(7).colour, grey(7)));
    QCOMPARE(selection.at(7).rect, square(7));
    QVERIFY(same(selection.average(true), before));
}

void TestMultipleSelectionModel::removingEntryThreeOfFiveMovesTheLaterEntriesUp()
{
    CMultipleSelectionModel selection = fiveEntries();
    QVERIFY(selection.removeAt(2));
    QCOMPARE(selection.count(), 4);
    const int expected[] = {0, 1, 3, 4};
    for (int position = 0; position < 4; ++position) {
        QVERIFY(same(selection.at(position).colour, grey(expected[position])));
        QCOMPARE(selection.at(position).rect, square(expected[position]));
    }
}

void TestMultipleSelectionModel::removingOutsideTheEntriesChangesNothing_data()
{
    QTest::addColumn<int>("position");
    QTest::newRow("negative") << -1;
    QTest::newRow("just past the last entry") << 5;
    QTest::newRow("a free position") << 7;
    QTest::newRow("past the capacity") << 8;
}

void TestMultipleSelectionModel::removingOutsideTheEntriesChangesNothing()
{
    QFETCH(int, position);
    CMultipleSelectionModel selection = fiveEntries();
    QVERIFY(!selection.removeAt(position));
    QCOMPARE(selection.count(), 5);
    for (int i = 0; i < 5; ++i)
        QVERIFY(same(selection.at(i).colour, grey(i)));
}

void TestMultipleSelectionModel::removingTheOnlyEntryLeavesItEmpty()
{
    CMultipleSelectionModel selection;
    selection.add(kRed, square(1));
    QVERIFY(selection.removeAt(0));
    QVERIFY(selection.isEmpty());
    QVERIFY(!selection.removeAt(0));
}

void TestMultipleSelectionModel::removingFromAFullSelectionMakesRoomForOneMore()
{
    CMultipleSelectionModel selection;
    for (int i = 0; i < 8; ++i)
        selection.add(grey(i), square(i));
    QVERIFY(selection.removeAt(0));
    QVERIFY(!selection.isFull());
    QVERIFY(selection.add(kBlue, square(9)));
    QCOMPARE(selection.count(), 8);
    QVERIFY(same(selection.at(0).colour, grey(1)));
    QVERIFY(same(selection.at(7).colour, kBlue));
}

void TestMultipleSelectionModel::clearEmptiesItAndEightFitAgain()
{
    CMultipleSelectionModel selection = fiveEntries();
    selection.clear();
    QVERIFY(selection.isEmpty());
    for (int i = 0; i < 8; ++i)
        QVERIFY(selection.add(grey(i), square(i)));
    QVERIFY(!selection.add(grey(8), square(8)));
}

void TestMultipleSelectionModel::redAndBlueAverageToRootMeanSquare()
{
    CMultipleSelectionModel selection;
    selection.add(kRed, square(0));
    selection.add(kBlue, square(1));
    const RgbColour average = selection.average(true);
    QCOMPARE(average.red, std::sqrt(0.5));
    QCOMPARE(average.green, 0.0);
    QCOMPARE(average.blue, std::sqrt(0.5));
}

void TestMultipleSelectionModel::labRuleAveragesAsTheColourAverageDoes()
{
    CMultipleSelectionModel selection;
    selection.add(kRed, square(0));
    selection.add(kBlue, square(1));
    const RgbColour expected = averageColours({kRed, kBlue}, false);
    QVERIFY(same(selection.average(false), expected));
    // The Lab mean of red and blue is not their RMS.
    QVERIFY(!same(selection.average(false), selection.average(true)));
}

void TestMultipleSelectionModel::eachEntryWeighsTheSameWhateverItsRectangle()
{
    CMultipleSelectionModel selection;
    selection.add(kRed, QRect(0, 0, 1, 1));
    selection.add(kBlue, QRect(0, 0, 300, 200));
    CMultipleSelectionModel swapped;
    swapped.add(kRed, QRect(0, 0, 300, 200));
    swapped.add(kBlue, QRect(0, 0, 1, 1));
    QVERIFY(same(selection.average(true), swapped.average(true)));
    QCOMPARE(selection.average(true).red, selection.average(true).blue);
}

void TestMultipleSelectionModel::averageLeavesOutARemovedEntry()
{
    CMultipleSelectionModel selection;
    selection.add(kRed, square(0));
    selection.add(grey(5), square(1));
    selection.add(kBlue, square(2));
    selection.removeAt(1);
    QVERIFY(same(selection.average(true), averageColours({kRed, kBlue}, true)));
    QVERIFY(same(selection.average(false), averageColours({kRed, kBlue}, false)));
}

void TestMultipleSelectionModel::noEntriesAverageAsAnEmptyList_data()
{
    QTest::addColumn<bool>("rgbRule");
    QTest::newRow("RMS") << true;
    QTest::newRow("Lab") << false;
}

void TestMultipleSelectionModel::noEntriesAverageAsAnEmptyList()
{
    QFETCH(bool, rgbRule);
    const CMultipleSelectionModel selection;
    QVERIFY(same(selection.average(rgbRule), averageColours({}, rgbRule)));
}

QTEST_GUILESS_MAIN(TestMultipleSelectionModel)
#include "tst_multipleselectionmodel.moc"
