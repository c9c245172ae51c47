#include "data/chartdatatabcontainer.h"

#include "common/appcontext.h"
#include "data/chart3dplot.h"
#include "data/charternary.h"
#include "data/datagrid.h"

#include <QGridLayout>
#include <QTabWidget>

namespace {
const int kTabIconSize = 24;
} // namespace

CChartDataTabContainer::CChartDataTabContainer(const CAppSettings *settings, CDataColourTable *table,
                                               QWidget *parent)
    : QWidget(parent)
{
    m_tabs = new QTabWidget(this);
    m_tabs->setIconSize(QSize(kTabIconSize, kTabIconSize));
    m_grid = new CDataGrid(settings, table, m_tabs);
    const int index = m_tabs->addTab(
        m_grid, AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_table.png")),
        QString());
    m_tabs->setTabToolTip(index, tr("View and edit colour data"));

    // Children that are not tabs would otherwise show over the grid.
    m_ternary = new CChartTernary(this);
    m_ternary->hide();
    m_plot3d = new CChart3dPlot(this);
    m_plot3d->hide();

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs, 0, 0);
}
