#include "common/appcontext.h"
#include "app/appsettings.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabimport.h"
#include "tables/colourlibrary.h"

#include "support/quillonexamplelines.h"
#include "support/filesizelimit.h"
#include "support/fixturefile.h"
#include "support/modalsequence.h"
#include "support/librarytesthome.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QtTest>

#include <memory>

using Step = ModalSequence::Step;

// The "Import" page: a Quillon ".config" list chosen in the file dialog and
// named in the prompt becomes a table file in the library, or the reason it
// cannot is shown.
class TestLibColourTableTabImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void pageHasTheQuillonButton();
    void exampleLinesBehaveAsShown_data();
    void exampleLinesBehaveAsShown();
    void refusedExampleLinesNameTheLine_data();
    void refusedExampleLinesNameTheLine();
    void lineNumbersInTheErrorCountBlankAndCommentLines();
    void importWritesTheEntriesSortedUnderTheNote();
    void fileDialogAsksForAQuillonFile();
    void cancelledFileDialogChangesNothing();
    void namePromptShowsTheSourceAndOffersHelp();
    void cancelledNamePromptWritesNothing();
    void commentsAndBlanksOnlyAreNoRecords();
    void missingFileShowsTheOpenError();
    void existingTableAsksAndNoWritesNothing();
    void existingTableAsksAndYesReplacesIt();
    void failedWriteKeepsTheOldFileAndShowsTheError();
    void unusableNameShowsTheWriteErrorAndWritesNothing_data();
    void unusableNameShowsTheWriteErrorAndWritesNothing();
    void dialogReportsAChangeAfterAnImport();

private:
    bool openPage();
    QString writeConfig(const QString &name, const QByteArray &content);
    // Presses "&Quillon Table", chooses file and names the table `name`.
    void importThroughThePage(const QString &file, const QString &name);
    QString lib(const QString &file) const { return m_library + QLatin1Char('/') + file; }
    // The file's lines without the date line (the second).
    static QStringList linesWithoutDate(const QString &path);
    QStringList libraryFiles() const;

    std::unique_ptr<LibraryTestHome> m_home;
    CAppSettings *m_settings = nullptr;
    QString m_library;
    QString m_sources;
    std::unique_ptr<CLibColourTableTabImport> m_page;
};

void TestLibColourTableTabImport::initTestCase()
{
    m_home = std::make_unique<LibraryTestHome>();
    QVERIFY(m_home->isValid());
    m_settings = m_home->settings();
    m_sources = m_home->makeFolder(QStringLiteral("Quillon"));
    QVERIFY(!m_sources.isEmpty());
}

void TestLibColourTableTabImport::cleanupTestCase()
{
    m_page.reset();
    m_home.reset();
}

void TestLibColourTableTabImport::init()
{
    m_library = m_home->emptyLibrary();
    QVERIFY(!m_library.isEmpty());
}

void TestLibColourTableTabImport::cleanup()
{
    m_page.reset();
}

bool TestLibColourTableTabImport::openPage()
{
    m_page = std::make_unique<CLibColourTableTabImport>(m_settings,
                                                        QStringLiteral("library.html#libMaintTabB"));
    m_page->show();
    return QTest::qWaitForWindowExposed(m_page.get());
}

QString TestLibColourTableTabImport::writeConfig(const QString &name, const QByteArray &content)
{
    const QString file = m_sources + QLatin1Char('/') + name;
    return FixtureFile::write(file, content) ? file : QString();
}

void TestLibColourTableTabImport::importThroughThePage(const QString &file, const QString &name)
{
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(name)}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora - Import Colour Table"));
}

QStringList TestLibColourTableTabImport::linesWithoutDate(const QString &path)
{
    QStringList lines = QString::fromUtf8(FixtureFile::read(path)).split(QLatin1Char('\n'));
    if (lines.size() > 1)
        lines.removeAt(1);
    return lines;
}

QStringList TestLibColourTableTabImport::libraryFiles() const
{
    return QDir(m_library).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                     QDir::Name);
}

