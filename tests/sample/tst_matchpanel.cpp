#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "colour/colourconversion.h"
#include "colour/colourformat.h"
#include "colour/deltae2000.h"
#include "colour/matchscore.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/dlgdatacolouradd.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "tables/colourtableentry.h"
#include "tables/libcolourtable.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"
#include "support/samplefixture.h"
#include "support/storedsettings.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace SampleFixture;

namespace {

struct NamedColour
{
    QString name;
    RgbColour colour;
};

const RgbColour kSample{128 / 255.0, 128 / 255.0, 128 / 255.0};

float deltaEToSample(double grey)
{
    const LabColour entry = rgbToLab(grey, grey, grey);
    const LabColour sample = rgbToLab(kSample);
    return deltaE2000(float(entry.L), float(entry.a), float(entry.b), float(sample.L),
                      float(sample.a), float(sample.b));
}

// A grey, written with four decimals as a table stores it, whose difference
// from the sample grey is as close to `target` as four decimals allow.
double greyAtDeltaE(double target)
{
    double low = kSample.red;
    double high = 1.0;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (deltaEToSample(middle) < target ? low : high) = middle;
    }
    return std::round(low * 10000.0) / 10000.0;
}

QString cellText(QTableWidget *table, int row, int column, int labelIndex = 0)
{
    QWidget *cell = table->cellWidget(row, column);
    if (auto *label = qobject_cast<QLabel *>(cell))
        return label->text();
    const QList<QLabel *> labels = cell ? cell->findChildren<QLabel *>() : QList<QLabel *>();
    return labelIndex < labels.size() ? labels.at(labelIndex)->text() : QString();
}

QStringList shownNames(QTableWidget *table)
{
    QStringList names;
    for (int row = 0; row < table->rowCount(); ++row)
        names << cellText(table, row, 1);
    return names;
}

} // namespace

class TestMatchPanel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void closeMatchesBeyondTheCountAreShownBelowTwoAndAHalf();
    void shortTableShowsAllItsEntries();
    void manyCloseMatchesStopAtThirtyTwoRows();
    void percentUnitsKeepTheDeltaEThreshold();
    void resultRowShowsSwatchNameValuesAndVerdict();
    void resultsCarryTheInterpretationToolTip();
    void resultsTableIsSetUpPlainly();
    void libraryListIgnoresCaseWhenSorting();
    void dottedTableNameIsListedWholeButNamedShortWhenEmpty();
    void emptyLibraryWarningNamesSelectedWithoutATable();
    void matchingWithoutASampleWarns();
    void addToLibraryRightAfterOpeningAnImageAsksForAMatchFirst();
    void sampleEnablesTheMatchAndAddButtons();
    void rememberedTableIsSelectedAtStart();
    void choosingATableRemembersIt();
    void tableThatFailsToLoadIsNotRemembered();
    void quietRematchShowsNewUnitsAtOnce();
    void quietRematchWaitsForAFirstMatch();
    void newImageClearsTheResults();
    void addToDataSetHandsTheSampleToTheMainWindow();
    void maintainingAnUnchangedLibraryKeepsTheResults();
    void unknownCommandsAreIgnored();

private:
    QString writeTable(const QString &fileName, const QVector<NamedColour> &colours);
    std::unique_ptr<CMainWindow> windowWithLibrary(const QString &selected = QString());
    void pickSample(CMainWindow &window);
    void match(CMainWindow &window);

    GuiTestFixture m_fixture;
    QString m_library;
    int m_libraryCount = 0;
};

void TestMatchPanel::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMatchPanel::init()
{
    m_fixture.reset();
    // Every test starts with a library folder of its own.
    m_library = m_fixture.filePath(QStringLiteral("library%1").arg(++m_libraryCount));
    QVERIFY(QDir().mkpath(m_library));
}

QString TestMatchPanel::writeTable(const QString &fileName, const QVector<NamedColour> &colours)
{
    CLibColourTable table;
    for (const NamedColour &c : colours)
        table.add(std::make_unique<CColourTableEntry>(c.name, c.colour.red, c.colour.green,
                                                      c.colour.blue));
    const QString path = m_library + "/" + fileName;
    return table.write(path) ? QFileInfo(path).canonicalFilePath() : QString();
}

