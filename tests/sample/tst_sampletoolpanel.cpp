#include "app/appsettings.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/multipleselect.h"
#include "sample/picknotes.h"
#include "sample/samplepanel.h"
#include "sample/sampletoolpanel.h"

#include "support/guitestfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalMapper>
#include <QToolButton>
#include <QtTest>

#include <memory>

// The sampling page's left-hand panel on its own: every button reaches the
// page's mappers with its number, and the parts it hands out are its own.
class TestSampleToolPanel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyPageCommandHasItsButton_data();
    void everyPageCommandHasItsButton();
    void numbersOutsideThePageHaveNoButton_data();
    void numbersOutsideThePageHaveNoButton();
    void clickingAButtonMapsItsCommand();
    void clearButtonsOfTheRowsMapTheirPositions();
    void checkCommandLeavesOneButtonOfTheGroupChecked();
    void sampleCommandsAreEnabledTogether();
    void pickSizesAreTheOddSquaresUpToNine();
    void multipleSelectionStartsEmptyWithItsNoticeHidden();
    void partsAreChildrenOfThePanel();

private:
    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<QSignalMapper> m_commands;
    std::unique_ptr<QSignalMapper> m_clearItems;
    std::unique_ptr<CSampleToolPanel> m_panel;
};

void TestSampleToolPanel::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSampleToolPanel::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_commands = std::make_unique<QSignalMapper>();
    m_clearItems = std::make_unique<QSignalMapper>();
    m_panel = std::make_unique<CSampleToolPanel>(m_settings.get(), m_commands.get(),
                                                 m_clearItems.get());
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestSampleToolPanel::cleanup()
{
    m_panel.reset();
    m_clearItems.reset();
    m_commands.reset();
    m_settings.reset();
}

void TestSampleToolPanel::everyPageCommandHasItsButton_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("checkable");
    QTest::newRow("maintain") << int(CmdMaintainLibrary) << "Maintain Colour Library" << false;
    QTest::newRow("match") << int(CmdMatchColour) << "Match Library Colour" << false;
    QTest::newRow("data set") << int(CmdAddToDataSet) << "Add Colour to DataSet" << false;
    QTest::newRow("library") << int(CmdAddToLibrary) << "Add Colour to Colour Library" << false;
    QTest::newRow("click") << int(CmdPickClick) << "Click Select Colour" << true;
    QTest::newRow("band") << int(CmdPickRubberBand) << "Rubber Band Select Colour" << true;
    QTest::newRow("single") << int(CmdSelectSingle) << "Single Selection" << true;
    QTest::newRow("multiple") << int(CmdSelectMultiple) << "Multiple Selection" << true;
    QTest::newRow("clear") << int(CmdClearMultiple) << "Clear Multiple Selection" << false;
}

void TestSampleToolPanel::everyPageCommandHasItsButton()
{
    QFETCH(int, command);
    QFETCH(QString, text);
    QFETCH(bool, checkable);
    QToolButton *button = m_panel->commandButton(command);
    QVERIFY(button);
    QCOMPARE(button->defaultAction()->text(), text);
    QCOMPARE(button->isCheckable(), checkable);
    QCOMPARE(button->size(), QSize(46, 34));
    QVERIFY(m_panel->isAncestorOf(button));
}

void TestSampleToolPanel::numbersOutsideThePageHaveNoButton_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("main toolbar") << int(CmdZoomActual);
    QTest::newRow("data page") << int(CmdSaveDataAs);
    QTest::newRow("after the last") << int(CmdClearMultiple) + 1;
    QTest::newRow("negative") << -1;
}

void TestSampleToolPanel::numbersOutsideThePageHaveNoButton()
{
    QFETCH(int, command);
    QVERIFY(m_panel->commandButton(command) == nullptr);
}

void TestSampleToolPanel::clickingAButtonMapsItsCommand()
{
    QSignalSpy mapped(m_commands.get(), &QSignalMapper::mappedInt);
    QTest::mouseClick(m_panel->commandButton(CmdPickRubberBand), Qt::LeftButton);
    QTest::mouseClick(m_panel->commandButton(CmdMaintainLibrary), Qt::LeftButton);
    QCOMPARE(mapped.count(), 2);
    QCOMPARE(mapped.at(0).at(0).toInt(), int(CmdPickRubberBand));
    QCOMPARE(mapped.at(1).at(0).toInt(), int(CmdMaintainLibrary));
}

