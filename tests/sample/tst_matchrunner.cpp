#include "app/appsettings.h"
#include "sample/colourcontextmenu.h"
#include "sample/dlgexplainmatch.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/matchrunner.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/modalanswerer.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// The sampling page's matching without the page: the user's match says why
// it cannot run, the quiet repeat says nothing and only repeats, and every
// result row's menu offers an explanation.
class TestMatchRunner : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void matchShowsTheRowsAndSaysSo();
    void matchWithoutASampleSaysSoAndShowsNothing();
    void matchOfAnEmptyTableNamesItAndClearsTheRows();
    void quietRepeatWithoutAnEarlierMatchDoesNothing();
    void quietRepeatFollowsTheNewSample();
    void quietRepeatWithoutASampleDoesNothing();
    void forgottenMatchIsNotRepeated();
    void rowMenuOffersAnExplanationOfThatRow();

private:
    bool selectTable(const QString &name, const QVector<RgbColour> &colours);

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<QWidget> m_host;
    CLibrarySelector *m_library = nullptr;
    CMatchResultsView *m_results = nullptr;
    CMatchRunner *m_runner = nullptr;
};

void TestMatchRunner::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMatchRunner::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_host = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(m_host.get());
    m_library = new CLibrarySelector(m_settings.get(), m_host.get());
    m_results = new CMatchResultsView(m_settings.get(), m_host.get());
    layout->addWidget(m_library);
    layout->addWidget(m_results);
    m_runner = new CMatchRunner(m_library, m_results, m_host.get());
    connect(m_library, &CLibrarySelector::tableSelected, m_library,
            [this](int index) { m_library->loadTable(index); });
    m_host->resize(600, 500);
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
}

void TestMatchRunner::cleanup()
{
    m_host.reset();
    m_settings.reset();
}

// Writes a table named `name` with one entry per colour ("Entry 1" ...) into
// the library folder and makes it the selected, loaded table.
bool TestMatchRunner::selectTable(const QString &name, const QVector<RgbColour> &colours)
{
    CLibColourTable table;
    for (int i = 0; i < colours.size(); ++i) {
        const RgbColour &c = colours.at(i);
        table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Entry %1").arg(i + 1), c.red,
                                                      c.green, c.blue));
    }
    const QString path = QDir(m_settings->libraryDir).filePath(name + ".clrtable");
    if (!table.write(path))
        return false;
    m_settings->selectedTable = path;
    m_library->fillLibraryCombo();
    return m_library->currentText() == name && m_library->table().count() == colours.size();
}

void TestMatchRunner::matchShowsTheRowsAndSaysSo()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    m_runner->match({0.0, 0.0, 0.95}, true);
    QCOMPARE(matched.count(), 1);
    QVERIFY(m_runner->hasMatched());
    QVERIFY(m_results->rowCount() >= 1);
    QCOMPARE(m_results->rowEntry(0)->name, QStringLiteral("Entry 3"));
}

void TestMatchRunner::matchWithoutASampleSaysSoAndShowsNothing()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    ModalAnswerer answer(QStringLiteral("OK"));
    m_runner->match({0.0, 0.0, 1.0}, false);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("No Colour has been selected for matching."));
    QCOMPARE(matched.count(), 0);
    QVERIFY(!m_runner->hasMatched());
    QCOMPARE(m_results->rowCount(), 0);
}

void TestMatchRunner::matchOfAnEmptyTableNamesItAndClearsTheRows()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    m_runner->match({1.0, 0.0, 0.0}, true);
    QVERIFY(m_results->rowCount() > 0);
    QVERIFY(selectTable("Bare", {}));
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    ModalAnswerer answer(QStringLiteral("OK"));
    m_runner->match({1.0, 0.0, 0.0}, true);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral(
                                "The Bare Colour Match Library is empty, so a match cannot be "
                                "attempted."));
    QCOMPARE(m_results->rowCount(), 0);
    QCOMPARE(matched.count(), 0);
}

void TestMatchRunner::quietRepeatWithoutAnEarlierMatchDoesNothing()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    ModalAnswerer answer(QStringLiteral("OK"), ModalAnswerer::Action(), 300);
    m_runner->repeat({1.0, 0.0, 0.0}, true);
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(matched.count(), 0);
    QCOMPARE(m_results->rowCount(), 0);
}

void TestMatchRunner::quietRepeatFollowsTheNewSample()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    m_runner->match({0.9, 0.0, 0.0}, true);
    QCOMPARE(m_results->rowEntry(0)->name, QStringLiteral("Entry 1"));
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    m_runner->repeat({0.0, 0.9, 0.0}, true);
    QCOMPARE(matched.count(), 1);
    QCOMPARE(m_results->rowEntry(0)->name, QStringLiteral("Entry 2"));
    QCOMPARE(m_results->matchedSample().green, 0.9);
}

void TestMatchRunner::quietRepeatWithoutASampleDoesNothing()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    m_runner->match({0.9, 0.0, 0.0}, true);
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    ModalAnswerer answer(QStringLiteral("OK"), ModalAnswerer::Action(), 300);
    m_runner->repeat({0.0, 0.9, 0.0}, false);
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(matched.count(), 0);
    QCOMPARE(m_results->rowEntry(0)->name, QStringLiteral("Entry 1"));
}

void TestMatchRunner::forgottenMatchIsNotRepeated()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    m_runner->match({0.9, 0.0, 0.0}, true);
    m_runner->forget();
    QVERIFY(!m_runner->hasMatched());
    QSignalSpy matched(m_runner, &CMatchRunner::matched);
    m_runner->repeat({0.0, 0.9, 0.0}, true);
    QCOMPARE(matched.count(), 0);
    QCOMPARE(m_results->rowEntry(0)->name, QStringLiteral("Entry 1"));
}

void TestMatchRunner::rowMenuOffersAnExplanationOfThatRow()
{
    QVERIFY(selectTable("Trio", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    m_runner->match({0.0, 0.0, 0.95}, true);
    QVERIFY(m_results->rowCount() >= 2);
    std::unique_ptr<CColourContextMenu> menu(m_results->buildRowMenu(1));
    QVERIFY(menu);
    QAction *explain = nullptr;
    for (QAction *action : menu->actions()) {
        if (action->text() == QStringLiteral("Explain this match\u2026"))
            explain = action;
    }
    QVERIFY(explain);
    QVERIFY(m_host->findChildren<CDlgExplainMatch *>().isEmpty());
    explain->trigger();
    const QList<CDlgExplainMatch *> windows = m_host->findChildren<CDlgExplainMatch *>();
    QCOMPARE(windows.size(), 1);
    QVERIFY(windows.first()->isVisible());
    QVERIFY(windows.first()->testAttribute(Qt::WA_DeleteOnClose));
    const QString otherName = m_results->rowEntry(1)->name;
    QVERIFY2(windows.first()->sentenceLabel()->text().contains(otherName),
             qPrintable(windows.first()->sentenceLabel()->text()));
    windows.first()->close();
}

QTEST_MAIN(TestMatchRunner)
#include "tst_matchrunner.moc"
