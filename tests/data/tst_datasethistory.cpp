#include "common/appcontext.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "data/datamodel.h"
#include "data/datasethistory.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalanswerer.h"
#include "support/modalsequence.h"
#include "support/popupmenuchooser.h"

#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

#include <memory>

namespace {

const QByteArray kColours = "# mine\n0.5294, 0.8078, 0.9216, Sky Blue\n"
                            "1.0000, 0.5000, 0.0000, Orange\n0.5000, 0.5000, 0.5000, Grey\n";
const QByteArray kOther = "0.1000, 0.1000, 0.1000, Soot\n";

} // namespace

// The data page's undo history, driven as a user drives it: each kind of
// change (a colour added, a row deleted, a row renamed, New, Open) undone
// with the desktop's Undo key or the grid's menu and redone again, with the
// rows, the modified flag and the window title checked after every step.
class TestDataSetHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void addedColourIsUndoneAndRedone();
    void deletedRowComesBackInItsPlace();
    void renameIsUndoneAndRedone();
    void undoingNewBringsBackTheSetAndItsFileName();
    void undoingOpenBringsBackTheEarlierSet();
    void saveKeepsTheHistory();
    void menuNamesTheChangeAndUndoesIt();
    void menuOffersNothingWithoutHistory();
    void keysDoNothingWhileTheSamplingPageShows();

private:
    CChartDataWindow *page() const { return m_window->dataPage(); }
    QStringList rows() const;
    QString title() const { return m_window->windowTitle(); }
    QString titled(const QString &part) const { return part + AppContext::versionTitle(); }
    void undoKey();
    void redoKey();
    void click(int command);
    void clickCell(int row, int column);
    QString writeFile(const QString &name, const QByteArray &bytes);
    void openColours();

    GuiTestFixture m_fixture;
    std::unique_ptr<CMainWindow> m_window;
};

void TestDataSetHistory::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestDataSetHistory::init()
{
    m_fixture.reset();
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->tabWidget()->setCurrentWidget(page());
    openColours();
}

void TestDataSetHistory::cleanup()
{
    m_window.reset();
}

QStringList TestDataSetHistory::rows() const
{
    QStringList names;
    QAbstractItemModel *model = page()->grid()->view()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        names << model->data(model->index(row, CDataModel::ColName)).toString();
    return names;
}

void TestDataSetHistory::undoKey()
{
    // A dialog that just closed may have left no window active; a user
    // would be back in the main window.
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keySequence(m_window.get(), QKeySequence(QKeySequence::Undo));
}

void TestDataSetHistory::redoKey()
{
    // A dialog that just closed may have left no window active; a user
    // would be back in the main window.
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keySequence(m_window.get(), QKeySequence(QKeySequence::Redo));
}

void TestDataSetHistory::click(int command)
{
    QToolButton *button = page()->commandButton(command);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

void TestDataSetHistory::clickCell(int row, int column)
{
    QTableView *view = page()->grid()->view();
    const QPoint pos = view->visualRect(view->model()->index(row, column)).center();
    QMouseEvent move(QEvent::MouseMove, pos, view->viewport()->mapToGlobal(pos), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &move);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
}

QString TestDataSetHistory::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = m_fixture.filePath(name);
    FixtureFile::write(path, bytes);
    return path;
}

void TestDataSetHistory::openColours()
{
    QVERIFY(page()->openFile(writeFile(QStringLiteral("colours.txt"), kColours)));
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(!page()->isModified());
    m_window->updateTitle();
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));
}

void TestDataSetHistory::addedColourIsUndoneAndRedone()
{
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Teal"))}});
    QVERIFY(m_window->addColourToDataSet(0.0, 0.5, 0.5));
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey", "Teal"}));
    QVERIFY(page()->isModified());
    QCOMPARE(page()->history()->stack()->undoText(), QStringLiteral("Add \"Teal\""));

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));

    redoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey", "Teal"}));
    QVERIFY(page()->isModified());
    QCOMPARE(page()->model()->table()->at(3)->green, 0.5);
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));
}

void TestDataSetHistory::deletedRowComesBackInItsPlace()
{
    clickCell(1, CDataModel::ColDelete);
    QCOMPARE(rows(), QStringList({"Sky Blue", "Grey"}));
    QVERIFY(page()->isModified());
    QCOMPARE(page()->history()->stack()->undoText(), QStringLiteral("Delete \"Orange\""));

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QCOMPARE(page()->model()->table()->at(1)->red, 1.0);
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));

    redoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Grey"}));
    QVERIFY(page()->isModified());
}

