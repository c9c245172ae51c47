#include "data/chart3dplot.h"
#include "data/chartdatatabcontainer.h"
#include "data/charternary.h"
#include "data/datagrid.h"
#include "data/datagriddelegate.h"
#include "data/datamodel.h"
#include "tables/datacolourtable.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalsequence.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

#include <memory>

// The grid as the user sees it: swatches, the rename and delete buttons
// under the pointer, the rename prompt, and the tab that holds the grid.
class TestDataGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void gridIsATrackingBorderlessTable();
    void columnWidthsFollowTheFont();
    void nameAndLastColumnsStretch();
    void emptyDataSetShowsElevenHeadersAndNoRows();
    void orangeSwatchIsPaintedFf8000InsideTheCell();
    void pointerOverEditButtonMakesItHover();
    void pointerLeavingTheButtonDropsTheHover();
    void pressOnEditButtonLooksSunkenAndAsksForANewName();
    void clickOnDeleteButtonRemovesTheRowAtOnce();
    void pressOnOtherCellsEmitsNothing();
    void renameToTheSameNameLeavesTheDataSetUnmodified();
    void renameStoresTheNewNameAndMarksModified();
    void renameAllowsADuplicateName();
    void blankNewNameIsRefused();
    void cancelledRenameChangesNothing();
    void sortAfterTheGridSetAMarkerResetsIt();
    void loadedRowsKeepNoButtonState();
    void afterLoadAndAddTheFirstRowCarriesTheAddedMarker();
    void tabHoldsOnlyTheGrid();
    void chartPlaceholdersAreHiddenChildren();

private:
    void showGrid();
    void fillTable(int count);
    QPoint cellCentre(int row, int column) const;
    void moveTo(int row, int column);
    void pressOn(int row, int column);
    QString writeFiveColours();

    GuiTestFixture m_fixture;
    std::unique_ptr<CDataColourTable> m_table;
    std::unique_ptr<CDataGrid> m_grid;
};

void TestDataGrid::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestDataGrid::init()
{
    m_fixture.reset();
    m_table = std::make_unique<CDataColourTable>();
    m_grid = std::make_unique<CDataGrid>(nullptr, m_table.get());
}

void TestDataGrid::cleanup()
{
    m_grid.reset();
    m_table.reset();
}

void TestDataGrid::showGrid()
{
    m_grid->resize(900, 300);
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
}

void TestDataGrid::fillTable(int count)
{
    for (int i = 0; i < count; ++i)
        m_grid->model()->appendEntry(std::make_unique<CColourTableEntry>(
            QStringLiteral("Colour %1").arg(i), 0.1 * i, 0.2, 0.3));
}

QString TestDataGrid::writeFiveColours()
{
    const QString path = m_fixture.filePath(QStringLiteral("five.txt"));
    FixtureFile::write(path, "0.1, 0.2, 0.3, One\n0.2, 0.3, 0.4, Two\n0.3, 0.4, 0.5, Three\n"
                             "0.4, 0.5, 0.6, Four\n0.5, 0.6, 0.7, Five\n");
    return path;
}

QPoint TestDataGrid::cellCentre(int row, int column) const
{
    QTableView *view = m_grid->view();
    return view->visualRect(view->model()->index(row, column)).center();
}

