#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "config/configdlg.h"
#include "config/dlgtabpageadvanced.h"
#include "config/dlgtabpagefolders.h"
#include "config/dlgtabpagegeneral.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "sample/multipleselect.h"
#include "tables/colourtableentry.h"
#include "tables/libcolourtable.h"

#include "support/samplefixture.h"
#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalsequence.h"
#include "support/storedsettings.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

using namespace SampleFixture;

namespace {

QString cellText(QTableWidget *table, int row, int column)
{
    QWidget *cell = table->cellWidget(row, column);
    if (auto *label = qobject_cast<QLabel *>(cell))
        return label->text();
    // A cell of several labels reads as their texts, one per line.
    QStringList texts;
    for (QLabel *label : cell ? cell->findChildren<QLabel *>() : QList<QLabel *>())
        texts << label->text();
    return texts.join(QLatin1Char('\n'));
}

QStringList comboItems(QComboBox *combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

// Work done on the configuration dialog before its OK or Cancel.
using ConfigAction = std::function<void(CConfigDlg *)>;

void chooseDeltaE(CConfigDlg *dialog)
{
    dialog->tabWidget()->setCurrentIndex(2);
    DialogActions::clickRadio(dialog->advancedPage()->deltaEButton());
}

} // namespace

class TestConfigureCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void configureButtonOpensTheConfigurationDialog();
    void configureKeyOpensTheConfigurationDialog();
    void hexFormatAndOkChangesEveryRgbDisplayAtOnce();
    void hexFormatIsStoredAtTheNextSave();
    void newUnitsShowTheLastMatchAgainAtOnce();
    void newAveragingRuleAveragesTheKeptPicksAgain();
    void cancelChangesNothing();
    void changedLibraryFolderReloadsTheList();
    void libraryFolderAlreadySetDoesNotReloadTheList();
    void matchUnitsChangedInTheDialogAreStoredWhenTheWindowCloses();
    void matchUnitsChangedInTheDialogAreLostWithoutClose();

private:
    std::unique_ptr<CMainWindow> windowWithGreyTable();
    void pickGrey(CMainWindow &window);
    // Presses "&Configure" on the toolbar, runs `action` on the dialog and
    // leaves it with `button`; returns whether the dialog appeared.
    bool configure(CMainWindow &window, const ConfigAction &action, const QString &button);

    GuiTestFixture m_fixture;
    QString m_library;
    int m_libraries = 0;
};

void TestConfigureCommand::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestConfigureCommand::init()
{
    m_fixture.reset();
    m_library = m_fixture.filePath(QStringLiteral("library%1").arg(++m_libraries));
    QVERIFY(QDir().mkpath(m_library));
}

std::unique_ptr<CMainWindow> TestConfigureCommand::windowWithGreyTable()
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Grey"), 0.5, 0.5, 0.5));
    const QString path = m_library + QStringLiteral("/greys.clrtable");
    if (!table.write(path))
        return nullptr;
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"),
                             QFileInfo(path).canonicalFilePath());
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
    return std::make_unique<CMainWindow>(AppContext::versionTitle());
}

// Opens a picture of grey 128 and clicks it.
void TestConfigureCommand::pickGrey(CMainWindow &window)
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    const QString path = m_fixture.filePath(QStringLiteral("grey.png"));
    QVERIFY(ImageWriter::write(image, path));
    QVERIFY(showWindow(window));
    QVERIFY(openThroughDialog(window, path));
    leftClick(window.samplingPage()->imageWidget(), QPoint(4, 4));
    QVERIFY(window.samplingPage()->isSamplePresent());
}

bool TestConfigureCommand::configure(CMainWindow &window, const ConfigAction &action,
                                     const QString &button)
{
    bool wasConfigDialog = false;
    ModalAnswerer answer(button, [&](QWidget *dialog) {
        auto *config = qobject_cast<CConfigDlg *>(dialog);
        wasConfigDialog = config != nullptr;
        if (config && action)
            action(config);
    });
    QWidget *toolButton = window.mainToolBar()->widgetForAction(window.commandAction(CmdConfigure));
    if (!toolButton)
        return false;
    QTest::mouseClick(toolButton, Qt::LeftButton);
    return answer.wasAnswered() && wasConfigDialog
        && answer.title() == QStringLiteral("Vellora - Configuration");
}

void TestConfigureCommand::configureButtonOpensTheConfigurationDialog()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    QVERIFY(configure(window, ConfigAction(), QStringLiteral("Cancel")));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestConfigureCommand::configureKeyOpensTheConfigurationDialog()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    QVERIFY(QTest::qWaitForWindowActive(&window));
    ModalAnswerer answer(QStringLiteral("Cancel"));
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Configuration"));
    QCOMPARE(answer.dialogClass(), QStringLiteral("CConfigDlg"));
}

