#pragma once

#include <QRect>
#include <QStringList>

#include <memory>

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

    // Writes every key; the layout keys need the window (nullptr skips them).
    void save(CMainWindow *mainWindow);

    QRect restoreMainWindowRect(QWidget *mainWindow);
    // The help window's rectangle and splitter sizes. `reference` is the
    // rectangle the defaults are derived from; `helpWindow` (may be null)
    // gives the minimum size.
    QRect restoreHelpLayout(const QRect &reference, QWidget *helpWindow, int *splitA,
                            int *splitB);
    void addRecentFile(CMainWindow *mainWindow, const QString &path);
    void removeRecentFile(CMainWindow *mainWindow, const QString &path);
    void clearRecentFiles(CMainWindow *mainWindow);

    // Makes sure the data and library folders exist (first start).
    void createDataFolders();

    // The RGB display format of `settings`; integer when there are none (a
    // widget shown on its own).
    static int rgbFormatOf(const CAppSettings *settings);

    // Reads a stored rectangle and fits it to the primary screen.
    QRect readRect(const QString &key, const QRect &defaultRect, QWidget *widget);
    // Widens `rect` to `minimum`, then pulls it back onto `screen`.
    static QRect fitRectToScreen(QRect rect, const QSize &minimum, const QRect &screen);
    // Reads baseKey + "A" and baseKey + "B".
    void readSplit(const QString &baseKey, int defaultA, int defaultB, int *splitA, int *splitB);

    std::unique_ptr<QSettings> store;
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
    // Convert images tagged with a colour profile other than sRGB at load.
    bool convertToSrgb = false;
    // How the image view shows the picture: a colour vision key ("normal",
    // "deuteranopia", ...; anything unknown reads as normal) and the
    // severity of the anomalies, 0.1 .. 1.0. Picks always read the stored
    // pixels.
    QString colourVision = QStringLiteral("normal");
    double colourVisionSeverity = 1.0;
    bool showStartTip = true;
    int startTipIndex = 0;
    bool sampleCreated = false;

private:
    void loadFolders();
    void loadPreferences();
    void createSampleTable();
    void saveLayouts(CMainWindow *mainWindow);
    void savePreferences();
};