// The move a pointer makes over the grid, sent straight to the viewport:
// moving the platform cursor to where it already is would send nothing.
static void pointerMove(QWidget *widget, const QPoint &pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

void TestDataGrid::moveTo(int row, int column)
{
    pointerMove(m_grid->view()->viewport(), cellCentre(row, column));
}

void TestDataGrid::pressOn(int row, int column)
{
    const QPoint pos = cellCentre(row, column);
    pointerMove(m_grid->view()->viewport(), pos);
    QTest::mousePress(m_grid->view()->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
}

void TestDataGrid::gridIsATrackingBorderlessTable()
{
    QTableView *view = m_grid->view();
    QCOMPARE(m_grid->styleSheet(), QStringLiteral("border:0px;"));
    QVERIFY(view->hasMouseTracking());
    QCOMPARE(view->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(view->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(view->model(), static_cast<QAbstractItemModel *>(m_grid->model()));
    QCOMPARE(view->itemDelegate(), static_cast<QAbstractItemDelegate *>(m_grid->delegate()));
}

void TestDataGrid::columnWidthsFollowTheFont()
{
    QTableView *view = m_grid->view();
    const QFontMetrics metrics(view->font());
    const int number = metrics.horizontalAdvance(QStringLiteral("-000.0000  "));
    const int narrow = 4 * metrics.height();
    QCOMPARE(m_grid->numberColumnWidth(), number);
    QCOMPARE(view->columnWidth(CDataModel::ColSwatch), narrow);
    for (int column = CDataModel::ColRed; column <= CDataModel::ColB; ++column)
        QCOMPARE(view->columnWidth(column), number);
    QCOMPARE(view->columnWidth(CDataModel::ColEdit), narrow);
    QCOMPARE(view->columnWidth(CDataModel::ColDelete), narrow);
}

void TestDataGrid::nameAndLastColumnsStretch()
{
    QHeaderView *header = m_grid->view()->horizontalHeader();
    QCOMPARE(header->sectionResizeMode(CDataModel::ColName), QHeaderView::Stretch);
    QCOMPARE(header->sectionResizeMode(CDataModel::ColFiller), QHeaderView::Stretch);
    QCOMPARE(header->sectionResizeMode(CDataModel::ColRed), QHeaderView::Interactive);
}

void TestDataGrid::emptyDataSetShowsElevenHeadersAndNoRows()
{
    showGrid();
    QTableView *view = m_grid->view();
    QHeaderView *header = view->horizontalHeader();
    QCOMPARE(header->count(), 11);
    QCOMPARE(view->verticalHeader()->count(), 0);
    QCOMPARE(header->model()->headerData(1, Qt::Horizontal).toString(),
             QStringLiteral("Colour Name"));
    QCOMPARE(header->model()->headerData(9, Qt::Horizontal).toString(), QStringLiteral("Delete"));
    QVERIFY(!view->indexAt(QPoint(5, 5)).isValid());
}

void TestDataGrid::orangeSwatchIsPaintedFf8000InsideTheCell()
{
    m_grid->model()->appendEntry(
        std::make_unique<CColourTableEntry>(QStringLiteral("Orange"), 1.0, 0.5, 0.0));
    showGrid();
    QTableView *view = m_grid->view();
    const QRect cell = view->visualRect(view->model()->index(0, CDataModel::ColSwatch));
    const QImage image = view->viewport()->grab().toImage();
    const qreal ratio = image.devicePixelRatio();
    auto pixel = [&](const QPoint &p) { return QColor(image.pixel(p * ratio)).name(); };
    QCOMPARE(view->model()->data(view->model()->index(0, 0)).toString(), QStringLiteral("#ff8000"));
    QCOMPARE(pixel(cell.center()), QStringLiteral("#ff8000"));
    QCOMPARE(pixel(cell.topLeft() + QPoint(2, 2)), QStringLiteral("#ff8000"));
    // The 2-pixel margin around the swatch is not filled.
    QVERIFY(pixel(cell.topLeft()) != QStringLiteral("#ff8000"));
    QVERIFY(pixel(cell.topLeft() + QPoint(1, 1)) != QStringLiteral("#ff8000"));
}

void TestDataGrid::pointerOverEditButtonMakesItHover()
{
    fillTable(3);
    showGrid();
    moveTo(1, CDataModel::ColEdit);
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(1, CDataModel::ColEdit)).toInt(), 1);
    QCOMPARE(m_grid->delegate()->lastMousePosition(), cellCentre(1, CDataModel::ColEdit));
    const QModelIndex index = m_grid->model()->index(1, CDataModel::ColEdit);
    const QRect button = CDataGridDelegate::innerRect(m_grid->view()->visualRect(index));
    QCOMPARE(m_grid->delegate()->buttonState(index, button),
             QStyle::State_Enabled | QStyle::State_MouseOver);
    // Another button that the pointer is not over stays plain.
    const QModelIndex other = m_grid->model()->index(0, CDataModel::ColDelete);
    QCOMPARE(m_grid->delegate()->buttonState(
                 other, CDataGridDelegate::innerRect(m_grid->view()->visualRect(other))),
             QStyle::State(QStyle::State_Enabled));
}

void TestDataGrid::pointerLeavingTheButtonDropsTheHover()
{
    fillTable(3);
    showGrid();
    moveTo(1, CDataModel::ColDelete);
    const QModelIndex index = m_grid->model()->index(1, CDataModel::ColDelete);
    QCOMPARE(m_grid->model()->data(index).toInt(), 1);
    moveTo(1, CDataModel::ColName);
    const QRect button = CDataGridDelegate::innerRect(m_grid->view()->visualRect(index));
    QCOMPARE(m_grid->delegate()->buttonState(index, button), QStyle::State(QStyle::State_Enabled));
}

void TestDataGrid::pressOnEditButtonLooksSunkenAndAsksForANewName()
{
    fillTable(3);
    showGrid();
    QSignalSpy edit(m_grid->delegate(), &CDataGridDelegate::editRecordSignal);
    QSignalSpy remove(m_grid->delegate(), &CDataGridDelegate::deleteRecordSignal);
    int stateWhileAsking = -1;
    QStyle::State styleWhileAsking;
    const QModelIndex index = m_grid->model()->index(2, CDataModel::ColEdit);
    ModalAnswerer answer(QStringLiteral("Cancel"), [&](QWidget *) {
        stateWhileAsking = m_grid->model()->data(index).toInt();
        styleWhileAsking = m_grid->delegate()->buttonState(
            index, CDataGridDelegate::innerRect(m_grid->view()->visualRect(index)));
    });
    pressOn(2, CDataModel::ColEdit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Edit Record"));
    QCOMPARE(edit.count(), 1);
    QCOMPARE(edit.at(0).at(0).value<QModelIndex>(), index);
    QCOMPARE(remove.count(), 0);
    QCOMPARE(stateWhileAsking, 2);
    QCOMPARE(styleWhileAsking, QStyle::State_Enabled | QStyle::State_Sunken);
}

void TestDataGrid::clickOnDeleteButtonRemovesTheRowAtOnce()
{
    fillTable(3);
    showGrid();
    QSignalSpy remove(m_grid->delegate(), &CDataGridDelegate::deleteRecordSignal);
    const QPoint pos = cellCentre(1, CDataModel::ColDelete);
    pointerMove(m_grid->view()->viewport(), pos);
    QTest::mouseClick(m_grid->view()->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    QCOMPARE(remove.count(), 1);
    QCOMPARE(m_grid->model()->rowCount(), 2);
    QCOMPARE(m_table->at(0)->name, QStringLiteral("Colour 0"));
    QCOMPARE(m_table->at(1)->name, QStringLiteral("Colour 2"));
    QVERIFY(m_grid->model()->isModified());
}

void TestDataGrid::pressOnOtherCellsEmitsNothing()
{
    fillTable(2);
    showGrid();
    QSignalSpy edit(m_grid->delegate(), &CDataGridDelegate::editRecordSignal);
    QSignalSpy remove(m_grid->delegate(), &CDataGridDelegate::deleteRecordSignal);
    for (int column : {0, 1, 2, 5, 10})
        QTest::mouseClick(m_grid->view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          cellCentre(0, column));
    QCOMPARE(edit.count(), 0);
    QCOMPARE(remove.count(), 0);
    QCOMPARE(m_grid->model()->rowCount(), 2);
    QVERIFY(!m_grid->model()->isModified());
}

void TestDataGrid::renameToTheSameNameLeavesTheDataSetUnmodified()
{
    fillTable(2);
    showGrid();
    QString shownName;
    ModalAnswerer answer(QStringLiteral("OK"), [&](QWidget *dialog) {
        if (auto *edit = dialog->findChild<QLineEdit *>())
            shownName = edit->text();
    });
    pressOn(1, CDataModel::ColEdit);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(shownName, QStringLiteral("Colour 1"));
    QCOMPARE(m_table->at(1)->name, QStringLiteral("Colour 1"));
    QVERIFY(!m_grid->model()->isModified());
}

void TestDataGrid::renameStoresTheNewNameAndMarksModified()
{
    fillTable(2);
    showGrid();
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Crimson"))}});
    pressOn(0, CDataModel::ColEdit);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(0, CDataModel::ColName)).toString(),
             QStringLiteral("Crimson"));
    QVERIFY(m_grid->model()->isModified());
}

void TestDataGrid::renameAllowsADuplicateName()
{
    fillTable(2);
    showGrid();
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Colour 0"))}});
    pressOn(1, CDataModel::ColEdit);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(m_table->at(1)->name, QStringLiteral("Colour 0"));
    QVERIFY(m_grid->model()->isModified());
}

void TestDataGrid::blankNewNameIsRefused()
{
    fillTable(1);
    showGrid();
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("   "))},
                           {QStringLiteral("OK"), {}},
                           {QStringLiteral("Cancel"), {}}});
    pressOn(0, CDataModel::ColEdit);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1), QStringLiteral("Please enter a new name."));
    QCOMPARE(answers.title(2), QStringLiteral("Vellora - Edit Record"));
    QCOMPARE(m_table->at(0)->name, QStringLiteral("Colour 0"));
    QVERIFY(!m_grid->model()->isModified());
}

