#include "common/appcontext.h"
#include "app/appsettings.h"
#include "library/dlgedittable.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabgeneral.h"
#include "library/libcolourtabletabimport.h"
#include "tables/colourlibrary.h"

#include "support/filesizelimit.h"
#include "support/fixturefile.h"
#include "support/modalsequence.h"
#include "support/librarytesthome.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QtTest>

#include <memory>

using Step = ModalSequence::Step;

// The maintenance dialog and its "Maintenance" page: the list of tables and
// the five operations, driven by clicks, with every box answered as a user
// would, and the library folder checked afterwards.
class TestLibColourTableDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    // Layout and help
    void titleTabsAndButtons();
    void groupTitlesAreBoldAndTheirChildrenNormal();
    void helpNamesTheCurrentPagesAnchor();
    void helpKeyNamesTheCurrentPagesAnchor();

    // Listing
    void emptyLibraryLeavesTheChooserEmpty();
    void namesDifferingOnlyInCaseSortTogether();
    void itemsCarryTheCanonicalPath();

    // New
    void newWritesAnEmptyTableAndListsIt();
    void newPromptHasNoCaptionAndRefusesABlankName();
    void newWithAnExistingNameAsksAndYesReplacesItWithAnEmptyTable();
    void newWithAnExistingNameAndNoKeepsTheTable();
    void newThatCannotWriteShowsTheWriteError();
    void newWithAnUnusableName_data();
    void newWithAnUnusableName();

    // Edit
    void editOpensTheTableSortedAndOkWithANoteChangeCounts();
    void editClosedWithOkAndNoChangeIsNoChange();
    void editOfABrokenTableReportsTheLineAndOpensNothing();

    // Copy
    void copyMakesAnIdenticalTable();
    void copyingOntoAnExistingNameNamesTheSourceTable();
    void copyThatCannotWriteShowsTheCopyErrorAndLeavesNoFile();

    // Rename
    void renameStartsWithTheCurrentNameAndMovesTheFile();
    void renameOntoAnExistingTableFailsAndKeepsBoth();
    void copyOrRenameWithAnUnusableName_data();
    void copyOrRenameWithAnUnusableName();

    // Delete
    void deleteYesRemovesTheTable();
    void deleteNoKeepsTheTable();
    void deleteThatFailsShowsTheDeleteError();

    // Empty library
    void operationsOnAnEmptyLibraryCannotAccessAnEmptyName_data();
    void operationsOnAnEmptyLibraryCannotAccessAnEmptyName();
    void editOnAnEmptyLibraryReportsTheOpenError();

    // What the dialog reports when it closes
    void closingAfterACancelledOperationReportsNoChange();
    void closingAfterASuccessfulOperationReportsAChangeEvenIfLaterDeleted();
    void escapeAfterASuccessfulOperationReportsAChange();
    void unknownButtonDoesNothing();

private:
    bool openDialog();
    CLibColourTableTabGeneral *page() const { return m_dialog->generalTab(); }
    QStringList comboNames() const;
    void choose(const QString &name);
    void press(CLibColourTableTabGeneral::Button button);
    QString lib(const QString &file) const { return m_library + QLatin1Char('/') + file; }
    QStringList libraryFiles() const;
    QStringList homeEntries() const;
    void writeTable(const QString &name, const QByteArray &content = QByteArray("0.1, 0.2, 0.3, X\n"));

    std::unique_ptr<LibraryTestHome> m_home;
    CAppSettings *m_settings = nullptr;
    QString m_library;
    std::unique_ptr<CLibColourTableDlg> m_dialog;
};

namespace {
const QByteArray kReds("# Reds\n1.0, 0.0, 0.0, Red\n0.5, 0.0, 0.0, maroon\n");
} // namespace

void TestLibColourTableDlg::initTestCase()
{
    m_home = std::make_unique<LibraryTestHome>();
    QVERIFY(m_home->isValid());
    m_settings = m_home->settings();
}

void TestLibColourTableDlg::cleanupTestCase()
{
    m_dialog.reset();
    m_home.reset();
}

void TestLibColourTableDlg::init()
{
    m_library = m_home->emptyLibrary();
    QVERIFY(!m_library.isEmpty());
}

void TestLibColourTableDlg::cleanup()
{
    m_dialog.reset();
}

