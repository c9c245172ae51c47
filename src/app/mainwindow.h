#pragma once

#include "common/commandid.h"

#include <QMainWindow>
#include <QList>
#include <QPointer>
#include <QRect>

#include <memory>

class CAppSettings;
class CChartDataWindow;
class CColourImageWindow;
class CColourVisionTools;
class CContrastTools;
class CHelpWindow;
class CImageSource;
class CMainToolBar;
class CRecentImagesMenu;
class QAction;
class QImage;
class QMenu;
class QSignalMapper;
class QTabWidget;
class QToolBar;

// The one top-level window: owns the settings, the image source, the main
// toolbar, the recent images menu, the status bar and the two tab pages.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit CMainWindow(const QString &versionTitle, QWidget *parent = nullptr);
    ~CMainWindow() override;

    CAppSettings *settings() const { return m_settings.get(); }
    CColourImageWindow *samplingPage() const { return m_samplingPage; }
    CChartDataWindow *dataPage() const { return m_dataPage; }
    // "Check Contrast…" and "Contrast Grid…" on the pages' menus.
    CContrastTools *contrastTools() const { return m_contrastTools; }
    // The image view's "Colour Vision" menu and the label under the sample.
    CColourVisionTools *colourVisionTools() const { return m_colourVisionTools; }
    CImageSource *imageSource() const { return m_imageSource; }
    QTabWidget *tabWidget() const { return m_tabWidget; }
    QToolBar *mainToolBar() const;
    QMenu *recentMenu() const;
    // The toolbar action of a command (nullptr for commands not on the toolbar).
    QAction *commandAction(int id) const;

    // Enables or disables every toolbar action of a command.
    void enableCommand(int id, bool enable);

    // The help window while it exists (nullptr before the first help request)
    // and its splitter sizes, for the settings save.
    CHelpWindow *helpWindow() const;
    QList<int> helpSplitterSizes() const;
    // The help window's rectangle and splitter sizes read at construction.
    QRect helpRect() const { return m_helpRect; }
    int helpSplitA() const { return m_helpSplitA; }
    int helpSplitB() const { return m_helpSplitB; }

    // After an accepted configuration: the pages follow the new settings.
    void applyConfigurationChanges(const QString &libraryDirBefore);

public slots:
    // Zoom in below 15, zoom out from 1, actual size away from 7.
    void enableZoomCommands(int zoomIndex);
    // Adds a picked colour to the data set; on success shows the data page.
    bool addColourToDataSet(double red, double green, double blue);
    // Active page's title part + the version title.
    void updateTitle();
    // Refills the recent images menu and the enabled state of its button.
    void refreshRecentFiles();
    void displayHelp(const QString &page = QString());
    void processCommand(int action);
    void openRecentFile();
    void clearRecentFilesList();
    void currentTabChanged(int index);

    // Opens path as "Open Image" opens a chosen file (start-up's PICTURE).
    bool openImage(const QString &path);

    // Ctrl+V on the sampling page: shows the clipboard's picture.
    void showPastedImage(const QImage &image);

protected:
    void closeEvent(QCloseEvent *event) override;
    // Image files dropped on the window open as "Open Image" would open them.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildTabs();
    void connectPages();
    void rememberRecentFile(const QString &path);
    void runConfiguration();
    bool execConfigurationDialog();
    void closeHelpWindow();
    void buildRecentMenu();
    void showOpenedImage();

    QString m_versionTitle;
    std::unique_ptr<CAppSettings> m_settings;
    QSignalMapper *m_commandMapper = nullptr;
    CRecentImagesMenu *m_recentMenu = nullptr;
    QRect m_helpRect;
    QPointer<CHelpWindow> m_helpWindow;
    int m_helpSplitA = 0;
    int m_helpSplitB = 0;
    QTabWidget *m_tabWidget = nullptr;
    QWidget *m_currentPage = nullptr;
    CColourImageWindow *m_samplingPage = nullptr;
    CChartDataWindow *m_dataPage = nullptr;
    CMainToolBar *m_toolBar = nullptr;
    CContrastTools *m_contrastTools = nullptr;
    CColourVisionTools *m_colourVisionTools = nullptr;
    int m_samplingIndex = -1;
    int m_dataIndex = -1;
    CImageSource *m_imageSource = nullptr;
};
