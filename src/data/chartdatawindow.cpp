#include "data/chartdatawindow.h"

CChartDataWindow::CChartDataWindow(CMainWindow *mainWindow, QWidget *parent)
    : CMainTabbedWindow(parent), m_mainWindow(mainWindow)
{
}

CChartDataWindow::~CChartDataWindow() = default;

QString CChartDataWindow::title() const { return QString(); }

bool CChartDataWindow::maybeSave() { return true; }

bool CChartDataWindow::addColour(double, double, double) { return false; }

void CChartDataWindow::processCommand(int) {}