bool TestLibColourTableDlg::openDialog()
{
    m_dialog = std::make_unique<CLibColourTableDlg>(m_settings);
    if (m_dialog->windowModality() != Qt::WindowModal)
        return false;
    // Shown without modality so that only the dialogs it opens are modal.
    m_dialog->setWindowModality(Qt::NonModal);
    m_dialog->show();
    return QTest::qWaitForWindowExposed(m_dialog.get());
}

QStringList TestLibColourTableDlg::comboNames() const
{
    QStringList names;
    for (int i = 0; i < page()->tableCombo()->count(); ++i)
        names << page()->tableCombo()->itemText(i);
    return names;
}

void TestLibColourTableDlg::choose(const QString &name)
{
    const int index = page()->tableCombo()->findText(name);
    QVERIFY2(index >= 0, qPrintable(name));
    page()->tableCombo()->setCurrentIndex(index);
}

void TestLibColourTableDlg::press(CLibColourTableTabGeneral::Button button)
{
    QTest::mouseClick(page()->button(button), Qt::LeftButton);
}

QStringList TestLibColourTableDlg::libraryFiles() const
{
    return QDir(m_library).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot,
                                     QDir::Name);
}

QStringList TestLibColourTableDlg::homeEntries() const
{
    return QDir(m_home->home()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
}

void TestLibColourTableDlg::writeTable(const QString &name, const QByteArray &content)
{
    QVERIFY(FixtureFile::write(lib(name), content));
}

// ---- Layout and help --------------------------------------------------------

void TestLibColourTableDlg::titleTabsAndButtons()
{
    QVERIFY(openDialog());
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Vellora - Library Maintenance"));
    QCOMPARE(m_dialog->minimumSize(), QSize(250, 200));
    QCOMPARE(m_dialog->tabs()->count(), 2);
    QCOMPARE(m_dialog->tabs()->tabText(0), QStringLiteral("Maintenance"));
    QCOMPARE(m_dialog->tabs()->tabText(1), QStringLiteral("Import"));
    QCOMPARE(m_dialog->helpButton()->text(), QStringLiteral("&Help"));
    QCOMPARE(m_dialog->closeButton()->text(), QStringLiteral("&Close"));
    QCOMPARE(page()->button(CLibColourTableTabGeneral::New)->text(), QStringLiteral("&New"));
    QCOMPARE(page()->button(CLibColourTableTabGeneral::Edit)->text(), QStringLiteral("&Edit"));
    QCOMPARE(page()->button(CLibColourTableTabGeneral::Copy)->text(), QStringLiteral("&Copy"));
    QCOMPARE(page()->button(CLibColourTableTabGeneral::Rename)->text(), QStringLiteral("&Rename"));
    QCOMPARE(page()->button(CLibColourTableTabGeneral::Delete)->text(), QStringLiteral("&Delete"));
    QCOMPARE(m_dialog->importTab()->quillonButton()->text(), QStringLiteral("&Quillon Table"));
    QStringList labels;
    for (QLabel *label : page()->findChildren<QLabel *>())
        labels << label->text();
    QVERIFY(labels.contains(QStringLiteral("Choose Table:")));
    QVERIFY(page()->tableCombo()->minimumWidth()
            >= 12 * page()->tableCombo()->fontMetrics().averageCharWidth());
}

void TestLibColourTableDlg::groupTitlesAreBoldAndTheirChildrenNormal()
{
    QVERIFY(openDialog());
    QStringList titles;
    for (QGroupBox *box : page()->findChildren<QGroupBox *>()) {
        titles << box->title();
        QCOMPARE(int(box->font().weight()), int(QFont::Bold));
        for (QWidget *child : box->findChildren<QWidget *>())
            QCOMPARE(int(child->font().weight()), int(QFont::Normal));
    }
    QCOMPARE(titles, QStringList({"New Table", "Edit Table"}));
}

void TestLibColourTableDlg::helpNamesTheCurrentPagesAnchor()
{
    QVERIFY(openDialog());
    QSignalSpy help(m_dialog.get(), &CLibColourTableDlg::displayHelpSignal);
    QTest::mouseClick(m_dialog->helpButton(), Qt::LeftButton);
    m_dialog->tabs()->setCurrentIndex(1);
    QTest::mouseClick(m_dialog->helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 2);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabA"));
    QCOMPARE(help.at(1).at(0).toString(), QStringLiteral("library.html#libMaintTabB"));
    QVERIFY(m_dialog->isVisible());
}

void TestLibColourTableDlg::helpKeyNamesTheCurrentPagesAnchor()
{
    QVERIFY(openDialog());
    m_dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    QSignalSpy help(m_dialog.get(), &CLibColourTableDlg::displayHelpSignal);
    QTest::keySequence(m_dialog.get(), QKeySequence(QKeySequence::HelpContents));
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabA"));
}

// ---- Listing ----------------------------------------------------------------

void TestLibColourTableDlg::emptyLibraryLeavesTheChooserEmpty()
{
    QVERIFY(openDialog());
    QCOMPARE(page()->tableCombo()->count(), 0);
    QCOMPARE(page()->tableCombo()->currentIndex(), -1);
}

void TestLibColourTableDlg::namesDifferingOnlyInCaseSortTogether()
{
    writeTable(QStringLiteral("blue.clrtable"));
    writeTable(QStringLiteral("Azure.clrtable"));
    writeTable(QStringLiteral("Blue.clrtable"));
    writeTable(QStringLiteral("aqua.clrtable"));
    writeTable(QStringLiteral("Cyan.clrtable"));
    QVERIFY(openDialog());
    const QStringList names = comboNames();
    QCOMPARE(names.size(), 5);
    QCOMPARE(names.mid(0, 2), QStringList({"aqua", "Azure"}));
    QCOMPARE(QSet<QString>(names.begin() + 2, names.begin() + 4), QSet<QString>({"blue", "Blue"}));
    QCOMPARE(names.at(4), QStringLiteral("Cyan"));
}

void TestLibColourTableDlg::itemsCarryTheCanonicalPath()
{
    writeTable(QStringLiteral("Reds.clrtable"));
    QVERIFY(openDialog());
    QCOMPARE(page()->tableCombo()->itemData(0).toString(),
             QFileInfo(lib(QStringLiteral("Reds.clrtable"))).canonicalFilePath());
    QVERIFY(page()->tableCombo()->itemIcon(0).isNull());
}

// ---- New --------------------------------------------------------------------

void TestLibColourTableDlg::newWritesAnEmptyTableAndListsIt()
{
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("  Spring  "))},
                           Step{"OK", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(0), QStringLiteral("Vellora - New Colour Table"));
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1), QStringLiteral("Added new colour table:\"Spring\"."));
    QVERIFY(QFileInfo(lib(QStringLiteral("Spring.clrtable"))).isFile());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Spring.clrtable"))), QByteArray());
    QCOMPARE(comboNames(), QStringList({"Spring"}));
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::newPromptHasNoCaptionAndRefusesABlankName()
{
    QVERIFY(openDialog());
    QStringList labels;
    QString promptText;
    auto blankThenCancel = [&labels, &promptText](QWidget *dialog) {
        for (QLabel *label : dialog->findChildren<QLabel *>())
            labels << label->text();
        ModalAnswerer prompt(QStringLiteral("OK"));
        QTest::mouseClick(ModalAnswerer::findButton(dialog, QStringLiteral("OK")), Qt::LeftButton);
        promptText = prompt.text();
    };
    ModalAnswerer answer(QStringLiteral("Cancel"), blankThenCancel);
    press(CLibColourTableTabGeneral::New);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(labels, QStringList({"Table Name:"}));
    QCOMPARE(promptText, QStringLiteral("Please enter the name of the new colour table."));
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::newWithAnExistingNameAsksAndYesReplacesItWithAnEmptyTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Reds"))},
                           Step{"Yes", {}}, Step{"OK", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.text(1), QStringLiteral("The file:\n%1\nalready exists.\nWould you like to "
                                             "overwrite it?")
                                  .arg(lib(QStringLiteral("Reds.clrtable"))));
    QCOMPARE(answers.text(2), QStringLiteral("Added new colour table:\"Reds\"."));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), QByteArray());
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::newWithAnExistingNameAndNoKeepsTheTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Reds"))},
                           Step{"No", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), kReds);
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::newThatCannotWriteShowsTheWriteError()
{
    // A folder where the file would go makes the write fail for anyone,
    // root included.
    QVERIFY(QDir().mkpath(lib(QStringLiteral("Blocked.clrtable"))));
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Blocked"))},
                           Step{"Yes", {}}, Step{"OK", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.text(2), QStringLiteral("Error, writing to file: %1.")
                                  .arg(lib(QStringLiteral("Blocked.clrtable"))));
    QVERIFY(QFileInfo(lib(QStringLiteral("Blocked.clrtable"))).isDir());
    QCOMPARE(libraryFiles(), QStringList({"Blocked.clrtable"}));
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::newWithAnUnusableName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("slash") << QStringLiteral("sub/Reds");
    QTest::newRow("parent folder") << QStringLiteral("../Reds");
    QTest::newRow("two dots") << QStringLiteral("..");
    QTest::newRow("one dot") << QStringLiteral(".");
    QTest::newRow("leading dot") << QStringLiteral(".Reds");
}

