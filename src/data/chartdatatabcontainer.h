#pragma once

#include <QWidget>

class CChart3dPlot;
class CAppSettings;
class CChartTernary;
class CDataColourTable;
class CDataGrid;
class QTabWidget;

// The tabs of the data page. Only the grid is a tab in this version; the
// two chart pages exist as hidden children, waiting for their charts.
class CChartDataTabContainer : public QWidget
{
    Q_OBJECT

public:
    CChartDataTabContainer(const CAppSettings *settings, CDataColourTable *table,
                           QWidget *parent = nullptr);

    QTabWidget *tabWidget() const { return m_tabs; }
    CDataGrid *grid() const { return m_grid; }
    CChartTernary *ternaryChart() const { return m_ternary; }
    CChart3dPlot *plot3d() const { return m_plot3d; }

private:
    QTabWidget *m_tabs = nullptr;
    CDataGrid *m_grid = nullptr;
    CChartTernary *m_ternary = nullptr;
    CChart3dPlot *m_plot3d = nullptr;
};