void TestDataSetHistory::renameIsUndoneAndRedone()
{
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Ocean"))}});
    clickCell(0, CDataModel::ColEdit);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(rows(), QStringList({"Ocean", "Orange", "Grey"}));
    QCOMPARE(page()->history()->stack()->undoText(), QStringLiteral("Rename \"Sky Blue\""));

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(page()->isModified());

    redoKey();
    QCOMPARE(rows(), QStringList({"Ocean", "Orange", "Grey"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));
}

void TestDataSetHistory::undoingNewBringsBackTheSetAndItsFileName()
{
    click(CmdNewData);
    QCOMPARE(rows(), QStringList());
    QVERIFY(!page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("Untitled - ")));
    QCOMPARE(page()->history()->stack()->undoText(), QStringLiteral("New"));

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));
    QCOMPARE(page()->dataTable()->filePath(), m_fixture.filePath(QStringLiteral("colours.txt")));
    QCOMPARE(page()->dataTable()->header(), QStringLiteral("# mine"));

    redoKey();
    QCOMPARE(rows(), QStringList());
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("Untitled - ")));
}

void TestDataSetHistory::undoingOpenBringsBackTheEarlierSet()
{
    clickCell(2, CDataModel::ColDelete); // unsaved: Open asks first
    const QString other = writeFile(QStringLiteral("other.txt"), kOther);
    ModalSequence answers({{QStringLiteral("No"), {}}, {QString(), DialogActions::chooseFile(other)}});
    click(CmdOpenData);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(rows(), QStringList({"Soot"}));
    QCOMPARE(title(), titled(QStringLiteral("other.txt - ")));
    QCOMPARE(page()->history()->stack()->undoText(), QStringLiteral("Open \"other.txt\""));

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));

    undoKey(); // and the deletion before it
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));

    redoKey();
    redoKey();
    QCOMPARE(rows(), QStringList({"Soot"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("other.txt - ")));
}

void TestDataSetHistory::saveKeepsTheHistory()
{
    clickCell(0, CDataModel::ColDelete);
    click(CmdSaveData);
    QVERIFY(!page()->isModified());
    QVERIFY(!FixtureFile::read(m_fixture.filePath("colours.txt")).contains("Sky Blue"));
    QVERIFY(page()->history()->stack()->canUndo());

    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(page()->isModified());
    QCOMPARE(title(), titled(QStringLiteral("colours.txt - ")));
}

void TestDataSetHistory::menuNamesTheChangeAndUndoesIt()
{
    clickCell(0, CDataModel::ColDelete);
    QTableView *view = page()->grid()->view();
    {
        PopupMenuChooser chooser(QStringLiteral("Undo Delete \"Sky Blue\""));
        PopupMenuChooser::rightClick(view->viewport(), QPoint(20, 5));
        QVERIFY(chooser.wasChosen());
    }
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
    QVERIFY(page()->isModified());
    {
        PopupMenuChooser chooser(QStringLiteral("Redo Delete \"Sky Blue\""));
        PopupMenuChooser::rightClick(view->viewport(), QPoint(20, 5));
        QVERIFY(chooser.wasChosen());
        // Opening the first file onto the empty start is not a change.
        QVERIFY(!chooser.entries().contains(QStringLiteral("Undo Open \"colours.txt\"")));
    }
    QCOMPARE(rows(), QStringList({"Orange", "Grey"}));
}

void TestDataSetHistory::menuOffersNothingWithoutHistory()
{
    QVERIFY(!page()->history()->stack()->canUndo());
    PopupMenuChooser chooser{QString()};
    PopupMenuChooser::rightClick(page()->grid()->view()->viewport(), QPoint(20, 5));
    QVERIFY(chooser.wasShown());
    for (const QString &entry : chooser.entries()) {
        QVERIFY2(!entry.startsWith(QStringLiteral("Undo")), qPrintable(entry));
        QVERIFY2(!entry.startsWith(QStringLiteral("Redo")), qPrintable(entry));
    }
}

void TestDataSetHistory::keysDoNothingWhileTheSamplingPageShows()
{
    clickCell(0, CDataModel::ColDelete);
    m_window->tabWidget()->setCurrentIndex(0);
    QVERIFY(!page()->isVisible());
    undoKey();
    QCOMPARE(rows(), QStringList({"Orange", "Grey"}));
    m_window->tabWidget()->setCurrentWidget(page());
    undoKey();
    QCOMPARE(rows(), QStringList({"Sky Blue", "Orange", "Grey"}));
}

QTEST_MAIN(TestDataSetHistory)
#include "tst_datasethistory.moc"
