#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "data/chartdatatabcontainer.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "data/datamodel.h"
#include "data/dlgdatacolouradd.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalanswerer.h"
#include "support/modalsequence.h"
#include "support/storedsettings.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

const QByteArray kThreeColours = "# mine\n0.1000, 0.2000, 0.3000, Sea\n"
                                 "1.0000, 0.5000, 0.0000, Orange\n0.5000, 0.5000, 0.5000, Grey\n";

QImage iconImage(const QIcon &icon)
{
    return icon.pixmap(QSize(46, 34)).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage resourceImage(const QString &name)
{
    return iconImage(AppContext::widgetIcon(name));
}

QByteArray fileBytes(const QString &path)
{
    return FixtureFile::read(path);
}

} // namespace

// The "Data" page inside a real main window: its toolbar, the four file
// commands, the question before changes are lost, adding a picked colour,
// and closing the window with unsaved changes.
class TestChartDataWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void toolBarIsVerticalFixedAndOnTheLeft();
    void toolBarHoldsCaptionThenNewOpenSaveSaveAs();
    void toolBarButtonsShowTheirIcons_data();
    void toolBarButtonsShowTheirIcons();
    void startsEmptyUnmodifiedAndWithoutTitlePart();
    void newMakesAnUntitledSet();
    void unknownCommandsDoNothing();

    void saveAsWithoutSuffixWritesTxt();
    void saveAsWithCsvKeepsTheChosenName();
    void csvAndTxtFilesHoldTheSameLines();
    void saveAsStartsInTheDataFolderForAnUntitledSet();
    void saveAsStartsAtTheCurrentFileOnceTitled();
    void cancelledSaveAsChangesNothing();
    void firstSaveOfAnUntitledSetGoesThroughSaveAs();
    void saveOfATitledSetWritesWithoutAsking();
    void failedSaveKeepsTheSetModified();

    void openShowsTheRowsAndTheFileNameInTheTitle();
    void openingAFileWithABadLine7ShowsTheFormatErrorAndAnEmptyGrid();
    void openingAMissingFileShowsTheOpenError();
    void cancelledOpenChangesNothing();
    void afterSaveAsIntoAnotherFolderTheNextOpenStartsThere();
    void openAfterDiscardingChangesStaysModified();

    void newOnAModifiedSetAsksAndNoDiscardsTheChanges();
    void newOnAModifiedSetCancelKeepsTheChanges();
    void maybeSaveYesSavesThroughSaveAs();
    void maybeSaveYesWithSaveAsCancelledKeepsTheChanges();

    void deleteClickRemovesTheRowShowsTheModifiedIconAndRecomposesTheTitle();
    void renameMarksTheSetModified();

    void closingWithChangesAndCancelKeepsTheWindowOpenAndWritesNoSettings();
    void closingWithChangesAndNoDiscardsThemAndSavesSettings();
    void closingWithChangesAndYesSavesTheDataAndSettings();
    void closingWithoutChangesAsksNothing();

    void addedColourGoesToTheCurrentSetAndTheDataPageShows();
    void addedColourToANewFileOffersToSaveFirst();
    void addedColourOpensAnExistingFileFirst();
    void cancelledOpenForAnAddedColourAddsNothing();
    void cancelledAddColourDialogAddsNothing();
    void addColourHelpGoesToTheMainWindow();

private:
    void makeWindow();
    CChartDataWindow *page() const { return m_window->dataPage(); }
    void click(int command);
    QString writeDataFile(const QString &name, const QByteArray &bytes = kThreeColours);
    void addRows(int count);
    void openThreeColours(const QString &name = QStringLiteral("colours.txt"));
    bool saveIconShowsModified() const;
    QString versionTitle() const { return AppContext::versionTitle(); }

    GuiTestFixture m_fixture;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CMainWindow> m_window;
};

void TestChartDataWindow::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestChartDataWindow::init()
{
    m_fixture.reset();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    makeWindow();
}

void TestChartDataWindow::cleanup()
{
    m_window.reset();
    m_dir.reset();
}

