#include "app/appsettings.h"
#include "common/commandid.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/colournamemodel.h"
#include "sample/dlgfindcolour.h"
#include "sample/findcolourhook.h"
#include "sample/libraryselector.h"
#include "sample/picknotes.h"
#include "sample/spreadworker.h"
#include "palette/colourcopytext.h"
#include "tables/readymadetables.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/popupmenuchooser.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include <memory>

// "Find Colour…" on the sampling page: opened by Ctrl+F or the library
// combo's menu on the selected table, searched as the user types (case and
// accents ignored), and the chosen colour becomes the page's sample as a
// pick would make it.
class TestFindColour : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void ctrlFOpensTheWindowOnTheSelectedTable();
    void libraryComboMenuOffersFindColour();
    void typingIgnoresCase();
    void typingIgnoresAccents_data();
    void typingIgnoresAccents();
    void rowsShowSwatchNameAndValues();
    void noHitSaysSoAndCannotBeUsed();
    void searchesThirtyOneThousandNames();
    void doubleClickMakesTheColourTheSample();
    void enterInTheFieldTakesTheFirstHit();
    void downArrowInTheFieldMovesThroughTheList();
    void chosenSampleMatchesAsAPickWould();
    void secondCtrlFReusesTheOpenWindow();

private:
    void selectTable(const QString &name);
    CFindColourHook *hook() const { return m_page->findChild<CFindColourHook *>(); }
    CDlgFindColour *openWithKey();
    QStringList shownNames(CDlgFindColour *window) const;

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<CColourImageWindow> m_page;
};

void TestFindColour::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestFindColour::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    const QDir library(m_settings->libraryDir);
    QVERIFY(library.mkpath(QStringLiteral(".")));
    // A user's own table as the program reads it: Latin-1 bytes.
    QVERIFY(FixtureFile::write(library.filePath(QStringLiteral("Cafe.clrtable")),
                               "#My colours\n"
                               "0.4000, 0.2000, 0.0000, Caf\xe9 au Lait\n"
                               "0.1000, 0.1000, 0.1000, Noir\n"
                               "1.0000, 0.9000, 0.8000, Cr\xe8me Br\xfbl\xe9""e\n"
                               "0.0000, 0.0000, 0.5000, CAFE BLEU\n"));
    QVERIFY(FixtureFile::write(library.filePath(QStringLiteral("Color Name List.clrtable")),
                               CReadyMadeTables::content(CReadyMadeTables::all().at(2))));
    m_page = std::make_unique<CColourImageWindow>(m_settings.get());
    m_page->resize(900, 900);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->showImage(m_fixture.filePath("picture.png"), ImageWriter::gradient(20, 20));
    selectTable(QStringLiteral("Cafe"));
}

void TestFindColour::cleanup()
{
    m_page.reset();
    m_settings.reset();
}

void TestFindColour::selectTable(const QString &name)
{
    const int index = m_page->libraryCombo()->findText(name);
    QVERIFY(index >= 0);
    m_page->libraryCombo()->setCurrentIndex(index);
    QCOMPARE(m_page->libraryCombo()->currentText(), name);
}

CDlgFindColour *TestFindColour::openWithKey()
{
    QApplication::setActiveWindow(m_page.get());
    m_page->view()->setFocus();
    QTest::keyClick(m_page->view(), Qt::Key_F, Qt::ControlModifier);
    return hook() ? hook()->window() : nullptr;
}

QStringList TestFindColour::shownNames(CDlgFindColour *window) const
{
    QStringList names;
    for (int row = 0; row < window->model()->rowCount(); ++row)
        names << window->model()->name(row);
    return names;
}

void TestFindColour::ctrlFOpensTheWindowOnTheSelectedTable()
{
    QVERIFY(hook());
    QVERIFY(hook()->window() == nullptr);
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCOMPARE(window->windowTitle(), QStringLiteral("Vellora - Find Colour"));
    QCOMPARE(window->tableLabel()->text(), QStringLiteral("Table: Cafe (4 colours)"));
    QVERIFY(!window->isModal());
    // Nothing typed yet: every entry, in table order.
    QCOMPARE(shownNames(window), QStringList({"Café au Lait", "Noir", "Crème Brûlée", "CAFE BLEU"}));
    QCOMPARE(window->countLabel()->text(), QStringLiteral("4 of 4 colours"));
    QCOMPARE(hook()->findAction()->shortcut(), QKeySequence(QKeySequence::Find));
}