void TestConfigureCommand::hexFormatAndOkChangesEveryRgbDisplayAtOnce()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    pickGrey(*window);
    CColourImageWindow *page = window->samplingPage();
    // Two picks in the multiple selection, so its entries show values too.
    page->commandButton(CmdSelectMultiple)->click();
    leftClick(page->imageWidget(), QPoint(4, 4));
    leftClick(page->imageWidget(), QPoint(12, 12));
    QCOMPARE(page->sampleValue(0)->text(), QStringLiteral("128"));
    QVERIFY(page->multipleRow(1)->swatch()->toolTip().startsWith(QStringLiteral("R:128, G:128")));

    QVERIFY(configure(*window, [](CConfigDlg *dialog) {
        DialogActions::clickRadio(dialog->generalPage()->hexButton());
    }, QStringLiteral("OK")));

    for (int i = 0; i < 3; ++i)
        QCOMPARE(page->sampleValue(i)->text(), QStringLiteral("0x80"));
    for (int position = 0; position < 2; ++position)
        QVERIFY2(page->multipleRow(position)->swatch()->toolTip().startsWith(
                     QStringLiteral("R:0x80, G:0x80, B:0x80")),
                 qPrintable(page->multipleRow(position)->swatch()->toolTip()));
}

void TestConfigureCommand::hexFormatIsStoredAtTheNextSave()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    QVERIFY(showWindow(*window));
    QVERIFY(configure(*window, [](CConfigDlg *dialog) {
        DialogActions::clickRadio(dialog->generalPage()->hexButton());
    }, QStringLiteral("OK")));
    QCOMPARE(window->settings()->rgbFormat, 2);
    QVERIFY(!StoredSettings::contains(QStringLiteral("Colour/rgbFormat")));
    QVERIFY(window->close());
    QCOMPARE(StoredSettings::value(QStringLiteral("Colour/rgbFormat")).toInt(), 2);
}

void TestConfigureCommand::newUnitsShowTheLastMatchAgainAtOnce()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    pickGrey(*window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdMatchColour)->click();
    QTableWidget *results = page->resultsTable();
    QCOMPARE(results->rowCount(), 1);
    QVERIFY2(cellText(results, 0, 2).contains(QStringLiteral("% match")),
             qPrintable(cellText(results, 0, 2)));
    QVERIFY(!cellText(results, 0, 2).contains(QString::fromUtf8("\xCE\x94" "E:")));

    QVERIFY(configure(*window, chooseDeltaE, QStringLiteral("OK")));

    QCOMPARE(results->rowCount(), 1);
    QVERIFY2(cellText(results, 0, 2).contains(QString::fromUtf8("\xCE\x94" "E:")),
             qPrintable(cellText(results, 0, 2)));
    QVERIFY(!cellText(results, 0, 2).contains(QStringLiteral("% match")));
    // The re-match is silent: no message box is left behind.
    QVERIFY(!QApplication::activeModalWidget());
}

void TestConfigureCommand::newAveragingRuleAveragesTheKeptPicksAgain()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int y = 0; y < 10; ++y)
        for (int x = 10; x < 20; ++x)
            image.setPixel(x, y, qRgb(255, 255, 255));
    auto window = openImageWindow(image, m_fixture.filePath(QStringLiteral("bw.png")));
    QVERIFY(window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdSelectMultiple)->click();
    leftClick(page->imageWidget(), QPoint(4, 4));
    leftClick(page->imageWidget(), QPoint(14, 4));
    // Root mean square of 0 and 255: 180.
    QCOMPARE(page->sampleValue(0)->text(), QStringLiteral("180"));

    QVERIFY(configure(*window, [](CConfigDlg *dialog) {
        dialog->tabWidget()->setCurrentIndex(2);
        DialogActions::clickRadio(dialog->advancedPage()->labAverageButton());
    }, QStringLiteral("OK")));

    QVERIFY(!window->settings()->rgbAverage);
    // The mean of L* 0 and 100 is a mid grey, darker than the RGB rule's.
    const int red = page->sampleValue(0)->text().toInt();
    QVERIFY2(red > 100 && red < 180, qPrintable(page->sampleValue(0)->text()));
}