void TestChartDataWindow::makeWindow()
{
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->tabWidget()->setCurrentIndex(1);
}

void TestChartDataWindow::click(int command)
{
    QToolButton *button = page()->commandButton(command);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

QString TestChartDataWindow::writeDataFile(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir->filePath(name);
    FixtureFile::write(path, bytes);
    return path;
}

void TestChartDataWindow::addRows(int count)
{
    for (int i = 0; i < count; ++i)
        page()->model()->appendEntry(std::make_unique<CColourTableEntry>(
            QStringLiteral("Added %1").arg(i), 0.25 * i, 0.5, 0.75));
    page()->model()->setModified(true);
}

void TestChartDataWindow::openThreeColours(const QString &name)
{
    const QString path = writeDataFile(name);
    ModalSequence answers({{QString(), DialogActions::chooseFile(path)}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(page()->model()->rowCount(), 3);
}

bool TestChartDataWindow::saveIconShowsModified() const
{
    const QImage shown = iconImage(page()->commandButton(CmdSaveData)->icon());
    return shown == resourceImage(QStringLiteral("sm_toolbar/btn_toolbar_save_data_mod.png"));
}

void TestChartDataWindow::toolBarIsVerticalFixedAndOnTheLeft()
{
    QToolBar *toolBar = page()->pageToolBar();
    QCOMPARE(toolBar->orientation(), Qt::Vertical);
    QCOMPARE(toolBar->allowedAreas(), Qt::ToolBarAreas(Qt::LeftToolBarArea));
    QVERIFY(!toolBar->isMovable());
    QVERIFY(!toolBar->isFloatable());
    QVERIFY(toolBar->geometry().right() < page()->tabContainer()->geometry().left());
}

void TestChartDataWindow::toolBarHoldsCaptionThenNewOpenSaveSaveAs()
{
    auto *box = page()->pageToolBar()->findChild<QGroupBox *>();
    QVERIFY(box);
    QVERIFY(box->isFlat());
    auto *caption = box->findChild<QLabel *>();
    QCOMPARE(caption->text(), QStringLiteral("Colour Data"));
    QVERIFY(caption->alignment() & Qt::AlignHCenter);
    int lastTop = caption->geometry().top();
    const QStringList tips = {"New data file", "Open data file", "Save data file",
                              "Save data file As"};
    for (int id = CmdNewData; id <= CmdSaveDataAs; ++id) {
        QToolButton *button = page()->commandButton(id);
        QCOMPARE(button->parentWidget(), static_cast<QWidget *>(box));
        QCOMPARE(button->toolTip(), tips.at(id - CmdNewData));
        QVERIFY(!button->isCheckable());
        QVERIFY(button->geometry().top() > lastTop);
        lastTop = button->geometry().top();
    }
}

void TestChartDataWindow::toolBarButtonsShowTheirIcons_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("icon");
    QTest::newRow("new") << int(CmdNewData) << "sm_toolbar/btn_toolbar_new_data.png";
    QTest::newRow("open") << int(CmdOpenData) << "sm_toolbar/btn_toolbar_open_data.png";
    QTest::newRow("save") << int(CmdSaveData) << "sm_toolbar/btn_toolbar_save_data.png";
    QTest::newRow("save as") << int(CmdSaveDataAs) << "sm_toolbar/btn_toolbar_save_as_data.png";
}

void TestChartDataWindow::toolBarButtonsShowTheirIcons()
{
    QFETCH(int, command);
    QFETCH(QString, icon);
    const QImage expected = resourceImage(icon);
    QVERIFY(!expected.isNull());
    QCOMPARE(iconImage(page()->commandButton(command)->icon()), expected);
}

void TestChartDataWindow::startsEmptyUnmodifiedAndWithoutTitlePart()
{
    QCOMPARE(page()->model()->rowCount(), 0);
    QCOMPARE(page()->grid()->view()->horizontalHeader()->count(), 11);
    QVERIFY(!page()->isModified());
    QCOMPARE(page()->title(), QString());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestChartDataWindow::newMakesAnUntitledSet()
{
    click(CmdNewData);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
    QVERIFY(page()->dataTable()->isUntitled());
    QVERIFY(!page()->isModified());
}

void TestChartDataWindow::unknownCommandsDoNothing()
{
    addRows(1);
    page()->processCommand(CmdZoomActual);
    page()->processCommand(CmdMaintainLibrary);
    QVERIFY(page()->isModified());
    QCOMPARE(page()->model()->rowCount(), 1);
}

void TestChartDataWindow::saveAsWithoutSuffixWritesTxt()
{
    click(CmdNewData);
    addRows(2);
    QVERIFY(saveIconShowsModified());
    ModalSequence answers({{QString(), DialogActions::chooseFile(m_dir->filePath("colours"))}});
    click(CmdSaveDataAs);
    QCOMPARE(answers.answeredCount(), 1);
    QVERIFY(!QFileInfo::exists(m_dir->filePath("colours")));
    QCOMPARE(fileBytes(m_dir->filePath("colours.txt")),
             QByteArray("0.0000, 0.5000, 0.7500, Added 0\n0.2500, 0.5000, 0.7500, Added 1\n"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("colours.txt - Vellora v1.0.0"));
    QVERIFY(!page()->isModified());
    QVERIFY(!saveIconShowsModified());
}

void TestChartDataWindow::saveAsWithCsvKeepsTheChosenName()
{
    addRows(1);
    ModalSequence answers({{QString(), DialogActions::chooseFile(m_dir->filePath("colours.csv"))}});
    click(CmdSaveDataAs);
    QCOMPARE(answers.answeredCount(), 1);
    QVERIFY(QFileInfo::exists(m_dir->filePath("colours.csv")));
    QVERIFY(!QFileInfo::exists(m_dir->filePath("colours.csv.txt")));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("colours.csv - Vellora v1.0.0"));
}

void TestChartDataWindow::csvAndTxtFilesHoldTheSameLines()
{
    openThreeColours();
    {
        ModalSequence answers({{QString(), DialogActions::chooseFile(m_dir->filePath("a.txt"))}});
        click(CmdSaveDataAs);
        QCOMPARE(answers.answeredCount(), 1);
    }
    {
        ModalSequence answers({{QString(), DialogActions::chooseFile(m_dir->filePath("a.csv"))}});
        click(CmdSaveDataAs);
        QCOMPARE(answers.answeredCount(), 1);
    }
    QCOMPARE(fileBytes(m_dir->filePath("a.txt")), kThreeColours);
    QCOMPARE(fileBytes(m_dir->filePath("a.csv")), kThreeColours);
}

void TestChartDataWindow::saveAsStartsInTheDataFolderForAnUntitledSet()
{
    click(CmdNewData);
    addRows(1);
    const QString dataFolder = m_window->settings()->dataDir;
    QString shownFolder;
    QString caption;
    ModalSequence answers(
        {{QString(), DialogActions::chooseFile(m_dir->filePath("x.txt"), &shownFolder, &caption)}});
    click(CmdSaveDataAs);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Save File As"));
    QCOMPARE(QDir(shownFolder).canonicalPath(), QDir(dataFolder).canonicalPath());
    QVERIFY(!dataFolder.isEmpty());
}

void TestChartDataWindow::saveAsStartsAtTheCurrentFileOnceTitled()
{
    openThreeColours();
    QString shownFolder;
    ModalSequence answers(
        {{QString(), DialogActions::chooseFile(m_dir->filePath("y.txt"), &shownFolder)}});
    click(CmdSaveDataAs);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(QDir(shownFolder).canonicalPath(), QDir(m_dir->path()).canonicalPath());
}

void TestChartDataWindow::cancelledSaveAsChangesNothing()
{
    click(CmdNewData);
    addRows(1);
    ModalAnswerer answer(QStringLiteral("Cancel"));
    click(CmdSaveDataAs);
    QVERIFY(answer.wasAnswered());
    QVERIFY(page()->isModified());
    QVERIFY(saveIconShowsModified());
    QVERIFY(page()->dataTable()->isUntitled());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
}

void TestChartDataWindow::firstSaveOfAnUntitledSetGoesThroughSaveAs()
{
    click(CmdNewData);
    addRows(1);
    QString caption;
    ModalSequence answers(
        {{QString(), DialogActions::chooseFile(m_dir->filePath("first"), nullptr, &caption)}});
    click(CmdSaveData);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Save File As"));
    QVERIFY(QFileInfo::exists(m_dir->filePath("first.txt")));
    QVERIFY(!page()->isModified());
}

void TestChartDataWindow::saveOfATitledSetWritesWithoutAsking()
{
    const QString path = writeDataFile(QStringLiteral("colours.txt"));
    openThreeColours();
    page()->model()->deleteRecord(page()->model()->index(0, CDataModel::ColDelete));
    ModalAnswerer unexpected(QStringLiteral("Cancel"), ModalAnswerer::Action(), 300);
    click(CmdSaveData);
    // A dialog runs modally inside the command, so it would have been
    // answered by now; events the command posted get their turn too.
    QCoreApplication::processEvents();
    QVERIFY(!unexpected.wasAnswered());
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(fileBytes(path), QByteArray("# mine\n1.0000, 0.5000, 0.0000, Orange\n"
                                         "0.5000, 0.5000, 0.5000, Grey\n"));
    QVERIFY(!page()->isModified());
}

void TestChartDataWindow::failedSaveKeepsTheSetModified()
{
    // A plain file where a folder should be: the write fails and says so.
    FixtureFile::write(m_dir->filePath(QStringLiteral("plain")), "x");
    const QString blocked = m_dir->filePath(QStringLiteral("plain/blocked.txt"));
    addRows(1);
    ModalSequence answers({{QString(), DialogActions::chooseFile(blocked)},
                           {QStringLiteral("OK"), {}}});
    click(CmdSaveDataAs);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error, writing to file: %1.").arg(blocked));
    QVERIFY(page()->isModified());
    QVERIFY(saveIconShowsModified());
    QVERIFY(!QFileInfo::exists(blocked));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestChartDataWindow::openShowsTheRowsAndTheFileNameInTheTitle()
{
    QString caption;
    const QString path = writeDataFile(QStringLiteral("colours.txt"));
    ModalSequence answers({{QString(), DialogActions::chooseFile(path, nullptr, &caption)}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Open File"));
    QTableView *view = page()->grid()->view();
    QCOMPARE(view->verticalHeader()->count(), 3);
    QCOMPARE(view->model()->data(view->model()->index(1, CDataModel::ColName)).toString(),
             QStringLiteral("Orange"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("colours.txt - Vellora v1.0.0"));
    QCOMPARE(m_window->settings()->dataDir, QDir(m_dir->path()).canonicalPath());
    QVERIFY(!page()->isModified());
}

void TestChartDataWindow::openingAFileWithABadLine7ShowsTheFormatErrorAndAnEmptyGrid()
{
    openThreeColours();
    const QString bad = writeDataFile(QStringLiteral("bad.txt"),
                                      "# header\n0.1, 0.2, 0.3, A\n\n0.2, 0.3, 0.4, B\n# note\n"
                                      "0.3, 0.4, 0.5, C\n0.5, abc, 0.5, X\n0.1, 0.1, 0.1, D\n");
    ModalSequence answers({{QString(), DialogActions::chooseFile(bad)}, {QStringLiteral("OK"), {}}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1),
             QStringLiteral("Unable to load data table:\n%1\n\nError in line 7").arg(bad));
    QCOMPARE(page()->model()->rowCount(), 0);
    QCOMPARE(page()->grid()->view()->verticalHeader()->count(), 0);
}

void TestChartDataWindow::openingAMissingFileShowsTheOpenError()
{
    const QString missing = m_dir->filePath(QStringLiteral("missing.txt"));
    ModalSequence answers(
        {{QString(), DialogActions::chooseFile(missing)}, {QStringLiteral("OK"), {}}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1),
             QStringLiteral("Error while attempting to open data table:\n%1").arg(missing));
    QCOMPARE(page()->model()->rowCount(), 0);
}

void TestChartDataWindow::cancelledOpenChangesNothing()
{
    openThreeColours();
    ModalAnswerer answer(QStringLiteral("Cancel"));
    click(CmdOpenData);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(page()->model()->rowCount(), 3);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("colours.txt - Vellora v1.0.0"));
}

void TestChartDataWindow::afterSaveAsIntoAnotherFolderTheNextOpenStartsThere()
{
    const QString other = m_dir->filePath(QStringLiteral("elsewhere"));
    QVERIFY(QDir().mkpath(other));
    addRows(1);
    ModalSequence save({{QString(), DialogActions::chooseFile(other + "/kept.txt")}});
    click(CmdSaveDataAs);
    QCOMPARE(save.answeredCount(), 1);
    QCOMPARE(m_window->settings()->dataDir, QDir(other).canonicalPath());

    QString shownFolder;
    ModalAnswerer open(QStringLiteral("Cancel"), [&](QWidget *dialog) {
        if (auto *fileDialog = qobject_cast<QFileDialog *>(dialog))
            shownFolder = fileDialog->directory().absolutePath();
    });
    click(CmdOpenData);
    QVERIFY(open.wasAnswered());
    QCOMPARE(QDir(shownFolder).canonicalPath(), QDir(other).canonicalPath());
}

void TestChartDataWindow::openAfterDiscardingChangesStaysModified()
{
    addRows(1);
    const QString path = writeDataFile(QStringLiteral("colours.txt"));
    ModalSequence answers(
        {{QStringLiteral("No"), {}}, {QString(), DialogActions::chooseFile(path)}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(page()->model()->rowCount(), 3);
    QVERIFY(page()->isModified());
    QVERIFY(saveIconShowsModified());
}

void TestChartDataWindow::newOnAModifiedSetAsksAndNoDiscardsTheChanges()
{
    openThreeColours();
    page()->model()->deleteRecord(page()->model()->index(0, 0));
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    ModalAnswerer answer(QStringLiteral("No"), [&](QWidget *dialog) {
        if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            defaultButton = box->standardButton(box->defaultButton());
            icon = box->icon();
        }
    });
    click(CmdNewData);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(),
             QStringLiteral("Colour Data has been modified.\nWould you like to save your changes?"));
    QCOMPARE(defaultButton, QMessageBox::Yes);
    QCOMPARE(icon, QMessageBox::Question);
    QCOMPARE(page()->model()->rowCount(), 0);
    QVERIFY(!page()->isModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
    QCOMPARE(fileBytes(m_dir->filePath("colours.txt")), kThreeColours);
}

void TestChartDataWindow::newOnAModifiedSetCancelKeepsTheChanges()
{
    openThreeColours();
    page()->model()->deleteRecord(page()->model()->index(0, 0));
    ModalAnswerer answer(QStringLiteral("Cancel"));
    click(CmdNewData);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(page()->model()->rowCount(), 2);
    QVERIFY(page()->isModified());
    QVERIFY(!page()->dataTable()->isUntitled());
}

void TestChartDataWindow::maybeSaveYesSavesThroughSaveAs()
{
    addRows(2);
    ModalSequence answers({{QStringLiteral("Yes"), {}},
                           {QString(), DialogActions::chooseFile(m_dir->filePath("kept.csv"))}});
    QVERIFY(page()->maybeSave());
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(QFileInfo::exists(m_dir->filePath("kept.csv")));
    QVERIFY(!page()->isModified());
    QVERIFY(!saveIconShowsModified());
}

void TestChartDataWindow::maybeSaveYesWithSaveAsCancelledKeepsTheChanges()
{
    addRows(2);
    ModalSequence answers({{QStringLiteral("Yes"), {}}, {QStringLiteral("Cancel"), {}}});
    QVERIFY(!page()->maybeSave());
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(page()->isModified());
    QCOMPARE(page()->model()->rowCount(), 2);
}

void TestChartDataWindow::deleteClickRemovesTheRowShowsTheModifiedIconAndRecomposesTheTitle()
{
    openThreeColours();
    QVERIFY(!saveIconShowsModified());
    m_window->setWindowTitle(QStringLiteral("stale"));
    QTableView *view = page()->grid()->view();
    const QPoint pos =
        view->visualRect(view->model()->index(1, CDataModel::ColDelete)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    QCOMPARE(view->verticalHeader()->count(), 2);
    QCOMPARE(view->model()->data(view->model()->index(1, CDataModel::ColName)).toString(),
             QStringLiteral("Grey"));
    QVERIFY(saveIconShowsModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("colours.txt - Vellora v1.0.0"));
}

void TestChartDataWindow::renameMarksTheSetModified()
{
    openThreeColours();
    QTableView *view = page()->grid()->view();
    const QPoint pos = view->visualRect(view->model()->index(0, CDataModel::ColEdit)).center();
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Ocean"))}});
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(view->model()->data(view->model()->index(0, CDataModel::ColName)).toString(),
             QStringLiteral("Ocean"));
    QVERIFY(saveIconShowsModified());
}

void TestChartDataWindow::closingWithChangesAndCancelKeepsTheWindowOpenAndWritesNoSettings()
{
    addRows(1);
    m_window->settings()->maxRecordsDisplay = 7;
    ModalAnswerer answer(QStringLiteral("Cancel"));
    QVERIFY(!m_window->close());
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(),
             QStringLiteral("Colour Data has been modified.\nWould you like to save your changes?"));
    QVERIFY(m_window->isVisible());
    QVERIFY(!StoredSettings::contains(QStringLiteral("Layout/mainwindow")));
    QVERIFY(!StoredSettings::contains(QStringLiteral("General/maxRecordsDisplay")));
    QVERIFY(page()->isModified());
}

void TestChartDataWindow::closingWithChangesAndNoDiscardsThemAndSavesSettings()
{
    openThreeColours();
    page()->model()->deleteRecord(page()->model()->index(0, 0));
    m_window->settings()->maxRecordsDisplay = 7;
    ModalAnswerer answer(QStringLiteral("No"));
    QVERIFY(m_window->close());
    QVERIFY(answer.wasAnswered());
    QVERIFY(!m_window->isVisible());
    QCOMPARE(StoredSettings::value(QStringLiteral("General/maxRecordsDisplay")).toInt(), 7);
    QVERIFY(StoredSettings::contains(QStringLiteral("Layout/mainwindow")));
    QCOMPARE(fileBytes(m_dir->filePath("colours.txt")), kThreeColours);
}

void TestChartDataWindow::closingWithChangesAndYesSavesTheDataAndSettings()
{
    addRows(1);
    const QString path = m_dir->filePath(QStringLiteral("closing.txt"));
    ModalSequence answers({{QStringLiteral("Yes"), {}}, {QString(), DialogActions::chooseFile(path)}});
    QVERIFY(m_window->close());
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(fileBytes(path), QByteArray("0.0000, 0.5000, 0.7500, Added 0\n"));
    QCOMPARE(StoredSettings::value(QStringLiteral("DataDirectory/directory")).toString(),
             QDir(m_dir->path()).canonicalPath());
}

void TestChartDataWindow::closingWithoutChangesAsksNothing()
{
    openThreeColours();
    ModalAnswerer unexpected(QStringLiteral("Cancel"), ModalAnswerer::Action(), 300);
    QVERIFY(m_window->close());
    QVERIFY(!unexpected.wasAnswered());
    QVERIFY(StoredSettings::contains(QStringLiteral("Layout/mainwindow")));
}

void TestChartDataWindow::addedColourGoesToTheCurrentSetAndTheDataPageShows()
{
    click(CmdNewData);
    m_window->tabWidget()->setCurrentIndex(0);
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Picked"))}});
    QVERIFY(m_window->addColourToDataSet(1.0, 0.5, 0.0));
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(answers.title(0), QStringLiteral("Vellora - Add Colour Data"));
    QCOMPARE(m_window->tabWidget()->currentIndex(), 1);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
    QCOMPARE(page()->model()->rowCount(), 1);
    QTableView *view = page()->grid()->view();
    QCOMPARE(view->model()->data(view->model()->index(0, CDataModel::ColName)).toString(),
             QStringLiteral("Picked"));
    QCOMPARE(view->model()->data(view->model()->index(0, CDataModel::ColSwatch)).toString(),
             QStringLiteral("#ff8000"));
    QVERIFY(page()->isModified());
    QVERIFY(saveIconShowsModified());
}

void TestChartDataWindow::addedColourToANewFileOffersToSaveFirst()
{
    openThreeColours();
    page()->model()->deleteRecord(page()->model()->index(0, 0));
    auto chooseNewFile = [](QWidget *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("Fresh"));
        if (auto *add = qobject_cast<CDlgDataColourAdd *>(dialog))
            DialogActions::clickRadio(add->choiceButton(CDlgDataColourAdd::AddToNew));
    };
    ModalSequence answers({{QStringLiteral("OK"), chooseNewFile}, {QStringLiteral("No"), {}}});
    QVERIFY(page()->addColour(0.2, 0.4, 0.6));
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1),
             QStringLiteral("Colour Data has been modified.\nWould you like to save your changes?"));
    QCOMPARE(page()->model()->rowCount(), 1);
    QCOMPARE(page()->dataTable()->at(0)->name, QStringLiteral("Fresh"));
    QVERIFY(page()->dataTable()->isUntitled());
    QVERIFY(page()->isModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
    QCOMPARE(fileBytes(m_dir->filePath("colours.txt")), kThreeColours);
}

void TestChartDataWindow::addedColourOpensAnExistingFileFirst()
{
    const QString path = writeDataFile(QStringLiteral("existing.txt"));
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Extra"))},
                           {QString(), DialogActions::chooseFile(path)}});
    QVERIFY(m_window->addColourToDataSet(0.0, 0.0, 1.0));
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.dialogClass(1), QStringLiteral("QFileDialog"));
    QCOMPARE(page()->model()->rowCount(), 4);
    QCOMPARE(page()->dataTable()->at(3)->name, QStringLiteral("Extra"));
    QVERIFY(page()->isModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("existing.txt - Vellora v1.0.0"));
}

void TestChartDataWindow::cancelledOpenForAnAddedColourAddsNothing()
{
    m_window->tabWidget()->setCurrentIndex(0);
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Extra"))},
                           {QStringLiteral("Cancel"), {}}});
    QVERIFY(!m_window->addColourToDataSet(0.0, 0.0, 1.0));
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(page()->model()->rowCount(), 0);
    QVERIFY(!page()->isModified());
    QCOMPARE(m_window->tabWidget()->currentIndex(), 0);
}