// A main window started with the test's library folder and remembered
// table in the settings store, as a later run of the program finds them.
std::unique_ptr<CMainWindow> TestMatchPanel::windowWithLibrary(const QString &selected)
{
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), selected);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
    return std::make_unique<CMainWindow>(AppContext::versionTitle());
}

// Opens a picture of the sample grey and clicks it.
void TestMatchPanel::pickSample(CMainWindow &window)
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    const QString path = m_fixture.filePath("grey.png");
    QVERIFY(ImageWriter::write(image, path));
    QVERIFY(showWindow(window));
    QVERIFY(openThroughDialog(window, path));
    leftClick(window.samplingPage()->imageWidget(), QPoint(4, 4));
    QVERIFY(window.samplingPage()->isSamplePresent());
}

void TestMatchPanel::match(CMainWindow &window)
{
    window.samplingPage()->commandButton(CmdMatchColour)->click();
}

void TestMatchPanel::closeMatchesBeyondTheCountAreShownBelowTwoAndAHalf()
{
    const double targets[] = {0.5, 1.0, 2.0, 2.4, 2.45, 3.0};
    QVector<NamedColour> colours;
    QVector<float> deltaEs;
    for (int i = 5; i >= 0; --i) { // written out of order on purpose
        const double grey = greyAtDeltaE(targets[i]);
        colours.append({QStringLiteral("grey%1").arg(i), {grey, grey, grey}});
        deltaEs.append(deltaEToSample(grey));
    }
    std::sort(deltaEs.begin(), deltaEs.end());
    QVERIFY(deltaEs.at(4) < 2.5f);
    QVERIFY(deltaEs.at(5) >= 2.5f);
    const QString path = writeTable("steps.clrtable", colours);
    auto window = windowWithLibrary(path);
    window->settings()->maxRecordsDisplay = 4;
    pickSample(*window);
    match(*window);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QCOMPARE(results->rowCount(), 5);
    QCOMPARE(shownNames(results), (QStringList{"grey0", "grey1", "grey2", "grey3", "grey4"}));
}

void TestMatchPanel::shortTableShowsAllItsEntries()
{
    const QString path = writeTable("three.clrtable", {{"Red", {1, 0, 0}},
                                                       {"Green", {0, 1, 0}},
                                                       {"Blue", {0, 0, 1}}});
    auto window = windowWithLibrary(path);
    window->settings()->maxRecordsDisplay = 8;
    pickSample(*window);
    match(*window);
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 3);
}

void TestMatchPanel::manyCloseMatchesStopAtThirtyTwoRows()
{
    QVector<NamedColour> colours;
    for (int i = 0; i < 40; ++i) {
        const double grey = 128 / 255.0 + (i % 20) * 0.0005;
        colours.append({QStringLiteral("near%1").arg(i), {grey, grey, grey}});
    }
    for (const NamedColour &c : colours)
        QVERIFY(deltaEToSample(c.colour.red) < 2.5f);
    const QString path = writeTable("near.clrtable", colours);
    auto window = windowWithLibrary(path);
    window->settings()->maxRecordsDisplay = 4;
    pickSample(*window);
    match(*window);
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 32);
}

void TestMatchPanel::percentUnitsKeepTheDeltaEThreshold()
{
    QVector<NamedColour> colours;
    for (double target : {0.3, 1.5, 2.2, 2.49, 2.8, 4.0, 9.0})
        colours.append({QString::number(target), {greyAtDeltaE(target), greyAtDeltaE(target),
                                                  greyAtDeltaE(target)}});
    const QString path = writeTable("units.clrtable", colours);
    auto window = windowWithLibrary(path);
    window->settings()->maxRecordsDisplay = 2;
    window->settings()->rgbDifference = true;
    pickSample(*window);
    match(*window);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QCOMPARE(results->rowCount(), 4);
    for (int row = 0; row < 4; ++row)
        QVERIFY2(cellText(results, row, 2).endsWith(QStringLiteral("% match")),
                 qPrintable(cellText(results, row, 2)));
    window->settings()->rgbDifference = false;
    match(*window);
    QCOMPARE(results->rowCount(), 4);
    QVERIFY(cellText(results, 0, 2).contains(QStringLiteral("ΔE:")));
}

