#include "app/appsettings.h"
#include "config/configdlg.h"
#include "config/dlgtabpageadvanced.h"
#include "config/dlgtabpagefolders.h"
#include "config/dlgtabpagegeneral.h"
#include "help/elidedlabel.h"

#include "support/modalsequence.h"
#include "support/storedsettings.h"
#include "support/temphome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QtTest>

#include <memory>

namespace {
// An address nothing listens on: no test may reach the internet.
const QString kNoService = QStringLiteral("https://127.0.0.1:1");
} // namespace

class TestConfigDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void titleTabsAndButtons();
    void helpButtonSendsTheAnchorOfTheCurrentPage_data();
    void helpButtonSendsTheAnchorOfTheCurrentPage();
    void helpKeySendsTheAnchorOfTheCurrentPage();
    void helpWithoutAPageSendsTheManualsConfigPage();
    void okAppliesEveryPageEvenAfterAnEarlierChange();
    void okWithoutChangesReportsNone();
    void cancelLeavesTheSettingsUntouched();
    void hexFormatAndOkIsStoredAtTheNextSave();
    void resetDefaultThenCancelKeepsTheOldFolder();
    void choosingTheLibraryFolderAlreadySetIsNoChange();
    void choosingAnotherLibraryFolderIsAChange();

private:
    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<CAppSettings> m_settings;
};

void TestConfigDlg::initTestCase()
{
    m_home = std::make_unique<TempHome>();
    QVERIFY(m_home->isValid());
}

void TestConfigDlg::init()
{
    TempHome::clearSettings();
    m_settings = std::make_unique<CAppSettings>();
}

void TestConfigDlg::cleanup()
{
    m_settings.reset();
}

void TestConfigDlg::titleTabsAndButtons()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Vellora - Configuration"));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.tabWidget()->count(), 3);
    QCOMPARE(dialog.tabWidget()->tabText(0), QStringLiteral("General"));
    QCOMPARE(dialog.tabWidget()->tabText(1), QStringLiteral("Data Folders"));
    QCOMPARE(dialog.tabWidget()->tabText(2), QStringLiteral("Advanced"));
    QCOMPARE(dialog.okButton()->text(), QStringLiteral("&OK"));
    QCOMPARE(dialog.helpButton()->text(), QStringLiteral("&Help"));
    QCOMPARE(dialog.cancelButton()->text(), QStringLiteral("&Cancel"));
}

void TestConfigDlg::helpButtonSendsTheAnchorOfTheCurrentPage_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("anchor");
    QTest::newRow("General") << 0 << "config.html#configGeneral";
    QTest::newRow("Data Folders") << 1 << "config.html#configFolders";
    QTest::newRow("Advanced") << 2 << "config.html#configAdvanced";
}

void TestConfigDlg::helpButtonSendsTheAnchorOfTheCurrentPage()
{
    QFETCH(int, tab);
    QFETCH(QString, anchor);
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    QSignalSpy help(&dialog, &CConfigDlg::displayHelpSignal);
    dialog.tabWidget()->setCurrentIndex(tab);
    QTest::mouseClick(dialog.helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.first().first().toString(), anchor);
    QVERIFY(dialog.isVisible());
}

void TestConfigDlg::helpKeySendsTheAnchorOfTheCurrentPage()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QSignalSpy help(&dialog, &CConfigDlg::displayHelpSignal);
    dialog.tabWidget()->setCurrentIndex(1);
    const QKeySequence key(QKeySequence::HelpContents);
    QVERIFY(!key.isEmpty());
    QTest::keySequence(&dialog, key);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.first().first().toString(), QStringLiteral("config.html#configFolders"));
}

void TestConfigDlg::helpWithoutAPageSendsTheManualsConfigPage()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    QSignalSpy help(&dialog, &CConfigDlg::displayHelpSignal);
    dialog.tabWidget()->clear();
    dialog.displayHelp();
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.first().first().toString(), QStringLiteral("config.html"));
}

void TestConfigDlg::okAppliesEveryPageEvenAfterAnEarlierChange()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    // A change on the first page must not keep the later pages from applying.
    DialogActions::clickRadio(dialog.generalPage()->decimalButton());
    dialog.tabWidget()->setCurrentIndex(1);
    QTest::mouseClick(dialog.foldersPage()->dataDefaultButton(), Qt::LeftButton);
    dialog.tabWidget()->setCurrentIndex(2);
    DialogActions::clickRadio(dialog.advancedPage()->labAverageButton());
    DialogActions::clickRadio(dialog.advancedPage()->deltaEButton());
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(dialog.changed());
    QCOMPARE(m_settings->rgbFormat, 1);
    QCOMPARE(m_settings->rgbAverage, false);
    QCOMPARE(m_settings->rgbDifference, false);
}