void TestDataGrid::cancelledRenameChangesNothing()
{
    fillTable(1);
    showGrid();
    ModalSequence answers({{QStringLiteral("Cancel"), DialogActions::typeText(QStringLiteral("Other"))}});
    pressOn(0, CDataModel::ColEdit);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(m_table->at(0)->name, QStringLiteral("Colour 0"));
    QVERIFY(!m_grid->model()->isModified());
}

void TestDataGrid::sortAfterTheGridSetAMarkerResetsIt()
{
    fillTable(4);
    showGrid();
    moveTo(2, CDataModel::ColEdit);
    QCOMPARE(m_table->markerA(2), 1);
    m_table->sort();
    QCOMPARE(m_table->markerAList(), (QList<int>{0, 0, 0, 0}));
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(2, CDataModel::ColEdit)).toInt(), 0);
}

void TestDataGrid::loadedRowsKeepNoButtonState()
{
    QCOMPARE(m_table->load(writeFiveColours()).status, int(CColourTable::Loaded));
    m_grid->model()->setTable(m_table.get());
    showGrid();
    QCOMPARE(m_grid->model()->rowCount(), 5);
    moveTo(3, CDataModel::ColEdit);
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(3, CDataModel::ColEdit)).toInt(), 0);
    QVERIFY(m_table->markerAList().isEmpty());
}

