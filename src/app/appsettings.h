#pragma once

#include <QRect>
#include <QStringList>

class CMainWindow;
class QSettings;
class QWidget;

// Every user preference, folder choice, the recent image list and the window
// layouts, backed by QSettings ("Tessaline", "Vellora"). Pages read and change
// the fields directly; the store is written only by save(), all keys at once.
class CAppSettings
{
public:
    // Reads every key (and runs the first-start folder and sample-table work).
    CAppSettings();
    ~CAppSettings();
    CAppSettings(const CAppSettings &) = delete;
    CAppSettings &operator=(const CAppSettings &) = delete;

    void save(CMainWindow *mainWindow);

    QRect restoreMainWindowRect(QWidget *mainWindow);
    void addRecentFile(CMainWindow *mainWindow, const QString &path);
    void removeRecentFile(CMainWindow *mainWindow, const QString &path);
    void clearRecentFiles(CMainWindow *mainWindow);

    // Makes sure the data and library folders exist (first start).
    void createDataFolders();

    QSettings *store = nullptr;
    QString workDir;
    QStringList recentFiles;
    QString dataDefaultDir;
    QString dataDir;
    QString libraryDefaultDir;
    QString libraryDir;
    QString selectedTable;
    int maxRecordsDisplay = 4;
    int rgbFormat = 0;
    bool rgbAverage = true;
    bool rgbDifference = true;
    bool showStartTip = true;
    int startTipIndex = 0;
    bool sampleCreated = false;
};