void TestLibColourTableDlg::newWithAnUnusableName()
{
    QFETCH(QString, name);
    const QString path = libraryTablePath(m_library, name);
    const QStringList homeBefore = homeEntries();
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(name)}, Step{"OK", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error, writing to file: %1.").arg(path));
    QCOMPARE(libraryFiles(), QStringList());
    QCOMPARE(homeEntries(), homeBefore);
    QVERIFY(!page()->isChanged());
}

// ---- Edit -------------------------------------------------------------------

void TestLibColourTableDlg::editOpensTheTableSortedAndOkWithANoteChangeCounts()
{
    writeTable(QStringLiteral("Reds.clrtable"), "# Reds\n1.0, 0.0, 0.0, Red\n0.5, 0.0, 0.0, maroon\n");
    QVERIFY(openDialog());
    QStringList shown;
    QString title;
    auto editNote = [&shown, &title](QWidget *dialog) {
        auto *edit = qobject_cast<CDlgEditTable *>(dialog);
        if (!edit)
            return;
        title = edit->windowTitle();
        for (int row = 0; row < edit->grid()->rowCount(); ++row)
            shown << qobject_cast<QLabel *>(edit->grid()->cellWidget(row, 1))->text();
        QTest::keyClick(edit->noteEdit(), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(edit->noteEdit(), QStringLiteral(" and more"));
    };
    ModalAnswerer answer(QStringLiteral("OK"), editNote);
    press(CLibColourTableTabGeneral::Edit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(title, QStringLiteral("Vellora - Edit Colour Table"));
    QCOMPARE(shown, QStringList({"maroon", "Red"}));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))),
             QByteArray("#Reds and more\n\n0.5000, 0.0000, 0.0000, maroon\n"
                        "1.0000, 0.0000, 0.0000, Red\n"));
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::editClosedWithOkAndNoChangeIsNoChange()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    ModalAnswerer answer(QStringLiteral("OK"));
    press(CLibColourTableTabGeneral::Edit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), kReds);
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::editOfABrokenTableReportsTheLineAndOpensNothing()
{
    writeTable(QStringLiteral("Broken.clrtable"), "# a\n0.1, 0.1, 0.1, A\n0.5, abc, 0.5, X\n");
    QVERIFY(openDialog());
    ModalAnswerer answer(QStringLiteral("OK"));
    press(CLibColourTableTabGeneral::Edit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.dialogClass(), QStringLiteral("QMessageBox"));
    QCOMPARE(answer.text(), QStringLiteral("Unable to load colour table:\nBroken\n\nError in line 3"));
    QVERIFY(!page()->isChanged());
}