void TestLibColourTableTabImport::pageHasTheQuillonButton()
{
    QVERIFY(openPage());
    QCOMPARE(m_page->quillonButton()->text(), QStringLiteral("&Quillon Table"));
    QCOMPARE(m_page->helpAnchor(), QStringLiteral("library.html#libMaintTabB"));
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::exampleLinesBehaveAsShown_data()
{
    QuillonExampleLines::addAcceptedRows();
}

void TestLibColourTableTabImport::exampleLinesBehaveAsShown()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, entry);
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("example.config"), line + '\n');
    importThroughThePage(file, QStringLiteral("Example"));
    QVERIFY(m_page->isChanged());
    QCOMPARE(linesWithoutDate(lib(QStringLiteral("Example.clrtable"))),
             QStringList({"#Imported from example.config", "", "", entry, ""}));
}

void TestLibColourTableTabImport::refusedExampleLinesNameTheLine_data()
{
    QuillonExampleLines::addRefusedRows();
}

void TestLibColourTableTabImport::refusedExampleLinesNameTheLine()
{
    QFETCH(QByteArray, line);
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("refused.config"), line + '\n');
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)}, Step{"OK", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1), QStringLiteral("Error in line 1\nwhile processing:\n%1.").arg(file));
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::lineNumbersInTheErrorCountBlankAndCommentLines()
{
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("lines.config"),
                                     "# Spring\n\n1/0/0/Red\n   \n# more\n0/1/0/Green\n1/0/0\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)}, Step{"OK", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error in line 7\nwhile processing:\n%1.").arg(file));
    QCOMPARE(libraryFiles(), QStringList());
}

