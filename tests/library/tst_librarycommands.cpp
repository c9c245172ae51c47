#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "library/dlglibcolourtableadd.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabgeneral.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "tables/libcolourtable.h"

#include "support/samplefixture.h"
#include "support/filesizelimit.h"
#include "support/fixturefile.h"
#include "support/imagewriter.h"
#include "support/modalsequence.h"
#include "support/storedsettings.h"
#include "support/guitestfixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include <functional>
#include <memory>

using namespace SampleFixture;
using Step = ModalSequence::Step;

// The sampling page's two library commands in the main window: "Maintain
// Colour Library" runs the maintenance dialog and the page's list follows
// its changes; "Add Colour to Colour Library" stores the sample in the
// selected table.
class TestLibraryCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void maintainOpensTheMaintenanceDialog();
    void tableMadeWithNewIsListedOnThePageAtOnce();
    void renamingTheSelectedTableListsTheNewNameAtOnce();
    void deletedTableLeavesThePageListAtOnce();
    void maintenanceHelpGoesToTheMainWindow();
    void addColourStoresTheSampleInTheSelectedTable();
    void addColourCancelledWritesNothing();
    void addColourThatCannotBeWrittenKeepsTheOldFile();
    void addColourHelpGoesToTheMainWindow();
    void addColourAfterAnEditInATextEditorKeepsBothColours();
    void addColourOfANameAnotherWriterAddedMeanwhileIsRefused();

private:
    std::unique_ptr<CMainWindow> openWindow(const QString &selected);
    void pickOrange(CMainWindow &window);
    // Runs "Maintain Colour Library"; `inside` acts on the dialog, which is
    // then closed with "&Close".
    bool maintain(CMainWindow &window, const std::function<void(CLibColourTableDlg *)> &inside);
    static QStringList comboNames(CMainWindow &window);
    QString lib(const QString &file) const { return m_library + QLatin1Char('/') + file; }

    GuiTestFixture *m_home = nullptr;
    QString m_library;
};

namespace {
const QByteArray kBase("# Base\n1.0000, 0.0000, 0.0000, Red\n0.0000, 0.0000, 1.0000, Blue\n");
} // namespace

void TestLibraryCommands::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
}

void TestLibraryCommands::cleanupTestCase()
{
    delete m_home;
}

void TestLibraryCommands::init()
{
    TempHome::clearSettings();
    m_library = m_home->home() + QStringLiteral("/Library");
    QDir(m_library).removeRecursively();
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), kBase));
}

std::unique_ptr<CMainWindow> TestLibraryCommands::openWindow(const QString &selected)
{
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"),
                             QFileInfo(lib(selected)).canonicalFilePath());
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    if (!showWindow(*window))
        return nullptr;
    return window;
}

void TestLibraryCommands::pickOrange(CMainWindow &window)
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(qRgb(255, 128, 0));
    const QString path = m_home->home() + QStringLiteral("/orange.png");
    QVERIFY(ImageWriter::write(image, path));
    QVERIFY(openThroughDialog(window, path));
    leftClick(window.samplingPage()->imageWidget(), QPoint(4, 4));
    QVERIFY(window.samplingPage()->isSamplePresent());
}

bool TestLibraryCommands::maintain(CMainWindow &window,
                                   const std::function<void(CLibColourTableDlg *)> &inside)
{
    bool seen = false;
    ModalAnswerer answer(QStringLiteral("Close"), [&seen, &inside](QWidget *dialog) {
        auto *maintenance = qobject_cast<CLibColourTableDlg *>(dialog);
        if (!maintenance)
            return;
        seen = true;
        if (inside)
            inside(maintenance);
    });
    window.samplingPage()->commandButton(CmdMaintainLibrary)->click();
    return answer.wasAnswered() && seen;
}

QStringList TestLibraryCommands::comboNames(CMainWindow &window)
{
    QStringList names;
    QComboBox *combo = window.samplingPage()->libraryCombo();
    for (int i = 0; i < combo->count(); ++i)
        names << combo->itemText(i);
    return names;
}

void TestLibraryCommands::maintainOpensTheMaintenanceDialog()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    QString title;
    QStringList listed;
    QVERIFY(maintain(*window, [&title, &listed](CLibColourTableDlg *dialog) {
        title = dialog->windowTitle();
        QComboBox *combo = dialog->generalTab()->tableCombo();
        for (int i = 0; i < combo->count(); ++i)
            listed << combo->itemText(i);
    }));
    QCOMPARE(title, QStringLiteral("Vellora - Library Maintenance"));
    QCOMPARE(listed, QStringList({"Base"}));
}

void TestLibraryCommands::tableMadeWithNewIsListedOnThePageAtOnce()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    QCOMPARE(comboNames(*window), QStringList({"Base"}));
    QVERIFY(maintain(*window, [](CLibColourTableDlg *dialog) {
        ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Autumn"))},
                               Step{"OK", {}}});
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::New),
                          Qt::LeftButton);
    }));
    QCOMPARE(comboNames(*window), QStringList({"Autumn", "Base"}));
    QCOMPARE(window->samplingPage()->libraryCombo()->currentText(), QStringLiteral("Base"));
    QCOMPARE(window->samplingPage()->libraryTable().count(), 2);
}

void TestLibraryCommands::renamingTheSelectedTableListsTheNewNameAtOnce()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    QVERIFY(maintain(*window, [](CLibColourTableDlg *dialog) {
        ModalAnswerer answer(QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Core")));
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::Rename),
                          Qt::LeftButton);
    }));
    QCOMPARE(comboNames(*window), QStringList({"Core"}));
    QCOMPARE(window->samplingPage()->libraryCombo()->currentText(), QStringLiteral("Core"));
    QCOMPARE(window->samplingPage()->libraryTable().count(), 2);
}