// ---- Copy -------------------------------------------------------------------

void TestLibColourTableDlg::copyMakesAnIdenticalTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    QString caption;
    ModalAnswerer answer(QStringLiteral("OK"), [&caption](QWidget *dialog) {
        QStringList labels;
        for (QLabel *label : dialog->findChildren<QLabel *>())
            labels << label->text();
        caption = labels.join(QLatin1Char('|'));
        DialogActions::typeText(QStringLiteral("Reds copy"))(dialog);
    });
    press(CLibColourTableTabGeneral::Copy);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Copy Colour Table"));
    QVERIFY2(caption.startsWith(QStringLiteral("Copying:|Reds|Destination:")), qPrintable(caption));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds copy.clrtable"))), kReds);
    // Listed by file name: the blank sorts before the extension's dot.
    QCOMPARE(comboNames(), QStringList({"Reds copy", "Reds"}));
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::copyingOntoAnExistingNameNamesTheSourceTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    writeTable(QStringLiteral("Blues.clrtable"), "0, 0, 1, Blue\n");
    QVERIFY(openDialog());
    choose(QStringLiteral("Reds"));
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Blues"))},
                           Step{"OK", {}}});
    press(CLibColourTableTabGeneral::Copy);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("The \"Reds\" colour table already exists. Please "
                                             "chose a different name to copy to."));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Blues.clrtable"))), QByteArray("0, 0, 1, Blue\n"));
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::copyThatCannotWriteShowsTheCopyErrorAndLeavesNoFile()
{
    QByteArray big;
    for (int i = 0; i < 2000; ++i)
        big += "0.5000, 0.5000, 0.5000, Grey number " + QByteArray::number(i) + '\n';
    writeTable(QStringLiteral("Greys.clrtable"), big);
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Greys 2"))},
                           Step{"OK", {}}});
    {
        FileSizeLimit limit(4096);
        QVERIFY(limit.isActive());
        press(CLibColourTableTabGeneral::Copy);
    }
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error copying colour table \"Greys\" to \"Greys 2\". "
                                             "This may be due to the destination folder being "
                                             "write-protected."));
    QCOMPARE(libraryFiles(), QStringList({"Greys.clrtable"}));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Greys.clrtable"))), big);
}