void TestConfigureCommand::cancelChangesNothing()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    pickGrey(*window);
    CColourImageWindow *page = window->samplingPage();
    page->commandButton(CmdMatchColour)->click();
    const QString before = cellText(page->resultsTable(), 0, 2);
    const QString other = m_fixture.filePath(QStringLiteral("other-library"));
    QVERIFY(QDir().mkpath(other));
    const QStringList listBefore = comboItems(page->libraryCombo());

    QVERIFY(configure(*window, [other](CConfigDlg *dialog) {
        DialogActions::clickRadio(dialog->generalPage()->hexButton());
        dialog->tabWidget()->setCurrentIndex(2);
        DialogActions::clickRadio(dialog->advancedPage()->deltaEButton());
        DialogActions::clickRadio(dialog->advancedPage()->labAverageButton());
        dialog->tabWidget()->setCurrentIndex(1);
        ModalAnswerer browse(QString(), DialogActions::chooseFile(other));
        QTest::mouseClick(dialog->foldersPage()->libraryBrowseButton(), Qt::LeftButton);
    }, QStringLiteral("Cancel")));

    QCOMPARE(window->settings()->rgbFormat, 0);
    QCOMPARE(window->settings()->rgbDifference, true);
    QCOMPARE(window->settings()->rgbAverage, true);
    QCOMPARE(window->settings()->libraryDir, m_library);
    QCOMPARE(page->sampleValue(0)->text(), QStringLiteral("128"));
    QCOMPARE(cellText(page->resultsTable(), 0, 2), before);
    QCOMPARE(comboItems(page->libraryCombo()), listBefore);
}

void TestConfigureCommand::changedLibraryFolderReloadsTheList()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    QVERIFY(showWindow(*window));
    QCOMPARE(comboItems(window->samplingPage()->libraryCombo()), QStringList({"greys"}));
    const QString other = m_fixture.filePath(QStringLiteral("moved-library"));
    QVERIFY(QDir().mkpath(other));
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1, 0, 0));
    QVERIFY(table.write(other + QStringLiteral("/reds.clrtable")));

    QVERIFY(configure(*window, [other](CConfigDlg *dialog) {
        dialog->tabWidget()->setCurrentIndex(1);
        ModalAnswerer browse(QString(), DialogActions::chooseFile(other));
        QTest::mouseClick(dialog->foldersPage()->libraryBrowseButton(), Qt::LeftButton);
    }, QStringLiteral("OK")));

    QCOMPARE(QDir(window->settings()->libraryDir).canonicalPath(), QDir(other).canonicalPath());
    QCOMPARE(comboItems(window->samplingPage()->libraryCombo()), QStringList({"reds"}));
}

void TestConfigureCommand::libraryFolderAlreadySetDoesNotReloadTheList()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    QVERIFY(showWindow(*window));
    // A table that appears after the list was read shows only once the list is filled again.
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Blue"), 0, 0, 1));
    QVERIFY(table.write(m_library + QStringLiteral("/blues.clrtable")));
    const QString library = m_library;

    QVERIFY(configure(*window, [library](CConfigDlg *dialog) {
        dialog->tabWidget()->setCurrentIndex(1);
        ModalAnswerer browse(QString(), DialogActions::chooseFile(library));
        QTest::mouseClick(dialog->foldersPage()->libraryBrowseButton(), Qt::LeftButton);
    }, QStringLiteral("OK")));

    QCOMPARE(window->settings()->libraryDir, m_library);
    QCOMPARE(comboItems(window->samplingPage()->libraryCombo()), QStringList({"greys"}));
}

void TestConfigureCommand::matchUnitsChangedInTheDialogAreStoredWhenTheWindowCloses()
{
    auto window = windowWithGreyTable();
    QVERIFY(window);
    QVERIFY(showWindow(*window));
    QVERIFY(configure(*window, chooseDeltaE, QStringLiteral("OK")));
    QVERIFY(!StoredSettings::contains(QStringLiteral("Colour/rgbDifference")));
    QVERIFY(window->close());
    QCOMPARE(StoredSettings::value(QStringLiteral("Colour/rgbDifference")).toBool(), false);
}

void TestConfigureCommand::matchUnitsChangedInTheDialogAreLostWithoutClose()
{
    {
        auto window = windowWithGreyTable();
        QVERIFY(window);
        QVERIFY(showWindow(*window));
        QVERIFY(configure(*window, chooseDeltaE, QStringLiteral("OK")));
        QCOMPARE(window->settings()->rgbDifference, false);
        // The program ends without its window closing, as in a crash.
    }
    QVERIFY(!StoredSettings::contains(QStringLiteral("Colour/rgbDifference")));
    CMainWindow next(AppContext::versionTitle());
    QCOMPARE(next.settings()->rgbDifference, true);
}

QTEST_MAIN(TestConfigureCommand)
#include "tst_configurecommand.moc"
