#include "app/appsettings.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "palette/gplpalette.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalsequence.h"
#include "support/popupmenuchooser.h"

#include <QApplication>
#include <QClipboard>
#include <QTableView>
#include <QtTest>

#include <memory>

// The data grid's pop-up menu, right-clicked on a row as a user would:
// copying the row's hex and name, and exporting the data set.
class TestDataGridMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void rowMenuOffersHexNameAndExport();
    void rowMenuCopiesTheRowsHex();
    void rowMenuCopiesTheRowsName();
    void menuBelowTheRowsOffersOnlyExport();
    void exportWritesTheDataSetAndLeavesItUnmodified();

private:
    QPoint rowCentre(int row) const;

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<CChartDataWindow> m_page;
};

void TestDataGridMenu::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestDataGridMenu::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_page = std::make_unique<CChartDataWindow>(m_settings.get());
    m_page->resize(1000, 600);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    const QString set = m_fixture.filePath("greens.txt");
    QVERIFY(FixtureFile::write(set, "# mine\n0.1961, 0.8039, 0.1961, Limegreen\n"
                                    "0.0000, 0.0000, 0.5020, Navy & co\n"));
    QVERIFY(m_page->openFile(set));
    QCOMPARE(m_page->grid()->view()->model()->rowCount(), 2);
    QApplication::clipboard()->setText(QStringLiteral("untouched"));
}

void TestDataGridMenu::cleanup()
{
    m_page.reset();
    m_settings.reset();
}

QPoint TestDataGridMenu::rowCentre(int row) const
{
    QTableView *view = m_page->grid()->view();
    return QPoint(view->columnViewportPosition(1) + 5,
                  view->rowViewportPosition(row) + view->rowHeight(row) / 2);
}

void TestDataGridMenu::rowMenuOffersHexNameAndExport()
{
    PopupMenuChooser chooser{QString()};
    PopupMenuChooser::rightClick(m_page->grid()->view()->viewport(), rowCentre(1));
    QVERIFY(chooser.wasShown());
    QCOMPARE(chooser.entries(), QStringList({"Copy #000080", "Copy Name \"Navy & co\"",
                                             "Export Data Set\u2026"}));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("untouched"));
}

void TestDataGridMenu::rowMenuCopiesTheRowsHex()
{
    PopupMenuChooser chooser(QStringLiteral("Copy #32cd32"));
    PopupMenuChooser::rightClick(m_page->grid()->view()->viewport(), rowCentre(0));
    QVERIFY(chooser.wasChosen());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("#32cd32"));
}

void TestDataGridMenu::rowMenuCopiesTheRowsName()
{
    PopupMenuChooser chooser(QStringLiteral("Copy Name \"Navy & co\""));
    PopupMenuChooser::rightClick(m_page->grid()->view()->viewport(), rowCentre(1));
    QVERIFY(chooser.wasChosen());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Navy & co"));
}

void TestDataGridMenu::menuBelowTheRowsOffersOnlyExport()
{
    QTableView *view = m_page->grid()->view();
    const int below = view->rowViewportPosition(1) + view->rowHeight(1) + 10;
    QVERIFY(below < view->viewport()->height());
    PopupMenuChooser chooser{QString()};
    PopupMenuChooser::rightClick(view->viewport(), QPoint(20, below));
    QVERIFY(chooser.wasShown());
    QCOMPARE(chooser.entries(), QStringList({"Export Data Set\u2026"}));
}

void TestDataGridMenu::exportWritesTheDataSetAndLeavesItUnmodified()
{
    const QString target = m_fixture.filePath("exported.gpl");
    QString shownFolder;
    ModalSequence answers({{QString(), DialogActions::chooseFile(target, &shownFolder)}});
    PopupMenuChooser chooser(QStringLiteral("Export Data Set\u2026"));
    PopupMenuChooser::rightClick(m_page->grid()->view()->viewport(), rowCentre(0));
    QVERIFY(chooser.wasChosen());
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(QDir(shownFolder).canonicalPath(), QDir(m_fixture.folder()).canonicalPath());
    const CPaletteReadResult r = CGplPalette::read(FixtureFile::read(target));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().name, QStringLiteral("greens"));
    QCOMPARE(r.palette().colours.size(), 2);
    QCOMPARE(r.palette().colours.at(1).name, QStringLiteral("Navy & co"));
    QCOMPARE(CPalette::hex(r.palette().colours.at(1).rgb), QStringLiteral("#000080"));
    QVERIFY(!m_page->isModified());
    QVERIFY(m_page->title().startsWith(QStringLiteral("greens.txt")));
}

QTEST_MAIN(TestDataGridMenu)
#include "tst_datagridmenu.moc"
