#include "data/datagrid.h"

#include "data/datagriddelegate.h"
#include "data/datamodel.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

CDataGrid::CDataGrid(const CAppSettings *settings, CDataColourTable *table, QWidget *parent)
    : QWidget(parent)
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