// ---- Rename -----------------------------------------------------------------

void TestLibColourTableDlg::renameStartsWithTheCurrentNameAndMovesTheFile()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    QString preFilled;
    ModalAnswerer answer(QStringLiteral("OK"), [&preFilled](QWidget *dialog) {
        preFilled = dialog->findChild<QLineEdit *>()->text();
        DialogActions::typeText(QStringLiteral("Crimsons"))(dialog);
    });
    press(CLibColourTableTabGeneral::Rename);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Rename Colour Table"));
    QCOMPARE(preFilled, QStringLiteral("Reds"));
    QCOMPARE(libraryFiles(), QStringList({"Crimsons.clrtable"}));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Crimsons.clrtable"))), kReds);
    QCOMPARE(comboNames(), QStringList({"Crimsons"}));
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::renameOntoAnExistingTableFailsAndKeepsBoth()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    writeTable(QStringLiteral("Blues.clrtable"), "0, 0, 1, Blue\n");
    QVERIFY(openDialog());
    choose(QStringLiteral("Reds"));
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Blues"))},
                           Step{"OK", {}}});
    press(CLibColourTableTabGeneral::Rename);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error renaming colour table \"Reds\" to \"Blues\". "
                                             "This may be due to the file or folder being "
                                             "write-protected."));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), kReds);
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Blues.clrtable"))), QByteArray("0, 0, 1, Blue\n"));
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::copyOrRenameWithAnUnusableName_data()
{
    const QString copyError = QStringLiteral("Error copying colour table \"Reds\" to \"%1\". This "
                                             "may be due to the destination folder being "
                                             "write-protected.");
    const QString renameError = QStringLiteral("Error renaming colour table \"Reds\" to \"%1\". "
                                               "This may be due to the file or folder being "
                                               "write-protected.");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const QStringList names({"sub/Reds", "../Reds", "..", "...", ".Reds"});
    for (const QString &name : names) {
        QTest::addRow("copy to %s", qPrintable(name))
            << int(CLibColourTableTabGeneral::Copy) << name << copyError.arg(name);
        QTest::addRow("rename to %s", qPrintable(name))
            << int(CLibColourTableTabGeneral::Rename) << name << renameError.arg(name);
    }
}

void TestLibColourTableDlg::copyOrRenameWithAnUnusableName()
{
    QFETCH(int, button);
    QFETCH(QString, name);
    QFETCH(QString, message);
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(QDir().mkpath(lib(QStringLiteral("sub"))));
    const QStringList homeBefore = homeEntries();
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(name)}, Step{"OK", {}}});
    press(CLibColourTableTabGeneral::Button(button));
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), message);
    QCOMPARE(libraryFiles(), QStringList({"Reds.clrtable", "sub"}));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), kReds);
    QVERIFY(QDir(lib(QStringLiteral("sub"))).isEmpty());
    QCOMPARE(homeEntries(), homeBefore);
    QVERIFY(!page()->isChanged());
}

// ---- Delete -----------------------------------------------------------------

void TestLibColourTableDlg::deleteYesRemovesTheTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    writeTable(QStringLiteral("Blues.clrtable"));
    QVERIFY(openDialog());
    choose(QStringLiteral("Reds"));
    ModalAnswerer answer(QStringLiteral("Yes"));
    press(CLibColourTableTabGeneral::Delete);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("Are you sure that you want to permanently delete the "
                                           "\"Reds\" colour table?"));
    QCOMPARE(libraryFiles(), QStringList({"Blues.clrtable"}));
    QCOMPARE(comboNames(), QStringList({"Blues"}));
    QVERIFY(page()->isChanged());
}