void TestFindColour::libraryComboMenuOffersFindColour()
{
    PopupMenuChooser chooser(QStringLiteral("Find Colour\u2026"));
    PopupMenuChooser::rightClick(m_page->libraryCombo());
    QVERIFY(chooser.wasShown());
    QVERIFY(chooser.wasChosen());
    QCOMPARE(chooser.entries(), QStringList{QStringLiteral("Find Colour\u2026")});
    QVERIFY(hook()->window());
    QCOMPARE(hook()->window()->tableLabel()->text(), QStringLiteral("Table: Cafe (4 colours)"));
}

void TestFindColour::typingIgnoresCase()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("nOIR"));
    QCOMPARE(shownNames(window), QStringList{"Noir"});
    QCOMPARE(window->countLabel()->text(), QStringLiteral("1 of 4 colours"));
}

void TestFindColour::typingIgnoresAccents_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none typed, stored with") << "cafe" << QStringList{"Café au Lait", "CAFE BLEU"};
    QTest::newRow("typed with, stored without") << "CAFÉ B" << QStringList{"CAFE BLEU"};
    QTest::newRow("several accents") << "creme brulee" << QStringList{"Crème Brûlée"};
}

void TestFindColour::typingIgnoresAccents()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, names);
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), typed);
    QCOMPARE(window->searchField()->text(), typed);
    QCOMPARE(shownNames(window), names);
}

void TestFindColour::rowsShowSwatchNameAndValues()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("au lait"));
    const CColourNameModel *model = window->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->data(model->index(0, CColourNameModel::SwatchColumn), Qt::BackgroundRole)
                 .value<QColor>(),
             QColor(QStringLiteral("#663300")));
    QCOMPARE(model->data(model->index(0, CColourNameModel::SwatchColumn), Qt::DecorationRole)
                 .value<QColor>(),
             QColor(QStringLiteral("#663300")));
    QCOMPARE(model->data(model->index(0, CColourNameModel::NameColumn), Qt::DisplayRole).toString(),
             QStringLiteral("Café au Lait"));
    QCOMPARE(model->data(model->index(0, CColourNameModel::HexColumn), Qt::DisplayRole).toString(),
             QStringLiteral("#663300"));
    QCOMPARE(model->data(model->index(0, CColourNameModel::RgbColumn), Qt::DisplayRole).toString(),
             QStringLiteral("R:102, G:51, B:0"));
    QVERIFY(model->data(model->index(0, CColourNameModel::LabColumn), Qt::DisplayRole)
                .toString()
                .startsWith(QStringLiteral("L:")));
}

void TestFindColour::noHitSaysSoAndCannotBeUsed()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("mauve"));
    QCOMPARE(window->model()->rowCount(), 0);
    QCOMPARE(window->countLabel()->text(), QStringLiteral("No colour name contains \"mauve\"."));
    QVERIFY(!window->useButton()->isEnabled());
    QTest::keyClick(window->searchField(), Qt::Key_Return);
    QVERIFY(!m_page->isSamplePresent());
}

// The largest ready-made table: 31,918 names, 1750 of them with "blue"
// (counted in colornames.json of color-name-list 14.51.0).
void TestFindColour::searchesThirtyOneThousandNames()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    // The open window follows the page's choice of table.
    selectTable(QStringLiteral("Color Name List"));
    QCOMPARE(window->tableLabel()->text(), QStringLiteral("Table: Color Name List (31918 colours)"));
    QCOMPARE(window->model()->rowCount(), 31918);
    QTest::keyClicks(window->searchField(), QStringLiteral("Blue"));
    QCOMPARE(window->model()->rowCount(), 1750);
    QCOMPARE(window->countLabel()->text(), QStringLiteral("1750 of 31918 colours"));
    QTest::keyClicks(window->searchField(), QStringLiteral(" Jay"));
    QCOMPARE(shownNames(window), QStringList({"Blue Jay", "Blue Jay Crest"}));
}

