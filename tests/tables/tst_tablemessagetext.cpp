#include "tables/tablemessagetext.h"

#include <QtTest>

// The texts that report an unusable table, shared by the application's
// message boxes and the command-line tool's error lines.
class TestTableMessageText : public QObject
{
    Q_OBJECT

private slots:
    void fileThatCannotBeOpenedNamesPath();
    void badLineNamesTableAndLineNumber();
    void loadedTableHasNoText();
    void dataSetThatCannotBeOpenedNamesPath();
    void dataSetBadLineNamesPathAndLineNumber();
    void loadedDataSetHasNoText();
    void emptyLibraryNamesTable();
    void emptyLibraryWithoutNameSaysSelected();
};

void TestTableMessageText::fileThatCannotBeOpenedNamesPath()
{
    CColourTable::LoadResult result;
    result.status = CColourTable::CannotOpen;
    QCOMPARE(CTableMessageText::loadError(result, "Reds", "/lib/Reds.clrtable"),
             QStringLiteral("Error while attempting to open colour table file:\n/lib/Reds.clrtable"));
}

void TestTableMessageText::badLineNamesTableAndLineNumber()
{
    CColourTable::LoadResult result;
    result.status = CColourTable::BadLine;
    result.lineNumber = 7;
    QCOMPARE(CTableMessageText::loadError(result, "Reds", "/lib/Reds.clrtable"),
             QStringLiteral("Unable to load colour table:\nReds\n\nError in line 7"));
}

void TestTableMessageText::loadedTableHasNoText()
{
    QVERIFY(CTableMessageText::loadError(CColourTable::LoadResult(), "Reds", "/x").isEmpty());
}

void TestTableMessageText::dataSetThatCannotBeOpenedNamesPath()
{
    CColourTable::LoadResult result;
    result.status = CColourTable::CannotOpen;
    QCOMPARE(CTableMessageText::dataLoadError(result, "/data/set.csv"),
             QStringLiteral("Error while attempting to open data table:\n/data/set.csv"));
}

void TestTableMessageText::dataSetBadLineNamesPathAndLineNumber()
{
    CColourTable::LoadResult result;
    result.status = CColourTable::BadLine;
    result.lineNumber = 3;
    QCOMPARE(CTableMessageText::dataLoadError(result, "/data/set.csv"),
             QStringLiteral("Unable to load data table:\n/data/set.csv\n\nError in line 3"));
}

void TestTableMessageText::loadedDataSetHasNoText()
{
    QVERIFY(CTableMessageText::dataLoadError(CColourTable::LoadResult(), "/x").isEmpty());
}

void TestTableMessageText::emptyLibraryNamesTable()
{
    QCOMPARE(CTableMessageText::emptyLibrary("my"),
             QStringLiteral("The my Colour Match Library is empty, so a match cannot be attempted."));
}

void TestTableMessageText::emptyLibraryWithoutNameSaysSelected()
{
    QCOMPARE(
        CTableMessageText::emptyLibrary(QString()),
        QStringLiteral("The selected Colour Match Library is empty, so a match cannot be attempted."));
}

QTEST_GUILESS_MAIN(TestTableMessageText)
#include "tst_tablemessagetext.moc"
