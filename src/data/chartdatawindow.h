#pragma once

#include "app/maintabbedwindow.h"

class CMainWindow;

// The "Data" page: one data set shown in a grid, with New, Open, Save and
// Save As. (Interface used by the main window; built out in data/.)
class CChartDataWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    CChartDataWindow(CMainWindow *mainWindow, QWidget *parent = nullptr);
    ~CChartDataWindow() override;

    QString title() const override;

    // Offers to save unsaved changes; false when the user cancelled.
    bool maybeSave();
    // Runs the add-colour dialog and appends the colour; false when cancelled.
    bool addColour(double red, double green, double blue);

public slots:
    void processCommand(int action);

private:
    CMainWindow *m_mainWindow = nullptr;
};
