#include "data/datagrid.h"

#include "data/datagriddelegate.h"
#include "data/datamodel.h"
#include "palette/colourcopytext.h"
#include "sample/colourcontextmenu.h"
#include "tables/datacolourtable.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QTableView>
#include <QUndoStack>
#include <QVBoxLayout>

CDataGrid::CDataGrid(const CAppSettings *settings, CDataColourTable *table, QWidget *parent)
    : QWidget(parent), m_table(table)
{
    setStyleSheet(QStringLiteral("border:0px;"));
    m_view = new QTableView(this);
    m_view->setMouseTracking(true); // the delegate follows the pointer over its buttons
    m_view->setAttribute(Qt::WA_MouseTracking);
    m_view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_model = new CDataModel(settings, table, this);
    m_model->setDialogParent(this);
    m_delegate = new CDataGridDelegate(this);
    m_view->setModel(m_model);
    m_view->setItemDelegate(m_delegate);
    connect(m_delegate, &CDataGridDelegate::editRecordSignal, m_model, &CDataModel::editRecord);
    connect(m_delegate, &CDataGridDelegate::deleteRecordSignal, m_model,
            &CDataModel::deleteRecord);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setUpColumns();
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view, &QWidget::customContextMenuRequested, this, &CDataGrid::showContextMenu);
}

CColourContextMenu *CDataGrid::buildContextMenu(int row)
{
    auto *menu = new CColourContextMenu(this);
    if (row >= 0 && row < m_table->count()) {
        const CColourTableEntry *entry = m_table->at(row);
        menu->addCopyAction(CColourCopyText::hex({entry->red, entry->green, entry->blue}));
        menu->addEntryNameAction(entry->name);
        menu->addSeparator();
    }
    const int actionsBefore = menu->actions().size();
    emit contextMenuAboutToShow(menu, row < m_table->count() ? row : -1);
    if (menu->actions().size() > actionsBefore)
        menu->addSeparator();
    QAction *exportAction = menu->addAction(tr("Export Data Set\u2026"));
    connect(exportAction, &QAction::triggered, this, &CDataGrid::exportRequested);
    addHistoryActions(menu);
    return menu;
}

void CDataGrid::addHistoryActions(CColourContextMenu *menu)
{
    QUndoStack *stack = m_model->undoStack();
    if (!stack || (!stack->canUndo() && !stack->canRedo()))
        return;
    menu->addSeparator();
    if (stack->canUndo()) {
        QAction *undo = menu->addAction(tr("Undo %1").arg(stack->undoText()));
        connect(undo, &QAction::triggered, stack, &QUndoStack::undo);
    }
    if (stack->canRedo()) {
        QAction *redo = menu->addAction(tr("Redo %1").arg(stack->redoText()));
        connect(redo, &QAction::triggered, stack, &QUndoStack::redo);
    }
}

void CDataGrid::showContextMenu(const QPoint &pos)
{
    CColourContextMenu *menu = buildContextMenu(m_view->rowAt(pos.y()));
    menu->exec(m_view->viewport()->mapToGlobal(pos));
    menu->deleteLater();
}

int CDataGrid::numberColumnWidth() const
{
    return QFontMetrics(m_view->font()).horizontalAdvance(QStringLiteral("-000.0000  "));
}

int CDataGrid::narrowColumnWidth() const
{
    return 4 * QFontMetrics(m_view->font()).height();
}

void CDataGrid::setUpColumns()
{
    const int number = numberColumnWidth();
    const int narrow = narrowColumnWidth();
    m_view->setColumnWidth(CDataModel::ColSwatch, narrow);
    m_view->setColumnWidth(CDataModel::ColName, 2 * number);
    for (int column = CDataModel::ColRed; column <= CDataModel::ColB; ++column)
        m_view->setColumnWidth(column, number);
    m_view->setColumnWidth(CDataModel::ColEdit, narrow);
    m_view->setColumnWidth(CDataModel::ColDelete, narrow);
    QHeaderView *header = m_view->horizontalHeader();
    header->setSectionResizeMode(CDataModel::ColName, QHeaderView::Stretch);
    header->setSectionResizeMode(CDataModel::ColFiller, QHeaderView::Stretch);
}