void TestChartDataWindow::cancelledAddColourDialogAddsNothing()
{
    click(CmdNewData);
    ModalSequence answers({{QStringLiteral("Cancel"), DialogActions::typeText(QStringLiteral("X"))}});
    QVERIFY(!page()->addColour(0.3, 0.3, 0.3));
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(page()->model()->rowCount(), 0);
    QVERIFY(!page()->isModified());
}

void TestChartDataWindow::addColourHelpGoesToTheMainWindow()
{
    QSignalSpy forwarded(page(), &CChartDataWindow::displayHelpSignal);
    ModalAnswerer answer(QStringLiteral("Cancel"), [&](QWidget *dialog) {
        if (auto *add = qobject_cast<CDlgDataColourAdd *>(dialog))
            emit add->displayHelpSignal(QStringLiteral("data.html#dataAddColour"));
    });
    QVERIFY(!page()->addColour(0.3, 0.3, 0.3));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(forwarded.count(), 1);
    QCOMPARE(forwarded.at(0).at(0).toString(), QStringLiteral("data.html#dataAddColour"));
    QVERIFY(QObject::disconnect(page(), &CChartDataWindow::displayHelpSignal, m_window.get(),
                                &CMainWindow::displayHelp));
}

QTEST_MAIN(TestChartDataWindow)
#include "tst_chartdatawindow.moc"
