#include "app/appsettings.h"
#include "common/commandid.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabgeneral.h"
#include "library/libcolourtabletabimport.h"
#include "library/readymadetablesrow.h"
#include "sample/colourimagewindow.h"
#include "sample/libraryselector.h"
#include "tables/readymadetables.h"

#include "support/fixturefile.h"
#include "support/librarytesthome.h"
#include "support/modalsequence.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <memory>

using Step = ModalSequence::Step;

// The Import page's "Ready-made Tables" row: a button per table compiled
// into the program, the import's own name prompt (pre-filled with the
// table's name) and its own rules for names, and the library lists that show
// the new table at once.
class TestReadyMadeImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void rowOfThreeButtonsSitsBelowTheOtherRows();
    void buttonAsksForTheNamePreFilledAndWritesTheTable_data();
    void buttonAsksForTheNamePreFilledAndWritesTheTable();
    void anotherNameCanBeTyped();
    void existingTableAsksAndNoWritesNothing();
    void existingTableAsksAndYesReplacesIt();
    void unusableNameIsRefusedAsAFailedWrite_data();
    void unusableNameIsRefusedAsAFailedWrite();
    void cancelledPromptWritesNothing();
    void maintenancePageListsTheImportedTableAtOnce();
    void samplingPageListsTheImportedTableWhenTheDialogCloses();

private:
    QString lib(const QString &file) const { return m_library + QLatin1Char('/') + file; }
    static QByteArray shipped(int index)
    {
        return CReadyMadeTables::content(CReadyMadeTables::all().at(index));
    }

    std::unique_ptr<LibraryTestHome> m_home;
    CAppSettings *m_settings = nullptr;
    QString m_library;
    std::unique_ptr<CLibColourTableTabImport> m_page;
};

void TestReadyMadeImport::initTestCase()
{
    m_home = std::make_unique<LibraryTestHome>();
    QVERIFY(m_home->isValid());
    m_settings = m_home->settings();
}

void TestReadyMadeImport::cleanupTestCase()
{
    m_page.reset();
    m_home.reset();
}

void TestReadyMadeImport::init()
{
    m_library = m_home->emptyLibrary();
    QVERIFY(!m_library.isEmpty());
    m_page = std::make_unique<CLibColourTableTabImport>(m_settings,
                                                        QStringLiteral("library.html#libMaintTabB"));
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void TestReadyMadeImport::cleanup()
{
    m_page.reset();
}

void TestReadyMadeImport::rowOfThreeButtonsSitsBelowTheOtherRows()
{
    CReadyMadeTablesRow *row = m_page->readyMadeRow();
    QCOMPARE(row->buttonCount(), 3);
    QCOMPARE(row->button(0)->text(), QStringLiteral("X11 Colours"));
    QCOMPARE(row->button(1)->text(), QStringLiteral("xkcd Colours"));
    QCOMPARE(row->button(2)->text(), QStringLiteral("Color Name List"));
    const QLabel *caption = row->findChild<QLabel *>();
    QVERIFY(caption);
    QCOMPARE(caption->text(), QStringLiteral("Ready-made Tables"));
    // The caption below the palette row, which is below the Quillon row,
    // and the buttons in one row under the caption.
    const auto top = [this](const QWidget *widget) { return widget->mapTo(m_page.get(), QPoint(0, 0)).y(); };
    QVERIFY(top(m_page->gimpButton()) > top(m_page->quillonButton()));
    QVERIFY(top(caption) >= top(m_page->gimpButton()) + m_page->gimpButton()->height());
    QVERIFY(top(row->button(0)) >= top(caption) + caption->height());
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(top(row->button(i)), top(row->button(0)));
        QVERIFY(row->button(i)->toolTip().contains(QStringLiteral("licence")));
    }
    QVERIFY(row->button(0)->x() < row->button(1)->x());
    QVERIFY(row->button(1)->x() < row->button(2)->x());
    // Nothing cut short: every button gets the width its text needs.
    for (int i = 0; i < 3; ++i)
        QVERIFY(row->button(i)->width() >= row->button(i)->sizeHint().width());
}

void TestReadyMadeImport::buttonAsksForTheNamePreFilledAndWritesTheTable_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::newRow("X11") << 0 << "X11 Colours";
    QTest::newRow("xkcd") << 1 << "xkcd Colours";
    QTest::newRow("Color Name List, 31,918 entries") << 2 << "Color Name List";
}