void TestLibraryCommands::deletedTableLeavesThePageListAtOnce()
{
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Extra.clrtable")), "0.5, 0.5, 0.5, Grey\n"));
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    QCOMPARE(comboNames(*window), QStringList({"Base", "Extra"}));
    QVERIFY(maintain(*window, [](CLibColourTableDlg *dialog) {
        QComboBox *combo = dialog->generalTab()->tableCombo();
        combo->setCurrentIndex(combo->findText(QStringLiteral("Extra")));
        ModalAnswerer answer(QStringLiteral("Yes"));
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::Delete),
                          Qt::LeftButton);
    }));
    QCOMPARE(comboNames(*window), QStringList({"Base"}));
}

void TestLibraryCommands::maintenanceHelpGoesToTheMainWindow()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    QSignalSpy forwarded(window->samplingPage(), &CColourImageWindow::displayHelpSignal);
    QVERIFY(maintain(*window, [](CLibColourTableDlg *dialog) {
        QTest::mouseClick(dialog->helpButton(), Qt::LeftButton);
    }));
    QCOMPARE(forwarded.count(), 1);
    QCOMPARE(forwarded.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabA"));
    QVERIFY(QObject::disconnect(window->samplingPage(), &CColourImageWindow::displayHelpSignal,
                                window.get(), &CMainWindow::displayHelp));
}

void TestLibraryCommands::addColourStoresTheSampleInTheSelectedTable()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    QVERIFY(window->samplingPage()->commandButton(CmdAddToLibrary)->isEnabled());
    QString title;
    ModalAnswerer answer(QStringLiteral("OK"), [&title](QWidget *dialog) {
        title = dialog->windowTitle();
        DialogActions::typeText(QStringLiteral("Orange, bright"))(dialog);
    });
    window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(title, QStringLiteral("Vellora - Table Add Colour"));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))),
             QByteArray("# Base\n1.0000, 0.0000, 0.0000, Red\n0.0000, 0.0000, 1.0000, Blue\n"
                        "1.0000, 0.5020, 0.0000, Orange; bright\n"));
    QCOMPARE(window->samplingPage()->libraryTable().count(), 3);
}

void TestLibraryCommands::addColourCancelledWritesNothing()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    ModalAnswerer answer(QStringLiteral("Cancel"), DialogActions::typeText(QStringLiteral("Nope")));
    window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), kBase);
    QCOMPARE(window->samplingPage()->libraryTable().count(), 2);
}

void TestLibraryCommands::addColourThatCannotBeWrittenKeepsTheOldFile()
{
    QByteArray big("# Big\n");
    for (int i = 0; i < 60; ++i)
        big += "0.5000, 0.5000, 0.5000, Grey number " + QByteArray::number(i) + '\n';
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), big));
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Orange"))},
                           Step{"OK", {}}});
    {
        FileSizeLimit limit(1024);
        QVERIFY(limit.isActive());
        window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    }
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1), QStringLiteral("Error, writing to file: %1.")
                                  .arg(QFileInfo(lib(QStringLiteral("Base.clrtable")))
                                           .canonicalFilePath()));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), big);
    QCOMPARE(window->samplingPage()->libraryTable().count(), 60);
    QCOMPARE(QDir(m_library).entryList(QDir::Files | QDir::Hidden),
             QStringList({"Base.clrtable"}));
}

void TestLibraryCommands::addColourAfterAnEditInATextEditorKeepsBothColours()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    // Someone edits the table in a text editor after the page loaded it.
    const QByteArray edited = kBase + "0.0000, 1.0000, 0.0000, Green from the editor\n";
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), edited));
    ModalAnswerer answer(QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Orange")));
    window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))),
             edited + "1.0000, 0.5020, 0.0000, Orange\n");
    QCOMPARE(window->samplingPage()->libraryTable().count(), 4);
    QCOMPARE(window->samplingPage()->libraryTable().at(2)->name,
             QStringLiteral("Green from the editor"));
}

void TestLibraryCommands::addColourOfANameAnotherWriterAddedMeanwhileIsRefused()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    const QByteArray theirs = kBase + "1.0000, 0.6000, 0.0000, Orange\n";
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), theirs));
    ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Orange"))},
                           Step{"OK", {}}});
    window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY2(answers.text(1).contains(QStringLiteral("already contains a colour called")),
             qPrintable(answers.text(1)));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), theirs);
    QCOMPARE(window->samplingPage()->libraryTable().count(), 3);
}

void TestLibraryCommands::addColourHelpGoesToTheMainWindow()
{
    auto window = openWindow(QStringLiteral("Base.clrtable"));
    QVERIFY(window);
    pickOrange(*window);
    window->samplingPage()->commandButton(CmdMatchColour)->click();
    QSignalSpy forwarded(window->samplingPage(), &CColourImageWindow::displayHelpSignal);
    ModalAnswerer answer(QStringLiteral("Cancel"), [](QWidget *dialog) {
        if (auto *add = qobject_cast<CDlgLibColourTableAdd *>(dialog))
            QTest::mouseClick(add->helpButton(), Qt::LeftButton);
    });
    window->samplingPage()->commandButton(CmdAddToLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(forwarded.count(), 1);
    QCOMPARE(forwarded.at(0).at(0).toString(), QStringLiteral("library.html#libAddColour"));
}

QTEST_MAIN(TestLibraryCommands)
#include "tst_librarycommands.moc"