void TestLibColourTableDlg::deleteNoKeepsTheTable()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    ModalAnswerer answer(QStringLiteral("No"));
    press(CLibColourTableTabGeneral::Delete);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Reds.clrtable"))), kReds);
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::deleteThatFailsShowsTheDeleteError()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    // Once listed, the file is replaced by a folder that holds something:
    // removing it as a file fails, for root too.
    QVERIFY(QFile::remove(lib(QStringLiteral("Reds.clrtable"))));
    writeTable(QStringLiteral("Reds.clrtable/inside.txt"));
    ModalSequence answers({Step{"Yes", {}}, Step{"OK", {}}});
    press(CLibColourTableTabGeneral::Delete);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error deleting colour table \"Reds\". This may be due "
                                             "to the file or folder being write-protected."));
    QVERIFY(QFileInfo::exists(lib(QStringLiteral("Reds.clrtable/inside.txt"))));
    QVERIFY(!page()->isChanged());
}

// ---- Empty library ----------------------------------------------------------

void TestLibColourTableDlg::operationsOnAnEmptyLibraryCannotAccessAnEmptyName_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("copy") << int(CLibColourTableTabGeneral::Copy);
    QTest::newRow("rename") << int(CLibColourTableTabGeneral::Rename);
    QTest::newRow("delete") << int(CLibColourTableTabGeneral::Delete);
}

void TestLibColourTableDlg::operationsOnAnEmptyLibraryCannotAccessAnEmptyName()
{
    QFETCH(int, button);
    QVERIFY(openDialog());
    ModalAnswerer answer(QStringLiteral("OK"));
    press(CLibColourTableTabGeneral::Button(button));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("The \"\" colour table cannot be accessed."));
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!page()->isChanged());
}

void TestLibColourTableDlg::editOnAnEmptyLibraryReportsTheOpenError()
{
    QVERIFY(openDialog());
    ModalAnswerer answer(QStringLiteral("OK"));
    press(CLibColourTableTabGeneral::Edit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("Error while attempting to open colour table file:\n"));
    QVERIFY(!page()->isChanged());
}

// ---- Closing ----------------------------------------------------------------

void TestLibColourTableDlg::closingAfterACancelledOperationReportsNoChange()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    {
        ModalAnswerer answer(QStringLiteral("Cancel"));
        press(CLibColourTableTabGeneral::New);
        QVERIFY(answer.wasAnswered());
    }
    {
        ModalAnswerer answer(QStringLiteral("No"));
        press(CLibColourTableTabGeneral::Delete);
        QVERIFY(answer.wasAnswered());
    }
    QTest::mouseClick(m_dialog->closeButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->libraryChanged());
}

void TestLibColourTableDlg::closingAfterASuccessfulOperationReportsAChangeEvenIfLaterDeleted()
{
    QVERIFY(openDialog());
    {
        ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Temp"))},
                               Step{"OK", {}}});
        press(CLibColourTableTabGeneral::New);
        QCOMPARE(answers.answeredCount(), 2);
    }
    {
        ModalAnswerer answer(QStringLiteral("Yes"));
        press(CLibColourTableTabGeneral::Delete);
        QVERIFY(answer.wasAnswered());
    }
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!m_dialog->libraryChanged()); // read when the dialog closes
    QTest::mouseClick(m_dialog->closeButton(), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QVERIFY(m_dialog->libraryChanged());
}

void TestLibColourTableDlg::escapeAfterASuccessfulOperationReportsAChange()
{
    QVERIFY(openDialog());
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Kept"))},
                           Step{"OK", {}}});
    press(CLibColourTableTabGeneral::New);
    QCOMPARE(answers.answeredCount(), 2);
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QVERIFY(m_dialog->libraryChanged());
}

void TestLibColourTableDlg::unknownButtonDoesNothing()
{
    writeTable(QStringLiteral("Reds.clrtable"), kReds);
    QVERIFY(openDialog());
    ModalAnswerer none(QStringLiteral("OK"), ModalAnswerer::Action(), 300);
    page()->processButton(5);
    page()->processButton(-1);
    QCoreApplication::processEvents();
    QVERIFY(!none.wasAnswered());
    QCOMPARE(libraryFiles(), QStringList({"Reds.clrtable"}));
    QVERIFY(!page()->isChanged());
}

QTEST_MAIN(TestLibColourTableDlg)
#include "tst_libcolourtabledlg.moc"