void TestReadyMadeImport::buttonAsksForTheNamePreFilledAndWritesTheTable()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QString preFilled;
    ModalSequence answers({Step{"OK", [&preFilled](QWidget *dialog) {
                                    if (auto *edit = dialog->findChild<QLineEdit *>())
                                        preFilled = edit->text();
                                }}});
    QTest::mouseClick(m_page->readyMadeRow()->button(index), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(answers.title(0), QStringLiteral("Vellora - Import Colour Table"));
    QCOMPARE(preFilled, name);
    // The table keeps the note it was shipped with, byte for byte.
    QCOMPARE(FixtureFile::read(lib(name + QStringLiteral(".clrtable"))), shipped(index));
    QVERIFY(m_page->isChanged());
}

void TestReadyMadeImport::anotherNameCanBeTyped()
{
    ModalSequence answers({Step{"OK", DialogActions::typeText("Survey")}});
    QTest::mouseClick(m_page->readyMadeRow()->button(1), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(FixtureFile::read(lib("Survey.clrtable")), shipped(1));
    QVERIFY(!QFileInfo::exists(lib("xkcd Colours.clrtable")));
}

void TestReadyMadeImport::existingTableAsksAndNoWritesNothing()
{
    QVERIFY(FixtureFile::write(lib("X11 Colours.clrtable"), "0.5, 0.5, 0.5, mine\n"));
    ModalSequence answers({Step{"OK", ModalAnswerer::Action()}, Step{"No", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->readyMadeRow()->button(0), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("The file:\n%1\nalready exists.\nWould you like to "
                                             "overwrite it?")
                                  .arg(lib("X11 Colours.clrtable")));
    QCOMPARE(FixtureFile::read(lib("X11 Colours.clrtable")), QByteArray("0.5, 0.5, 0.5, mine\n"));
    QVERIFY(!m_page->isChanged());
}

void TestReadyMadeImport::existingTableAsksAndYesReplacesIt()
{
    QVERIFY(FixtureFile::write(lib("X11 Colours.clrtable"), "0.5, 0.5, 0.5, mine\n"));
    ModalSequence answers({Step{"OK", ModalAnswerer::Action()}, Step{"Yes", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->readyMadeRow()->button(0), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(FixtureFile::read(lib("X11 Colours.clrtable")), shipped(0));
    QVERIFY(m_page->isChanged());
}

void TestReadyMadeImport::unusableNameIsRefusedAsAFailedWrite_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("hidden file") << ".x11";
    QTest::newRow("folder separator") << "sub/x11";
}

void TestReadyMadeImport::unusableNameIsRefusedAsAFailedWrite()
{
    QFETCH(QString, name);
    ModalSequence answers({Step{"OK", DialogActions::typeText(name)}, Step{"OK", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->readyMadeRow()->button(0), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY2(answers.text(1).startsWith(QStringLiteral("Error, writing to file: ")),
             qPrintable(answers.text(1)));
    QCOMPARE(QDir(m_library).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestReadyMadeImport::cancelledPromptWritesNothing()
{
    ModalSequence answers({Step{"Cancel", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->readyMadeRow()->button(2), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(QDir(m_library).entryList(QDir::Files), QStringList());
    QVERIFY(!m_page->isChanged());
}

void TestReadyMadeImport::maintenancePageListsTheImportedTableAtOnce()
{
    CLibColourTableDlg dialog(m_settings);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.generalTab()->tableCombo()->count(), 0);
    dialog.tabs()->setCurrentWidget(dialog.importTab());
    ModalSequence answers({Step{"OK", ModalAnswerer::Action()}});
    QTest::mouseClick(dialog.importTab()->readyMadeRow()->button(1), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(dialog.generalTab()->tableCombo()->count(), 1);
    QCOMPARE(dialog.generalTab()->tableCombo()->itemText(0), QStringLiteral("xkcd Colours"));
    dialog.accept();
    QVERIFY(dialog.libraryChanged());
}

void TestReadyMadeImport::samplingPageListsTheImportedTableWhenTheDialogCloses()
{
    CColourImageWindow page(m_settings);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(page.libraryCombo()->count(), 0);
    const auto importX11 = [](QWidget *dialog) {
        auto *maintenance = qobject_cast<CLibColourTableDlg *>(dialog);
        QVERIFY(maintenance);
        maintenance->tabs()->setCurrentWidget(maintenance->importTab());
        QTest::mouseClick(maintenance->importTab()->readyMadeRow()->button(0), Qt::LeftButton);
    };
    ModalSequence answers({Step{"Close", importX11}, Step{"OK", ModalAnswerer::Action()}});
    page.processCommand(CmdMaintainLibrary);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora - Import Colour Table"));
    QCOMPARE(page.libraryCombo()->count(), 1);
    QCOMPARE(page.libraryCombo()->currentText(), QStringLiteral("X11 Colours"));
    // Loaded for matching at once.
    QCOMPARE(page.libraryTable().count(), 658);
}

QTEST_MAIN(TestReadyMadeImport)
#include "tst_readymadeimport.moc"
