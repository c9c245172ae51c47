// "Check Contrast…" and "Contrast Grid…" on the pages' menus, driven through
// the main window as a user would.
#include "access/contrastgridwindow.h"
#include "access/contrasttools.h"
#include "access/contrastwindow.h"
#include "common/appcontext.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "sample/matchresultsview.h"
#include "sample/samplepanel.h"
#include "tables/colourtableentry.h"
#include "tables/datacolourtable.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/samplefixture.h"
#include "support/storedsettings.h"
#include "support/temphome.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

QAction *findAction(QMenu *menu, const QString &text)
{
    for (QAction *action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

} // namespace

class TestContrastTools : public QObject
{
    Q_OBJECT

private:
    GuiTestFixture m_home;
    std::unique_ptr<CMainWindow> m_window;
    QString m_library;
    int m_count = 0;

    CColourImageWindow *openTwoColours();
    QString writeTable(const QString &fileName);

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void swatchMenuOpensTheWindowOnTheSample();
    void nextPickBecomesTheBackgroundWhileOpen();
    void matchRowMenuChecksTheEntryAgainstTheSample();
    void listOffersMultipleSelectionMatchRowsAndDataSetRows();
    void dataGridMenuChecksARowAndOpensTheGrid();
    void gridEntryIsOffBelowTheRowsOfAnEmptyDataSet();
};

void TestContrastTools::initTestCase()
{
    QVERIFY(m_home.isValid());
    AppContext::initResources();
}

void TestContrastTools::init()
{
    TempHome::clearSettings();
    m_library = m_home.filePath(QStringLiteral("library%1").arg(++m_count));
    QVERIFY(QDir().mkpath(m_library));
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), m_library);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
}

void TestContrastTools::cleanup()
{
    m_window.reset();
}

QString TestContrastTools::writeTable(const QString &fileName)
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Lighter Grey", 0.5098, 0.5098, 0.5098));
    table.add(std::make_unique<CColourTableEntry>("Dark Grey", 0.3, 0.3, 0.3));
    const QString path = m_library + "/" + fileName;
    return table.write(path) ? QFileInfo(path).canonicalFilePath() : QString();
}

// A picture grey on the left (128) and black on the right.
CColourImageWindow *TestContrastTools::openTwoColours()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    for (int y = 0; y < 10; ++y)
        for (int x = 10; x < 20; ++x)
            image.setPixel(x, y, qRgb(0, 0, 0));
    m_window = SampleFixture::openImageWindow(image, m_home.filePath(QStringLiteral("two.png")));
    return m_window ? m_window->samplingPage() : nullptr;
}

void TestContrastTools::swatchMenuOpensTheWindowOnTheSample()
{
    CColourImageWindow *page = openTwoColours();
    QVERIFY(page);
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    std::unique_ptr<CColourContextMenu> menu(page->samplePanel()->buildSwatchMenu());
    QVERIFY(menu);
    QAction *check = findAction(menu.get(), QStringLiteral("Check Contrast\u2026"));
    QVERIFY(check);
    // The copy entries stay first.
    QVERIFY(menu->actions().first()->text().startsWith("Copy"));
    check->trigger();
    CContrastWindow *window = m_window->contrastTools()->contrastWindow();
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Vellora - Contrast"));
    QCOMPARE(window->textName()->text(), QStringLiteral("#808080"));
    QCOMPARE(window->backgroundColour().name, QStringLiteral("White"));
}

void TestContrastTools::nextPickBecomesTheBackgroundWhileOpen()
{
    CColourImageWindow *page = openTwoColours();
    QVERIFY(page);
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    m_window->contrastTools()->openContrast({page->sample(), QString(), "Sample"},
                                            {{1.0, 1.0, 1.0}, "White", QString()});
    CContrastWindow *window = m_window->contrastTools()->contrastWindow();
    QVERIFY(window);
    SampleFixture::leftClick(page->imageWidget(), QPoint(15, 4));
    QCOMPARE(window->backgroundName()->text(), QStringLiteral("#000000"));
    QCOMPARE(window->textName()->text(), QStringLiteral("#808080"));
    // Closed, the window no longer follows the page.
    window->close();
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    QVERIFY(m_window->contrastTools()->contrastWindow() == nullptr
            || m_window->contrastTools()->contrastWindow()->backgroundName()->text()
                   == QStringLiteral("#000000"));
}