void TestConfigDlg::okWithoutChangesReportsNone()
{
    const QString dataDir = m_settings->dataDir;
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.changed());
    QVERIFY(!dialog.libraryChanged());
    QCOMPARE(m_settings->dataDir, dataDir);
}

void TestConfigDlg::cancelLeavesTheSettingsUntouched()
{
    const QString dataDir = m_settings->dataDir;
    const QString libraryDir = m_settings->libraryDir;
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    DialogActions::clickRadio(dialog.generalPage()->hexButton());
    dialog.generalPage()->matchCountCombo()->setCurrentIndex(7);
    QTest::mouseClick(dialog.generalPage()->startTipCheck(), Qt::LeftButton);
    DialogActions::clickRadio(dialog.advancedPage()->labAverageButton());
    DialogActions::clickRadio(dialog.advancedPage()->deltaEButton());
    QTest::mouseClick(dialog.cancelButton(), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QVERIFY(!dialog.changed());
    QCOMPARE(m_settings->rgbFormat, 0);
    QCOMPARE(m_settings->maxRecordsDisplay, 4);
    QCOMPARE(m_settings->showStartTip, true);
    QCOMPARE(m_settings->rgbAverage, true);
    QCOMPARE(m_settings->rgbDifference, true);
    QCOMPARE(m_settings->dataDir, dataDir);
    QCOMPARE(m_settings->libraryDir, libraryDir);
}

void TestConfigDlg::hexFormatAndOkIsStoredAtTheNextSave()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    DialogActions::clickRadio(dialog.generalPage()->hexButton());
    QVERIFY(dialog.generalPage()->hexButton()->isChecked());
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QCOMPARE(m_settings->rgbFormat, 2);
    QVERIFY(dialog.changed());
    // Not piecemeal: the store learns of it only when the settings are saved.
    QVERIFY(!StoredSettings::contains(QStringLiteral("Colour/rgbFormat")));
    m_settings->save(nullptr);
    QCOMPARE(StoredSettings::value(QStringLiteral("Colour/rgbFormat")).toInt(), 2);
}

void TestConfigDlg::resetDefaultThenCancelKeepsTheOldFolder()
{
    const QString chosen = m_home->path() + QStringLiteral("/chosen/library");
    QVERIFY(QDir().mkpath(chosen));
    m_settings->libraryDir = chosen;
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    dialog.tabWidget()->setCurrentIndex(1);
    CDlgTabPageFolders *page = dialog.foldersPage();
    QCOMPARE(page->libraryLabel()->text(), QDir::toNativeSeparators(chosen));
    QTest::mouseClick(page->libraryDefaultButton(), Qt::LeftButton);
    QCOMPARE(page->libraryLabel()->text(),
             QDir::toNativeSeparators(m_settings->libraryDefaultDir));
    QTest::mouseClick(dialog.cancelButton(), Qt::LeftButton);
    QCOMPARE(m_settings->libraryDir, chosen);
    QVERIFY(!dialog.libraryChanged());
}

void TestConfigDlg::choosingTheLibraryFolderAlreadySetIsNoChange()
{
    const QString current = m_settings->libraryDir;
    QVERIFY(QDir(current).exists());
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    dialog.tabWidget()->setCurrentIndex(1);
    ModalAnswerer answer(QString(), DialogActions::chooseFile(current));
    QTest::mouseClick(dialog.foldersPage()->libraryBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QVERIFY(!dialog.libraryChanged());
    QVERIFY(!dialog.changed());
    QCOMPARE(m_settings->libraryDir, current);
}

void TestConfigDlg::choosingAnotherLibraryFolderIsAChange()
{
    const QString other = m_home->path() + QStringLiteral("/other");
    QVERIFY(QDir().mkpath(other));
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.show();
    dialog.tabWidget()->setCurrentIndex(1);
    ModalAnswerer answer(QString(), DialogActions::chooseFile(other));
    QTest::mouseClick(dialog.foldersPage()->libraryBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QVERIFY(dialog.libraryChanged());
    QVERIFY(dialog.changed());
    QCOMPARE(QDir(m_settings->libraryDir).canonicalPath(), QDir(other).canonicalPath());
}

QTEST_MAIN(TestConfigDlg)
#include "tst_configdlg.moc"