void TestSampleToolPanel::clearButtonsOfTheRowsMapTheirPositions()
{
    const QVector<CMultipleSelect *> &rows = m_panel->selectionRows();
    QCOMPARE(rows.size(), CSampleToolPanel::kMultipleRows);
    QSignalSpy mapped(m_clearItems.get(), &QSignalMapper::mappedInt);
    rows.at(5)->clearButton()->defaultAction()->trigger();
    rows.at(0)->clearButton()->defaultAction()->trigger();
    QCOMPARE(mapped.count(), 2);
    QCOMPARE(mapped.at(0).at(0).toInt(), 5);
    QCOMPARE(mapped.at(1).at(0).toInt(), 0);
}

void TestSampleToolPanel::checkCommandLeavesOneButtonOfTheGroupChecked()
{
    m_panel->checkCommand(CmdPickClick, {CmdPickClick, CmdPickRubberBand});
    m_panel->checkCommand(CmdPickRubberBand, {CmdPickClick, CmdPickRubberBand});
    QVERIFY(m_panel->commandButton(CmdPickRubberBand)->isChecked());
    QVERIFY(!m_panel->commandButton(CmdPickClick)->isChecked());
    // Another group is left alone.
    m_panel->checkCommand(CmdSelectSingle, {CmdSelectSingle, CmdSelectMultiple});
    QVERIFY(m_panel->commandButton(CmdPickRubberBand)->isChecked());
    QVERIFY(m_panel->commandButton(CmdSelectSingle)->isChecked());
}

void TestSampleToolPanel::sampleCommandsAreEnabledTogether()
{
    const int sampleCommands[] = {CmdMatchColour, CmdAddToDataSet, CmdAddToLibrary};
    m_panel->enableSampleCommands(false);
    for (int command : sampleCommands)
        QVERIFY(!m_panel->commandButton(command)->isEnabled());
    QVERIFY(m_panel->commandButton(CmdMaintainLibrary)->isEnabled());
    m_panel->enableSampleCommands(true);
    for (int command : sampleCommands)
        QVERIFY(m_panel->commandButton(command)->isEnabled());
}

void TestSampleToolPanel::pickSizesAreTheOddSquaresUpToNine()
{
    QComboBox *combo = m_panel->pickSizeCombo();
    QCOMPARE(combo->count(), 5);
    const int sizes[] = {1, 3, 5, 7, 9};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(combo->itemText(i), QStringLiteral("%1x%1").arg(sizes[i]));
        QCOMPARE(combo->itemData(i).toInt(), sizes[i]);
    }
    QCOMPARE(combo->currentIndex(), 0);
}

void TestSampleToolPanel::multipleSelectionStartsEmptyWithItsNoticeHidden()
{
    QVERIFY(!m_panel->commandButton(CmdClearMultiple)->isEnabled());
    for (CMultipleSelect *row : m_panel->selectionRows())
        QVERIFY(!row->row()->isVisible());
    QVERIFY(!m_panel->maximumNotice()->isVisible());
    QCOMPARE(m_panel->maximumNotice()->text(),
             QStringLiteral("<font color='Crimson'>Maximum 8 Items</font>"));
}

void TestSampleToolPanel::partsAreChildrenOfThePanel()
{
    const QList<QWidget *> parts = {m_panel->pickSizeCombo(), m_panel->samplePanel(),
                                    m_panel->pickNotes(), m_panel->librarySelector(),
                                    m_panel->results(), m_panel->maximumNotice()};
    for (QWidget *part : parts) {
        QVERIFY(part);
        QVERIFY(m_panel->isAncestorOf(part));
    }
    QVERIFY(m_panel->isVisible());
    QVERIFY(!m_panel->isMovable());
    QCOMPARE(m_panel->orientation(), Qt::Vertical);
}

QTEST_MAIN(TestSampleToolPanel)
#include "tst_sampletoolpanel.moc"