void TestContrastTools::matchRowMenuChecksTheEntryAgainstTheSample()
{
    const QString table = writeTable("Greys.clrtable");
    QVERIFY(!table.isEmpty());
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    CColourImageWindow *page = openTwoColours();
    QVERIFY(page);
    SampleFixture::leftClick(page->imageWidget(), QPoint(15, 4));
    page->commandButton(CmdMatchColour)->click();
    auto *view = qobject_cast<CMatchResultsView *>(page->resultsTable());
    QVERIFY(view);
    QVERIFY(view->rowCount() >= 1);
    std::unique_ptr<CColourContextMenu> menu(view->buildRowMenu(0));
    QVERIFY(menu);
    QAction *check = findAction(menu.get(), QStringLiteral("Check Contrast\u2026"));
    QVERIFY(check);
    check->trigger();
    CContrastWindow *window = m_window->contrastTools()->contrastWindow();
    QVERIFY(window);
    QCOMPARE(window->textColour().name, view->rowEntry(0)->name);
    QCOMPARE(window->backgroundName()->text(), QStringLiteral("#000000"));
}

void TestContrastTools::listOffersMultipleSelectionMatchRowsAndDataSetRows()
{
    const QString table = writeTable("Greys.clrtable");
    StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), table);
    CColourImageWindow *page = openTwoColours();
    QVERIFY(page);
    SampleFixture::leftClick(page->imageWidget(), QPoint(4, 4));
    page->commandButton(CmdMatchColour)->click();
    page->commandButton(CmdSelectMultiple)->click();
    SampleFixture::leftClick(page->imageWidget(), QPoint(15, 4));
    QCOMPARE(page->multipleCount(), 1);
    CDataColourTable *data = m_window->dataPage()->grid()->table();
    data->add(std::make_unique<CColourTableEntry>("Paper", 0.96, 0.95, 0.9));
    QStringList texts;
    for (const ContrastColour &c : m_window->contrastTools()->candidates())
        texts << c.source + ":" + c.name;
    QVERIFY2(texts.contains("Slot 1:"), qPrintable(texts.join('|')));
    QVERIFY2(texts.contains("Match:Lighter Grey"), qPrintable(texts.join('|')));
    QVERIFY2(texts.contains("Data set:Paper"), qPrintable(texts.join('|')));
}

void TestContrastTools::dataGridMenuChecksARowAndOpensTheGrid()
{
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    CDataGrid *grid = m_window->dataPage()->grid();
    grid->table()->add(std::make_unique<CColourTableEntry>("Ink", 0.0, 0.0, 0.0));
    grid->table()->add(std::make_unique<CColourTableEntry>("Paper", 1.0, 1.0, 1.0));
    std::unique_ptr<CColourContextMenu> menu(grid->buildContextMenu(0));
    QAction *check = findAction(menu.get(), QStringLiteral("Check Contrast\u2026"));
    QAction *gridAction = findAction(menu.get(), QStringLiteral("Contrast Grid\u2026"));
    QVERIFY(check);
    QVERIFY(gridAction);
    // The page's own entry stays last.
    QCOMPARE(menu->actions().last()->text(), QStringLiteral("Export Data Set\u2026"));
    check->trigger();
    CContrastWindow *window = m_window->contrastTools()->contrastWindow();
    QVERIFY(window);
    QCOMPARE(window->textName()->text(), QStringLiteral("Ink (#000000)"));
    gridAction->trigger();
    CContrastGridWindow *gridWindow = m_window->contrastTools()->gridWindow();
    QVERIFY(gridWindow);
    QCOMPARE(gridWindow->windowTitle(), QStringLiteral("Vellora - Contrast Grid"));
    QCOMPARE(gridWindow->view()->model()->rowCount(), 2);
    QCOMPARE(gridWindow->view()->model()->index(0, 1).data().toString(),
             QStringLiteral("21.00\nAAA"));
}

void TestContrastTools::gridEntryIsOffBelowTheRowsOfAnEmptyDataSet()
{
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    CDataGrid *grid = m_window->dataPage()->grid();
    std::unique_ptr<CColourContextMenu> menu(grid->buildContextMenu(-1));
    QVERIFY(!findAction(menu.get(), QStringLiteral("Check Contrast\u2026")));
    QAction *gridAction = findAction(menu.get(), QStringLiteral("Contrast Grid\u2026"));
    QVERIFY(gridAction);
    QVERIFY(!gridAction->isEnabled());
}

QTEST_MAIN(TestContrastTools)
#include "tst_contrasttools.moc"
