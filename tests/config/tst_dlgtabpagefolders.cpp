#include "app/appsettings.h"
#include "config/dlgtabpagefolders.h"
#include "help/elidedlabel.h"
#include "help/qgroupboxbold.h"

#include "support/modalsequence.h"
#include "support/temphome.h"

#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QtTest>

#include <memory>

class TestDlgTabPageFolders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void groupsButtonsAndPathsInNativeSeparators();
    void groupsShareThePageWidthEqually();
    void browseCaptionsStayAsTheyAre_data();
    void browseCaptionsStayAsTheyAre();
    void browseStartsAtTheWorkingCopy();
    void browseOptionsShowOnlyFolders();
    void cancelledBrowseChangesNothing();
    void chosenFolderIsShownAndAppliedButNotCreated();
    void resetDefaultShowsTheStoredDefault();
    void applyReportsOnlyTheLibraryFolder();
    void choosingTheFolderAlreadySetIsNoChange_data();
    void choosingTheFolderAlreadySetIsNoChange();
    void resetToTheStoredFolderSpeltOtherwiseIsNoChange_data();
    void resetToTheStoredFolderSpeltOtherwiseIsNoChange();
    void resetToAnotherFolderIsStillAChange();

private:
    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<CAppSettings> m_settings;
};

void TestDlgTabPageFolders::initTestCase()
{
    m_home = std::make_unique<TempHome>();
    QVERIFY(m_home->isValid());
}

void TestDlgTabPageFolders::init()
{
    TempHome::clearSettings();
    m_settings = std::make_unique<CAppSettings>();
}

void TestDlgTabPageFolders::cleanup()
{
    m_settings.reset();
}

void TestDlgTabPageFolders::groupsButtonsAndPathsInNativeSeparators()
{
    CDlgTabPageFolders page(m_settings.get());
    const QList<QGroupBoxBold *> groups = page.findChildren<QGroupBoxBold *>();
    QCOMPARE(groups.size(), 2);
    QCOMPARE(groups.at(0)->title(), QStringLiteral("Colour Data Folder"));
    QCOMPARE(groups.at(1)->title(), QStringLiteral("Colour Match Library Folder"));
    QCOMPARE(page.dataBrowseButton()->text(), QStringLiteral("B&rowse"));
    QCOMPARE(page.dataDefaultButton()->text(), QStringLiteral("Reset &Default"));
    QCOMPARE(page.libraryBrowseButton()->text(), QStringLiteral("B&rowse"));
    QCOMPARE(page.libraryDefaultButton()->text(), QStringLiteral("Reset &Default"));
    QCOMPARE(page.dataLabel()->text(), QDir::toNativeSeparators(m_settings->dataDir));
    QCOMPARE(page.libraryLabel()->text(), QDir::toNativeSeparators(m_settings->libraryDir));
    QVERIFY(!page.dataChanged());
    QVERIFY(!page.libraryChanged());
    QCOMPARE(page.helpAnchor(), QStringLiteral("config.html#configFolders"));
}

void TestDlgTabPageFolders::groupsShareThePageWidthEqually()
{
    CDlgTabPageFolders page(m_settings.get());
    page.resize(900, 300);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QList<QGroupBoxBold *> groups = page.findChildren<QGroupBoxBold *>();
    QVERIFY(qAbs(groups.at(0)->width() - groups.at(1)->width()) <= 1);
    QVERIFY(groups.at(0)->width() > 900 / 2 - 30);
    QCOMPARE(groups.at(0)->y(), groups.at(1)->y());
}

void TestDlgTabPageFolders::browseCaptionsStayAsTheyAre_data()
{
    QTest::addColumn<bool>("library");
    QTest::addColumn<QString>("caption");
    QTest::newRow("data") << false << "Select the location of the  Data ... FIX THIS MESSAGE";
    QTest::newRow("library")
        << true << "Select the location of the  colour library match tables  ... FIX THIS MESSAGE";
}