void TestMatchPanel::resultRowShowsSwatchNameValuesAndVerdict()
{
    const QString path = writeTable("one.clrtable", {{"Slate", {0.4392, 0.502, 0.5647}}});
    auto window = windowWithLibrary(path);
    window->settings()->rgbFormat = 0;
    window->settings()->rgbDifference = false;
    pickSample(*window);
    match(*window);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QCOMPARE(results->rowCount(), 1);
    QCOMPARE(results->cellWidget(0, 0)->styleSheet(),
             QStringLiteral("background-color:%1;").arg(colourName(0.4392, 0.502, 0.5647)));
    QCOMPARE(cellText(results, 0, 1, 0), QStringLiteral("Slate"));
    const QStringList rgb = formatRgb(0.4392, 0.502, 0.5647, 2, false, 0);
    const QStringList lab = formatLab(0.4392, 0.502, 0.5647, 2);
    QCOMPARE(cellText(results, 0, 1, 1),
             QStringLiteral("R:%1, G:%2, B:%3<br />L:%4, a:%5, b:%6<br />")
                 .arg(rgb.at(0), rgb.at(1), rgb.at(2), lab.at(0), lab.at(1), lab.at(2)));
    const LabColour entry = rgbToLab(0.4392, 0.502, 0.5647);
    const LabColour sample = rgbToLab(kSample);
    const float deltaE = deltaE2000(float(entry.L), float(entry.a), float(entry.b),
                                    float(sample.L), float(sample.a), float(sample.b));
    QCOMPARE(cellText(results, 0, 2), matchText(deltaE, false));
    QVERIFY(window->samplingPage()->commandButton(CmdAddToLibrary)->isEnabled());
}

void TestMatchPanel::resultsCarryTheInterpretationToolTip()
{
    const QString path = writeTable("tip.clrtable", {{"White", {1, 1, 1}}});
    auto window = windowWithLibrary(path);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QCOMPARE(results->toolTip(), QString());
    pickSample(*window);
    match(*window);
    QString expected = QStringLiteral("Interpretation of results:<ul>");
    for (int i = 0; i < 4; ++i)
        expected += QStringLiteral("<li style='margin-bottom:5px;'>%1</li>").arg(verdictLongText(i));
    QCOMPARE(results->toolTip(), expected + QStringLiteral("</ul>"));
}

void TestMatchPanel::resultsTableIsSetUpPlainly()
{
    const QString path = writeTable("plain.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    pickSample(*window);
    match(*window);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QCOMPARE(results->columnCount(), 3);
    QCOMPARE(results->columnWidth(0), 34);
    QCOMPARE(results->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(results->horizontalHeader()->sectionResizeMode(1), QHeaderView::Stretch);
    QCOMPARE(results->verticalHeader()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    QVERIFY(results->horizontalHeader()->isHidden());
    QVERIFY(results->verticalHeader()->isHidden());
    QCOMPARE(results->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(results->focusPolicy(), Qt::NoFocus);
    QCOMPARE(results->styleSheet(),
             QStringLiteral("QTableView::item {padding-left:5px; padding-right:5px; "
                            "padding-top:3px; padding-bottom:3px; border:0px;}"));
}

void TestMatchPanel::libraryListIgnoresCaseWhenSorting()
{
    writeTable("b.clrtable", {{"x", {0, 0, 0}}});
    writeTable("A.clrtable", {{"y", {1, 1, 1}}});
    auto window = windowWithLibrary();
    QComboBox *combo = window->samplingPage()->libraryCombo();
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), QStringLiteral("A"));
    QCOMPARE(combo->itemText(1), QStringLiteral("b"));
    QCOMPARE(combo->itemData(0).toString(), QFileInfo(m_library + "/A.clrtable").canonicalFilePath());
}

void TestMatchPanel::dottedTableNameIsListedWholeButNamedShortWhenEmpty()
{
    QVERIFY(FixtureFile::write(m_library + "/my.blue.clrtable", QByteArray()));
    const QString path = QFileInfo(m_library + "/my.blue.clrtable").canonicalFilePath();
    auto window = windowWithLibrary(path);
    QComboBox *combo = window->samplingPage()->libraryCombo();
    QCOMPARE(combo->itemText(0), QStringLiteral("my.blue"));
    pickSample(*window);
    ModalAnswerer answer("OK");
    match(*window);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(),
             QStringLiteral("The my Colour Match Library is empty, so a match cannot be attempted."));
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 0);
}

