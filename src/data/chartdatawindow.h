#pragma once

#include "common/commandid.h"
#include "app/maintabbedwindow.h"
#include "tables/datacolourtable.h"

#include <QIcon>

class CAppSettings;
class CChartDataTabContainer;
class CDataGrid;
class CDataModel;
class CDataSetHistory;
class CDataSetSnapshot;
class CDataSetRecovery;
class QSignalMapper;
class QToolBar;
class QToolButton;

// The "Data" page: one data set shown in a grid, with New, Open, Save and
// Save As on its own toolbar. It answers whether unsaved changes may go and
// adds picked colours through the add-colour dialog. Title changes and help
// requests are signalled to whoever shows the page.
class CChartDataWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    // `settings` may be null (a page shown on its own).
    explicit CChartDataWindow(CAppSettings *settings, QWidget *parent = nullptr);
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

    // Shows a recovered set: its rows, file and title, marked modified, with
    // its recovery copy written at once.
    void showRecovered(const CDataSetSnapshot &dataSet);

    // Follows the model's modified flag.
    void showSaveIcon(bool modified);

    bool isModified() const;
    CDataColourTable *dataTable() { return &m_table; }
    CDataModel *model() const { return m_model; }
    CDataGrid *grid() const;
    // The undo history of the set, and the keeper of its recovery copy.
    CDataSetHistory *history() const { return m_history; }
    CDataSetRecovery *recovery() const { return m_recovery; }
    CChartDataTabContainer *tabContainer() const { return m_container; }
    QToolBar *pageToolBar() const { return m_toolBar; }
    QToolButton *commandButton(int id) const;

public slots:
    void processCommand(int action);
    // The grid's "Export Data Set…": the written path, empty when cancelled.
    QString exportDataSet();

signals:
    // The page's part of the window title may have changed.
    void titleChanged();
    // A dialog of the page asked for a help page.
    void displayHelpSignal(const QString &page);

private:
    QToolBar *buildToolBar();
    QToolButton *addCommandButton(int id, const QString &toolTip, const QIcon &icon,
                                  QWidget *parent);
    void newDataSet();
    void newDataSetWithHistory();
    bool open();
    bool save();
    bool saveAs();
    QString saveAsStartFolder() const;
    void rememberDataFolder(const QString &filePath);

    QString dataFolderSetting() const;

    CAppSettings *m_settings = nullptr;
    QSignalMapper *m_mapper = nullptr;
    CDataColourTable m_table;
    CDataModel *m_model = nullptr;
    CDataSetHistory *m_history = nullptr;
    CDataSetRecovery *m_recovery = nullptr;
    CChartDataTabContainer *m_container = nullptr;
    QToolBar *m_toolBar = nullptr;
    QToolButton *m_newButton = nullptr;
    QToolButton *m_openButton = nullptr;
    QToolButton *m_saveButton = nullptr;
    QToolButton *m_saveAsButton = nullptr;
    QIcon m_saveIcon;
    QIcon m_saveModifiedIcon;
};