void TestDlgTabPageFolders::browseCaptionsStayAsTheyAre()
{
    QFETCH(bool, library);
    QFETCH(QString, caption);
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QString shownCaption;
    ModalAnswerer answer(QString(), [&shownCaption](QWidget *dialog) {
        shownCaption = dialog->windowTitle();
        static_cast<QDialog *>(dialog)->reject();
    });
    QTest::mouseClick(library ? page.libraryBrowseButton() : page.dataBrowseButton(),
                      Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(shownCaption, caption);
}

void TestDlgTabPageFolders::browseStartsAtTheWorkingCopy()
{
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QString shown;
    ModalAnswerer answer(QString(), [&shown](QWidget *dialog) {
        shown = static_cast<QFileDialog *>(dialog)->directory().absolutePath();
        static_cast<QDialog *>(dialog)->reject();
    });
    QTest::mouseClick(page.dataBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(QDir(shown).canonicalPath(), QDir(m_settings->dataDir).canonicalPath());
}

void TestDlgTabPageFolders::browseOptionsShowOnlyFolders()
{
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QFileDialog::Options options;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
    QWidget *parent = nullptr;
    ModalAnswerer answer(QString(), [&](QWidget *dialog) {
        auto *fileDialog = static_cast<QFileDialog *>(dialog);
        options = fileDialog->options();
        mode = fileDialog->fileMode();
        parent = fileDialog->parentWidget();
        fileDialog->reject();
    });
    QTest::mouseClick(page.libraryBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QVERIFY(options.testFlag(QFileDialog::ShowDirsOnly));
    QVERIFY(options.testFlag(QFileDialog::ReadOnly));
    // Folders only: the dialog picks no files.
    QVERIFY(mode != QFileDialog::AnyFile && mode != QFileDialog::ExistingFile
            && mode != QFileDialog::ExistingFiles);
    QCOMPARE(parent, static_cast<QWidget *>(&page));
}

void TestDlgTabPageFolders::cancelledBrowseChangesNothing()
{
    const QString before = m_settings->dataDir;
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    ModalAnswerer answer(QStringLiteral("Cancel"));
    QTest::mouseClick(page.dataBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(page.dataPath(), before);
    QCOMPARE(page.dataLabel()->text(), QDir::toNativeSeparators(before));
    QVERIFY(!page.applyChanges());
    QVERIFY(!page.dataChanged());
    QCOMPARE(m_settings->dataDir, before);
}

void TestDlgTabPageFolders::chosenFolderIsShownAndAppliedButNotCreated()
{
    const QString chosen = m_home->path() + QStringLiteral("/elsewhere/data");
    QVERIFY(QDir().mkpath(chosen));
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    ModalAnswerer answer(QString(), DialogActions::chooseFile(chosen));
    QTest::mouseClick(page.dataBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(QDir(page.dataPath()).canonicalPath(), QDir(chosen).canonicalPath());
    QCOMPARE(page.dataLabel()->text(), QDir::toNativeSeparators(page.dataPath()));
    // The folder is removed before OK: the page neither checks nor recreates it.
    QVERIFY(QDir(chosen).removeRecursively());
    QVERIFY(!page.applyChanges());
    QVERIFY(page.dataChanged());
    QCOMPARE(m_settings->dataDir, page.dataPath());
    QVERIFY(!QDir(chosen).exists());
}

void TestDlgTabPageFolders::resetDefaultShowsTheStoredDefault()
{
    m_settings->dataDefaultDir = m_home->path() + QStringLiteral("/stored/default");
    m_settings->dataDir = m_home->path() + QStringLiteral("/current");
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QTest::mouseClick(page.dataDefaultButton(), Qt::LeftButton);
    QCOMPARE(page.dataPath(), m_settings->dataDefaultDir);
    QCOMPARE(page.dataLabel()->text(), QDir::toNativeSeparators(m_settings->dataDefaultDir));
    QVERIFY(!QDir(m_settings->dataDefaultDir).exists());
    // Nothing is stored until the page applies.
    QCOMPARE(m_settings->dataDir, m_home->path() + QStringLiteral("/current"));
    page.applyChanges();
    QCOMPARE(m_settings->dataDir, m_settings->dataDefaultDir);
}

void TestDlgTabPageFolders::applyReportsOnlyTheLibraryFolder()
{
    m_settings->libraryDir = m_home->path() + QStringLiteral("/mylib");
    m_settings->dataDir = m_home->path() + QStringLiteral("/mydata");
    {
        CDlgTabPageFolders page(m_settings.get());
        page.show();
        QTest::mouseClick(page.dataDefaultButton(), Qt::LeftButton);
        QVERIFY(!page.applyChanges());
        QVERIFY(page.dataChanged());
        QVERIFY(!page.libraryChanged());
    }
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QTest::mouseClick(page.libraryDefaultButton(), Qt::LeftButton);
    QVERIFY(page.applyChanges());
    QVERIFY(page.libraryChanged());
    QVERIFY(!page.dataChanged());
    QCOMPARE(m_settings->libraryDir, m_settings->libraryDefaultDir);
}

void TestDlgTabPageFolders::choosingTheFolderAlreadySetIsNoChange_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("as stored") << "";
    QTest::newRow("with a trailing separator") << "/";
}

void TestDlgTabPageFolders::choosingTheFolderAlreadySetIsNoChange()
{
    QFETCH(QString, suffix);
    const QString current = m_settings->libraryDir;
    QVERIFY(QDir(current).exists());
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    ModalAnswerer answer(QString(), DialogActions::chooseFile(current + suffix));
    QTest::mouseClick(page.libraryBrowseButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QVERIFY(!page.applyChanges());
    QVERIFY(!page.libraryChanged());
    QCOMPARE(m_settings->libraryDir, current);
}

void TestDlgTabPageFolders::resetToTheStoredFolderSpeltOtherwiseIsNoChange_data()
{
    QTest::addColumn<bool>("library");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("library, trailing separator") << true << "/";
    QTest::newRow("library, dot") << true << "/.";
    QTest::newRow("library, doubled separator") << true << "//";
    QTest::newRow("data, trailing separator") << false << "/";
    QTest::newRow("data, dot and separator") << false << "/./";
}

// The stored folder is the default spelt another way: "Reset Default"
// chooses the folder already in use, so applying changes nothing, and the
// stored spelling stays.
void TestDlgTabPageFolders::resetToTheStoredFolderSpeltOtherwiseIsNoChange()
{
    QFETCH(bool, library);
    QFETCH(QString, suffix);
    QString &stored = library ? m_settings->libraryDir : m_settings->dataDir;
    const QString defaultDir =
        library ? m_settings->libraryDefaultDir : m_settings->dataDefaultDir;
    QVERIFY(!defaultDir.isEmpty());
    stored = defaultDir + suffix;
    const QString spelt = stored;
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QTest::mouseClick(library ? page.libraryDefaultButton() : page.dataDefaultButton(),
                      Qt::LeftButton);
    QCOMPARE(library ? page.libraryPath() : page.dataPath(), defaultDir);
    QVERIFY(!page.applyChanges());
    QVERIFY(!page.libraryChanged());
    QVERIFY(!page.dataChanged());
    QCOMPARE(stored, spelt);
}

void TestDlgTabPageFolders::resetToAnotherFolderIsStillAChange()
{
    m_settings->libraryDir = m_settings->libraryDefaultDir + QStringLiteral("/elsewhere/");
    CDlgTabPageFolders page(m_settings.get());
    page.show();
    QTest::mouseClick(page.libraryDefaultButton(), Qt::LeftButton);
    QVERIFY(page.applyChanges());
    QVERIFY(page.libraryChanged());
    QCOMPARE(m_settings->libraryDir, m_settings->libraryDefaultDir);
}

QTEST_MAIN(TestDlgTabPageFolders)
#include "tst_dlgtabpagefolders.moc"