void TestMatchPanel::emptyLibraryWarningNamesSelectedWithoutATable()
{
    auto window = windowWithLibrary();
    QCOMPARE(window->samplingPage()->libraryCombo()->count(), 0);
    pickSample(*window);
    window->settings()->selectedTable.clear();
    ModalAnswerer answer("OK");
    match(*window);
    QCOMPARE(answer.text(),
             QStringLiteral("The selected Colour Match Library is empty, so a match cannot be attempted."));
}

void TestMatchPanel::matchingWithoutASampleWarns()
{
    const QString path = writeTable("any.clrtable", {{"White", {1, 1, 1}}});
    auto window = windowWithLibrary(path);
    CColourImageWindow *page = window->samplingPage();
    QVERIFY(!page->commandButton(CmdMatchColour)->isEnabled());
    // The command still reaches the page (its action): it refuses politely.
    ModalAnswerer answer("OK");
    page->commandButton(CmdMatchColour)->defaultAction()->trigger();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("No Colour has been selected for matching."));
    QCOMPARE(page->resultsTable()->rowCount(), 0);
}

void TestMatchPanel::addToLibraryRightAfterOpeningAnImageAsksForAMatchFirst()
{
    const QString path = writeTable("lib.clrtable", {{"White", {1, 1, 1}}});
    auto window = windowWithLibrary(path);
    const QString image = m_fixture.filePath("fresh.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(5, 5), image));
    QVERIFY(showWindow(*window));
    QVERIFY(openThroughDialog(*window, image));
    CColourImageWindow *page = window->samplingPage();
    QVERIFY(!page->commandButton(CmdAddToLibrary)->isEnabled());
    ModalAnswerer answer("OK");
    page->commandButton(CmdAddToLibrary)->defaultAction()->trigger();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("Please  first match the colour ...."));
    QCOMPARE(answer.dialogClass(), QStringLiteral("QMessageBox"));
}

void TestMatchPanel::sampleEnablesTheMatchAndAddButtons()
{
    auto window = windowWithLibrary();
    CColourImageWindow *page = window->samplingPage();
    for (int command : {CmdMatchColour, CmdAddToDataSet, CmdAddToLibrary})
        QVERIFY(!page->commandButton(command)->isEnabled());
    pickSample(*window);
    for (int command : {CmdMatchColour, CmdAddToDataSet, CmdAddToLibrary})
        QVERIFY(page->commandButton(command)->isEnabled());
}

void TestMatchPanel::rememberedTableIsSelectedAtStart()
{
    writeTable("a.clrtable", {{"one", {0, 0, 0}}});
    const QString second = writeTable("b.clrtable", {{"two", {0, 0, 0}}, {"three", {1, 1, 1}}});
    auto window = windowWithLibrary(second);
    QCOMPARE(window->samplingPage()->libraryCombo()->currentText(), QStringLiteral("b"));
    QCOMPARE(window->samplingPage()->libraryTable().count(), 2);
}

void TestMatchPanel::choosingATableRemembersIt()
{
    const QString first = writeTable("first.clrtable", {{"one", {0, 0, 0}}});
    const QString second = writeTable("second.clrtable", {{"two", {1, 1, 1}}});
    auto window = windowWithLibrary(first);
    QCOMPARE(window->settings()->selectedTable, first);
    window->samplingPage()->libraryCombo()->setCurrentIndex(1);
    QCOMPARE(window->settings()->selectedTable, second);
    QCOMPARE(window->samplingPage()->libraryTable().at(0)->name, QStringLiteral("two"));
}

void TestMatchPanel::tableThatFailsToLoadIsNotRemembered()
{
    const QString good = writeTable("good.clrtable", {{"one", {0, 0, 0}}});
    QVERIFY(FixtureFile::write(m_library + "/worse.clrtable", QByteArray("not, a, colour line\n")));
    auto window = windowWithLibrary(good);
    ModalAnswerer answer("OK");
    window->samplingPage()->libraryCombo()->setCurrentIndex(1);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("Unable to load colour table:\nworse\n\nError in line 1"));
    QCOMPARE(window->settings()->selectedTable, good);
}