void TestDataGrid::afterLoadAndAddTheFirstRowCarriesTheAddedMarker()
{
    QCOMPARE(m_table->load(writeFiveColours()).status, int(CColourTable::Loaded));
    m_grid->model()->setTable(m_table.get());
    m_grid->model()->appendEntry(
        std::make_unique<CColourTableEntry>(QStringLiteral("Six"), 0.6, 0.7, 0.8));
    showGrid();
    // The added entry's row (5) has no marker of its own ...
    moveTo(5, CDataModel::ColEdit);
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(5, CDataModel::ColEdit)).toInt(), 0);
    // ... while its marker answers for row 0.
    moveTo(0, CDataModel::ColEdit);
    QCOMPARE(m_table->markerAList(), QList<int>{1});
    QCOMPARE(m_grid->model()->data(m_grid->model()->index(0, CDataModel::ColEdit)).toInt(), 1);
}

void TestDataGrid::tabHoldsOnlyTheGrid()
{
    CDataColourTable table;
    CChartDataTabContainer container(nullptr, &table);
    QTabWidget *tabs = container.tabWidget();
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->widget(0), static_cast<QWidget *>(container.grid()));
    QCOMPARE(tabs->tabText(0), QString());
    QCOMPARE(tabs->tabToolTip(0), QStringLiteral("View and edit colour data"));
    QVERIFY(!tabs->tabIcon(0).isNull());
    QCOMPARE(container.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TestDataGrid::chartPlaceholdersAreHiddenChildren()
{
    CDataColourTable table;
    CChartDataTabContainer container(nullptr, &table);
    container.show();
    QVERIFY(QTest::qWaitForWindowExposed(&container));
    QCOMPARE(container.ternaryChart()->parent(), static_cast<QObject *>(&container));
    QCOMPARE(container.plot3d()->parent(), static_cast<QObject *>(&container));
    QVERIFY(!container.ternaryChart()->isVisible());
    QVERIFY(!container.plot3d()->isVisible());
    QCOMPARE(container.tabWidget()->indexOf(container.ternaryChart()), -1);
    QCOMPARE(container.tabWidget()->indexOf(container.plot3d()), -1);
    QCOMPARE(container.ternaryChart()->findChild<QLabel *>()->text(),
             QStringLiteral("<h1><br />Ternary Chart<br />Coming soon<br /></h1>"));
    QCOMPARE(container.plot3d()->findChild<QLabel *>()->text(),
             QStringLiteral("<h1><br />3D Plot<br />Coming soon<br /></h1>"));
}

QTEST_MAIN(TestDataGrid)
#include "tst_datagrid.moc"
