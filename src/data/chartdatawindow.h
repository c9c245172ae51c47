#pragma once

#include "app/maintabbedwindow.h"
#include "tables/datacolourtable.h"

#include <QIcon>

class CChartDataTabContainer;
class CDataGrid;
class CDataModel;
class CMainWindow;
class QSignalMapper;
class QToolBar;
class QToolButton;

// Command identifiers of the data page (they continue the main toolbar's).
enum DataCommand { CmdNewData = 9, CmdOpenData = 10, CmdSaveData = 11, CmdSaveDataAs = 12 };

// The "Data" page: one data set shown in a grid, with New, Open, Save and
// Save As on its own toolbar. It answers whether unsaved changes may go and
// adds picked colours through the add-colour dialog.
class CChartDataWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    CChartDataWindow(CMainWindow *mainWindow, QWidget *parent = nullptr);
    ~CChartDataWindow() override;

    // "Untitled - " for a set started by New, "<file name> - " for a set
    // with a file, "" for neither.
    QString title() const override;

    // Offers to save unsaved changes; false when the user cancelled (or the
    // save failed).
    bool maybeSave();
    // Runs the add-colour dialog and appends the colour; false when cancelled.
    bool addColour(double red, double green, double blue);

    // Loads path into the data set as Open does once a file is chosen; the
    // failures are reported in message boxes. True when loaded.
    bool openFile(const QString &path);

    // Called by the model when the modified flag changes.
    void showSaveIcon(bool modified);
    void requestTitleUpdate();

    bool isModified() const;
    CDataColourTable *dataTable() { return &m_table; }
    CDataModel *model() const { return m_model; }
    CDataGrid *grid() const;
    CChartDataTabContainer *tabContainer() const { return m_container; }
    QToolBar *pageToolBar() const { return m_toolBar; }
    QToolButton *commandButton(int id) const;

public slots:
    void processCommand(int action);

private:
    QToolBar *buildToolBar();
    QToolButton *addCommandButton(int id, const QString &toolTip, const QIcon &icon,
                                  QWidget *parent);
    void newDataSet();
    bool open();
    bool save();
    bool saveAs();
    QString saveAsStartFolder() const;
    void rememberDataFolder(const QString &filePath);

    CMainWindow *m_mainWindow = nullptr;
    QSignalMapper *m_mapper = nullptr;
    CDataColourTable m_table;
    CDataModel *m_model = nullptr;
    CChartDataTabContainer *m_container = nullptr;
    QToolBar *m_toolBar = nullptr;
    QToolButton *m_newButton = nullptr;
    QToolButton *m_openButton = nullptr;
    QToolButton *m_saveButton = nullptr;
    QToolButton *m_saveAsButton = nullptr;
    QIcon m_saveIcon;
    QIcon m_saveModifiedIcon;
};