void TestMatchPanel::quietRematchShowsNewUnitsAtOnce()
{
    const QString path = writeTable("quiet.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    window->settings()->rgbDifference = true;
    pickSample(*window);
    match(*window);
    QTableWidget *results = window->samplingPage()->resultsTable();
    QVERIFY(cellText(results, 0, 2).endsWith(QStringLiteral("% match")));
    window->settings()->rgbDifference = false;
    // What an accepted configuration dialog does.
    window->applyConfigurationChanges(window->settings()->libraryDir);
    QVERIFY(cellText(results, 0, 2).contains(QStringLiteral("ΔE:")));
}

void TestMatchPanel::quietRematchWaitsForAFirstMatch()
{
    const QString path = writeTable("wait.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    pickSample(*window);
    window->applyConfigurationChanges(window->settings()->libraryDir);
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 0);
    // Nor is an empty table reported without the user asking.
    QVERIFY(FixtureFile::write(m_library + "/empty.clrtable", QByteArray()));
    window->samplingPage()->fillLibraryCombo();
    window->samplingPage()->libraryCombo()->setCurrentIndex(0);
    // Any message box would be shown, and answered, before runMatch returns.
    {
        ModalAnswerer unexpected(QStringLiteral("OK"));
        window->samplingPage()->runMatch(true);
        QVERIFY(!unexpected.wasAnswered());
    }
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 0);
    // Asked for by the user, the empty table is reported...
    {
        ModalAnswerer reported(QStringLiteral("OK"));
        window->samplingPage()->runMatch(false);
        QVERIFY(reported.wasAnswered());
        QCOMPARE(reported.text(), QStringLiteral("The empty Colour Match Library is empty, so a "
                                                 "match cannot be attempted."));
    }
    // ...but not again by the quiet refresh that follows a settings change.
    ModalAnswerer unexpected(QStringLiteral("OK"));
    window->applyConfigurationChanges(window->settings()->libraryDir);
    window->samplingPage()->runMatch(true);
    QVERIFY(!unexpected.wasAnswered());
}

void TestMatchPanel::newImageClearsTheResults()
{
    const QString path = writeTable("clear.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    pickSample(*window);
    match(*window);
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 1);
    const QString image = m_fixture.filePath("next.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(4, 4), image));
    QVERIFY(openThroughDialog(*window, image));
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 0);
    QVERIFY(!window->samplingPage()->commandButton(CmdMatchColour)->isEnabled());
    // The reset also forgets the match: settings changes re-match nothing.
    window->applyConfigurationChanges(window->settings()->libraryDir);
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 0);
}

void TestMatchPanel::addToDataSetHandsTheSampleToTheMainWindow()
{
    auto window = windowWithLibrary();
    pickSample(*window);
    // The data page's dialog shows the picked grey; refused there, the
    // sampling page stays.
    QString swatch;
    ModalAnswerer answer("Cancel", [&swatch](QWidget *dialog) {
        if (auto *add = qobject_cast<CDlgDataColourAdd *>(dialog))
            swatch = add->swatchLabel()->styleSheet();
    });
    window->samplingPage()->commandButton(CmdAddToDataSet)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Add Colour Data"));
    QCOMPARE(swatch, QStringLiteral("background-color:#808080;"));
    QCOMPARE(window->tabWidget()->currentIndex(), 0);
    QVERIFY(window->samplingPage()->isSamplePresent());
    QCOMPARE(window->dataPage()->model()->rowCount(), 0);
}

void TestMatchPanel::maintainingAnUnchangedLibraryKeepsTheResults()
{
    const QString path = writeTable("keep.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    pickSample(*window);
    match(*window);
    {
        ModalAnswerer close("Close"); // the maintenance dialog, closed unchanged
        window->samplingPage()->commandButton(CmdMaintainLibrary)->click();
        QVERIFY(close.wasAnswered());
    }
    QCOMPARE(window->samplingPage()->resultsTable()->rowCount(), 1);
    QCOMPARE(window->samplingPage()->libraryCombo()->currentText(), QStringLiteral("keep"));
}

void TestMatchPanel::unknownCommandsAreIgnored()
{
    const QString path = writeTable("ignore.clrtable", {{"Grey", {0.5, 0.5, 0.5}}});
    auto window = windowWithLibrary(path);
    pickSample(*window);
    match(*window);
    CColourImageWindow *page = window->samplingPage();
    for (int command : {0, 8, 12, 22, -1})
        page->processCommand(command);
    QCOMPARE(page->resultsTable()->rowCount(), 1);
    QCOMPARE(page->pickMode(), 17);
    QCOMPARE(page->selectionMode(), 19);
}

QTEST_MAIN(TestMatchPanel)
#include "tst_matchpanel.moc"