void TestFindColour::doubleClickMakesTheColourTheSample()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!m_page->isSamplePresent());
    QTableView *view = window->resultsView();
    const QRect cell = view->visualRect(window->model()->index(2, CColourNameModel::NameColumn));
    // A real double click: a first click, then the second press comes as
    // the double-click event.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QVERIFY(m_page->isSamplePresent());
    QCOMPARE(CColourCopyText::hex(m_page->sample()), QStringLiteral("#ffe6cc"));
    QCOMPARE(m_page->sample().green, 0.9);
    QVERIFY(m_page->commandButton(CmdMatchColour)->isEnabled());
    QVERIFY(m_page->commandButton(CmdAddToDataSet)->isEnabled());
    // The window stays for the next one.
    QVERIFY(window->isVisible());
}

void TestFindColour::enterInTheFieldTakesTheFirstHit()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("bleu"));
    QTest::keyClick(window->searchField(), Qt::Key_Return);
    QVERIFY(m_page->isSamplePresent());
    QCOMPARE(CColourCopyText::hex(m_page->sample()), QStringLiteral("#000080"));
}

void TestFindColour::downArrowInTheFieldMovesThroughTheList()
{
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("cafe"));
    QTest::keyClick(window->searchField(), Qt::Key_Down);
    QCOMPARE(window->resultsView()->currentIndex().row(), 1);
    QTest::keyClick(window->searchField(), Qt::Key_Return);
    QCOMPARE(CColourCopyText::hex(m_page->sample()), QStringLiteral("#000080"));
    QTest::keyClick(window->searchField(), Qt::Key_Up);
    QTest::keyClick(window->searchField(), Qt::Key_Return);
    QCOMPARE(CColourCopyText::hex(m_page->sample()), QStringLiteral("#663300"));
}

void TestFindColour::chosenSampleMatchesAsAPickWould()
{
    // A pick of mixed colours first: its note goes with the named colour.
    m_page->pickImageRegion(QRect(0, 0, 20, 20));
    QVERIFY(m_page->isSamplePresent());
    QTRY_VERIFY(!m_page->pickNotes()->mixedLabel()->isHidden());
    CDlgFindColour *window = openWithKey();
    QVERIFY(window);
    QTest::keyClicks(window->searchField(), QStringLiteral("noir"));
    QTest::mouseClick(window->useButton(), Qt::LeftButton);
    QCOMPARE(m_page->sample().red, 0.1);
    QVERIFY(m_page->pickNotes()->mixedLabel()->isHidden());

    // A named colour chosen while the last pick's spread is still measured:
    // that spread's note never lands on it.
    m_page->pickImageRegion(QRect(0, 0, 20, 20));
    QTest::mouseClick(window->useButton(), Qt::LeftButton);
    QVERIFY(m_page->spreadWorker()->waitForIdle(60000));
    QCoreApplication::processEvents();
    QVERIFY(m_page->pickNotes()->mixedLabel()->isHidden());
    m_page->processCommand(CmdMatchColour);
    QTableWidget *results = m_page->resultsTable();
    QVERIFY(results->rowCount() > 0);
    const QList<QLabel *> labels = results->cellWidget(0, 1)->findChildren<QLabel *>();
    QVERIFY(!labels.isEmpty());
    QCOMPARE(labels.first()->text(), QStringLiteral("Noir"));
}

void TestFindColour::secondCtrlFReusesTheOpenWindow()
{
    CDlgFindColour *first = openWithKey();
    QVERIFY(first);
    QTest::keyClicks(first->searchField(), QStringLiteral("cafe"));
    CDlgFindColour *second = openWithKey();
    QCOMPARE(second, first);
    QCOMPARE(second->searchField()->text(), QStringLiteral("cafe"));
    QCOMPARE(m_page->findChildren<CDlgFindColour *>().size(), 1);
}

QTEST_MAIN(TestFindColour)
#include "tst_findcolour.moc"