void TestLibColourTableTabImport::importWritesTheEntriesSortedUnderTheNote()
{
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("spring.config"),
                                     "# Spring\n0/0/1/blue\n1/0/0/Red, warm\n\n0/1/0/Aqua\n");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    importThroughThePage(file, QStringLiteral("Spring"));
    const QString table = lib(QStringLiteral("Spring.clrtable"));
    QCOMPARE(linesWithoutDate(table),
             QStringList({"#Imported from spring.config", "", "", "0.0000, 1.0000, 0.0000, Aqua",
                          "0.0000, 0.0000, 1.0000, blue", "1.0000, 0.0000, 0.0000, Red; warm",
                          ""}));
    const QString dateLine = QString::fromUtf8(FixtureFile::read(table)).split('\n').value(1);
    const QDateTime stamp =
        QDateTime::fromString(dateLine.mid(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    QVERIFY2(dateLine.startsWith('#') && stamp.isValid(), qPrintable(dateLine));
    QVERIFY(stamp >= before.addMSecs(-before.time().msec()));
    QVERIFY(stamp <= QDateTime::currentDateTime());
}

void TestLibColourTableTabImport::fileDialogAsksForAQuillonFile()
{
    QVERIFY(openPage());
    QString caption;
    QStringList filters;
    ModalAnswerer answer(QStringLiteral("Cancel"), [&caption, &filters](QWidget *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        if (!fileDialog)
            return;
        caption = fileDialog->windowTitle();
        filters = fileDialog->nameFilters();
    });
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(caption, QStringLiteral("Select the file to import"));
    QCOMPARE(filters, QStringList({"Quillon Files (*.config)", "All Files (*.*)"}));
}

void TestLibColourTableTabImport::cancelledFileDialogChangesNothing()
{
    QVERIFY(openPage());
    ModalSequence answers({Step{"Cancel", {}}, Step{"OK", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    // Every box is shown inside the click, so by now all have been answered.
    QCoreApplication::processEvents();
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::namePromptShowsTheSourceAndOffersHelp()
{
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("help.config"), "1/0/0/Red\n");
    QSignalSpy help(m_page.get(), &CLibColourTableTabBase::displayHelpSignal);
    QStringList labels;
    QString caption;
    auto inspect = [&labels, &caption](QWidget *dialog) {
        for (QLabel *label : dialog->findChildren<QLabel *>())
            labels << label->text();
        QAbstractButton *helpButton = ModalAnswerer::findButton(dialog, QStringLiteral("Help"));
        if (helpButton)
            QTest::mouseClick(helpButton, Qt::LeftButton);
    };
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)}, Step{"Cancel", inspect}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(labels.contains(QStringLiteral("Importing:")));
    QVERIFY(labels.contains(QStringLiteral("Save To:")));
    QVERIFY(labels.contains(QDir::toNativeSeparators(file)));
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabB"));
}

void TestLibColourTableTabImport::cancelledNamePromptWritesNothing()
{
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("cancel.config"), "1/0/0/Red\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)}, Step{"Cancel", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::commentsAndBlanksOnlyAreNoRecords()
{
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("none.config"), "# nothing\n\n   \n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)}, Step{"OK", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error while processing:\n%1\nNo records found").arg(file));
    QCOMPARE(libraryFiles(), QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::missingFileShowsTheOpenError()
{
    QVERIFY(openPage());
    const QString missing = m_sources + QStringLiteral("/gone.config");
    ModalAnswerer answer(QStringLiteral("OK"));
    QVERIFY(!m_page->import(m_page.get(), missing));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("Error, opening file: %1.").arg(missing));
}

void TestLibColourTableTabImport::existingTableAsksAndNoWritesNothing()
{
    QVERIFY(openPage());
    const QByteArray old("0.5000, 0.5000, 0.5000, Grey\n");
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Greys.clrtable")), old));
    const QString file = writeConfig(QStringLiteral("greys.config"), "0.1/0.1/0.1/Dark\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(QStringLiteral("Greys"))},
                           Step{"No", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.text(2), QStringLiteral("The file:\n%1\nalready exists.\nWould you like to "
                                             "overwrite it?")
                                  .arg(lib(QStringLiteral("Greys.clrtable"))));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Greys.clrtable"))), old);
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::existingTableAsksAndYesReplacesIt()
{
    QVERIFY(openPage());
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Greys.clrtable")), "0.5, 0.5, 0.5, Grey\n"));
    const QString file = writeConfig(QStringLiteral("greys.config"), "0.1/0.1/0.1/Dark\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(QStringLiteral("Greys"))},
                           Step{"Yes", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(linesWithoutDate(lib(QStringLiteral("Greys.clrtable"))),
             QStringList({"#Imported from greys.config", "", "", "0.1000, 0.1000, 0.1000, Dark", ""}));
    QVERIFY(m_page->isChanged());
}

void TestLibColourTableTabImport::failedWriteKeepsTheOldFileAndShowsTheError()
{
    QVERIFY(openPage());
    const QByteArray old("0.5000, 0.5000, 0.5000, Grey\n");
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Greys.clrtable")), old));
    const QString file = writeConfig(QStringLiteral("many.config"),
                                     QByteArray("0.1/0.1/0.1/A rather long colour name\n").repeated(100));
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(QStringLiteral("Greys"))},
                           Step{"Yes", {}}, Step{"OK", {}}});
    {
        FileSizeLimit limit(512);
        QVERIFY(limit.isActive());
        QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    }
    QCOMPARE(answers.answeredCount(), 4);
    QCOMPARE(answers.text(3), QStringLiteral("Error, writing to file: %1.")
                                  .arg(lib(QStringLiteral("Greys.clrtable"))));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Greys.clrtable"))), old);
    QCOMPARE(libraryFiles(), QStringList({"Greys.clrtable"}));
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::unusableNameShowsTheWriteErrorAndWritesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("slash") << QStringLiteral("sub/Reds");
    QTest::newRow("parent folder") << QStringLiteral("../Reds");
    QTest::newRow("two dots") << QStringLiteral("..");
}

void TestLibColourTableTabImport::unusableNameShowsTheWriteErrorAndWritesNothing()
{
    QFETCH(QString, name);
    QVERIFY(openPage());
    const QString file = writeConfig(QStringLiteral("reds.config"), "1/0/0/Red\n");
    const QStringList homeBefore =
        QDir(m_home->home()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(name)}, Step{"OK", {}}});
    QTest::mouseClick(m_page->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.text(2), QStringLiteral("Error, writing to file: %1.")
                                  .arg(libraryTablePath(m_library, name)));
    QCOMPARE(libraryFiles(), QStringList());
    QCOMPARE(QDir(m_home->home()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), homeBefore);
    QVERIFY(!m_page->isChanged());
}

void TestLibColourTableTabImport::dialogReportsAChangeAfterAnImport()
{
    CLibColourTableDlg dialog(m_settings);
    dialog.setWindowModality(Qt::NonModal); // only the dialogs it opens are modal
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.tabs()->setCurrentIndex(1);
    const QString file = writeConfig(QStringLiteral("dlg.config"), "1/0/0/Red\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText(QStringLiteral("Imported"))}});
    QTest::mouseClick(dialog.importTab()->quillonButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QTest::mouseClick(dialog.closeButton(), Qt::LeftButton);
    QVERIFY(dialog.libraryChanged());
    QVERIFY(QFileInfo(lib(QStringLiteral("Imported.clrtable"))).isFile());
}

QTEST_MAIN(TestLibColourTableTabImport)
#include "tst_libcolourtabletabimport.moc"
