#include "app/mainwindow.h"

#include "access/colourvisiontools.h"
#include "access/contrasttools.h"
#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandmapping.h"
#include "app/maintoolbar.h"
#include "app/recentimagesmenu.h"
#include "app/standardkeys.h"
#include "config/configdlg.h"
#include "config/updatecheck.h"
#include "data/chartdatawindow.h"
#include "help/helpwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/imagedrop.h"
#include "sample/imagesource.h"
#include "screen/screenpicker.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QShortcut>
#include <QSignalMapper>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

CMainWindow::CMainWindow(const QString &versionTitle, QWidget *parent)
    : QMainWindow(parent), m_versionTitle(versionTitle)
{
    AppContext::initResources();
    m_settings = std::make_unique<CAppSettings>();
    m_imageSource = new CImageSource(m_settings.get(), this);
    connect(m_imageSource, &CImageSource::fileOpened, this, &CMainWindow::rememberRecentFile);
    setWindowTitle(m_versionTitle);
    setAcceptDrops(true);
    statusBar()->showMessage(tr("Ready"));

    m_samplingPage = new CColourImageWindow(m_settings.get(), this);
    m_dataPage = new CChartDataWindow(m_settings.get(), this);

    m_commandMapper = new QSignalMapper(this);
    connect(m_commandMapper, &QSignalMapper::mappedInt, this, &CMainWindow::processCommand);
    m_toolBar = new CMainToolBar(m_commandMapper, this);
    addToolBar(m_toolBar);
    buildRecentMenu();

    const QRect rect = m_settings->restoreMainWindowRect(this);
    resize(rect.size());
    move(rect.topLeft());
    m_helpRect = m_settings->restoreHelpLayout(rect, nullptr, &m_helpSplitA, &m_helpSplitB);

    buildTabs();
    connectPages();
    auto *screenPicker = new CScreenPicker(this, this);
    screenPicker->addToToolBar(m_toolBar, commandAction(CmdZoomIn));
    screenPicker->attachToPage(m_samplingPage, m_settings.get());
    connect(screenPicker, &CScreenPicker::pictureTaken, this, [this]() {
        m_tabWidget->setCurrentIndex(m_samplingIndex);
        updateTitle();
    });
    auto *helpShortcut = new QShortcut(QKeySequence(tr("Alt+H")), this);
    connect(helpShortcut, &QShortcut::activated, this, [this]() { displayHelp(); });
    auto *standardKeys = new CStandardKeys(this);
    connect(standardKeys, &CStandardKeys::mainCommand, this, &CMainWindow::processCommand);
    connect(standardKeys, &CStandardKeys::dataCommand, m_dataPage,
            &CChartDataWindow::processCommand);
}

CMainWindow::~CMainWindow()
{
    // Children are deleted after the members: the pages, which keep a
    // pointer to the settings, must go first.
    delete m_tabWidget;
    // The help window has no parent: it ends with the window that opened it.
    if (m_helpWindow)
        CHelpWindow::deleteInstance();
}

void CMainWindow::connectPages()
{
    connect(m_samplingPage, &CColourImageWindow::zoomChanged, this,
            &CMainWindow::enableZoomCommands);
    connect(m_samplingPage, &CColourImageWindow::statusMessage, this,
            [this](const QString &text) { statusBar()->showMessage(text, 0); });
    connect(m_samplingPage, &CColourImageWindow::imagePasted, this, &CMainWindow::showPastedImage);
    connect(m_samplingPage, &CColourImageWindow::addToDataSetRequested, this,
            &CMainWindow::addColourToDataSet);
    connect(m_samplingPage, &CColourImageWindow::displayHelpSignal, this, &CMainWindow::displayHelp);
    connect(m_dataPage, &CChartDataWindow::titleChanged, this, &CMainWindow::updateTitle);
    connect(m_dataPage, &CChartDataWindow::displayHelpSignal, this, &CMainWindow::displayHelp);
    m_contrastTools = new CContrastTools(m_samplingPage, m_dataPage->grid(), this);
    m_colourVisionTools = new CColourVisionTools(m_settings.get(), m_samplingPage, this);
}

void CMainWindow::rememberRecentFile(const QString &path)
{
    m_settings->addRecentFile(this, path);
    refreshRecentFiles();
}

QToolBar *CMainWindow::mainToolBar() const { return m_toolBar; }

QMenu *CMainWindow::recentMenu() const { return m_recentMenu; }

QAction *CMainWindow::commandAction(int id) const
{
    return m_toolBar->commandAction(id);
}

void CMainWindow::buildRecentMenu()
{
    m_recentMenu = new CRecentImagesMenu(this);
    for (QAction *entry : m_recentMenu->entries())
        connect(entry, &QAction::triggered, this, &CMainWindow::openRecentFile);
    connect(m_recentMenu->clearAction(), &QAction::triggered, this,
            &CMainWindow::clearRecentFilesList);
    refreshRecentFiles();
}

void CMainWindow::buildTabs()
{
    m_tabWidget = new QTabWidget(this);
    setCentralWidget(m_tabWidget);
    m_samplingIndex = m_tabWidget->addTab(m_samplingPage, tr("Sample && Match"));
    m_dataIndex = m_tabWidget->addTab(m_dataPage, tr("Data"));
    connect(m_tabWidget, &QTabWidget::currentChanged, this, &CMainWindow::currentTabChanged);
    m_tabWidget->setCurrentIndex(m_samplingIndex);
    // Adding the first page made it current before the connection existed.
    currentTabChanged(m_samplingIndex);
}

void CMainWindow::refreshRecentFiles()
{
    m_recentMenu->fill(m_settings->recentFiles);
    enableCommand(CmdRecentImages, !m_settings->recentFiles.isEmpty());
}

void CMainWindow::enableCommand(int id, bool enable) { m_toolBar->enableCommand(id, enable); }

void CMainWindow::enableZoomCommands(int zoomIndex)
{
    enableCommand(CmdZoomIn, zoomIndex < 15);
    enableCommand(CmdZoomOut, zoomIndex >= 1);
    enableCommand(CmdZoomActual, zoomIndex != 7);
}

void CMainWindow::processCommand(int action)
{
    switch (action) {
    case CmdRecentImages:
        m_recentMenu->fill(m_settings->recentFiles);
        if (QToolButton *button = m_toolBar->recentButton())
            m_recentMenu->exec(m_toolBar->mapToGlobal(button->pos()));
        break;
    case CmdOpenImage:
        if (m_imageSource->open(CmdOpenImage))
            showOpenedImage();
        break;
    case CmdConfigure:
        runConfiguration();
        break;
    case CmdExit:
        close();
        break;
    case CmdHelpContents:
        displayHelp();
        break;
    case CmdZoomOut:
    case CmdZoomIn:
    case CmdZoomActual:
        m_samplingPage->zoomStep(action);
        break;
    default:
        // About (5) and anything unknown: nothing in this release.
        break;
    }
}

void CMainWindow::showOpenedImage()
{
    m_samplingPage->showImage(m_imageSource->path(), m_imageSource->image());
    m_tabWidget->setCurrentIndex(m_samplingIndex);
    updateTitle();
    refreshRecentFiles();
}

bool CMainWindow::openImage(const QString &path)
{
    if (!m_imageSource->open(CmdOpenImage, path))
        return false;
    showOpenedImage();
    return true;
}

void CMainWindow::showPastedImage(const QImage &image)
{
    m_samplingPage->showPastedImage(image);
    m_tabWidget->setCurrentIndex(m_samplingIndex);
    updateTitle();
}

void CMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    // Everything is taken, so that what cannot be opened is said so.
    event->acceptProposedAction();
}

void CMainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    const QString path = CImageDrop::localFile(event->mimeData());
    if (path.isEmpty())
        m_imageSource->warnUnreadable(CImageDrop::describe(event->mimeData()));
    else if (m_imageSource->open(CmdOpenImage, path))
        showOpenedImage();
}

void CMainWindow::openRecentFile()
{
    auto *action = qobject_cast<QAction *>(sender());
    const QString path = action ? action->data().toString() : QString();
    if (path.isEmpty())
        return;
    if (m_imageSource->open(CmdOpenImage, path)) {
        showOpenedImage();
        return;
    }
    m_settings->removeRecentFile(this, path);
    refreshRecentFiles();
}

void CMainWindow::clearRecentFilesList()
{
    m_settings->clearRecentFiles(this);
    refreshRecentFiles();
}

void CMainWindow::currentTabChanged(int index)
{
    CMainTabbedWindow *page = nullptr;
    if (index == m_samplingIndex) {
        enableZoomCommands(m_samplingPage->zoomIndex());
        page = m_samplingPage;
    } else if (index == m_dataIndex) {
        enableCommand(CmdZoomIn, false);
        enableCommand(CmdZoomOut, false);
        enableCommand(CmdZoomActual, false);
        page = m_dataPage;
    }
    if (!page)
        return;
    m_currentPage = page;
    page->activatePage();
    updateTitle();
}

void CMainWindow::updateTitle()
{
    auto *page = qobject_cast<CMainTabbedWindow *>(m_currentPage);
    setWindowTitle((page ? page->title() : QString()) + m_versionTitle);
}

bool CMainWindow::addColourToDataSet(double red, double green, double blue)
{
    if (!m_dataPage->addColour(red, green, blue))
        return false;
    m_tabWidget->setCurrentIndex(m_dataIndex);
    updateTitle();
    return true;
}

void CMainWindow::runConfiguration()
{
    const QString libraryDirBefore = m_settings->libraryDir;
    if (execConfigurationDialog())
        applyConfigurationChanges(libraryDirBefore);
}

bool CMainWindow::execConfigurationDialog()
{
    CConfigDlg dialog(m_settings.get(), CUpdateCheck::vendorAddress(), this);
    connect(&dialog, &CConfigDlg::displayHelpSignal, this, &CMainWindow::displayHelp);
    return dialog.exec() == QDialog::Accepted;
}

void CMainWindow::applyConfigurationChanges(const QString &libraryDirBefore)
{
    if (m_settings->libraryDir != libraryDirBefore)
        m_samplingPage->fillLibraryCombo();
    m_samplingPage->refreshAfterSettingsChange();
}

void CMainWindow::displayHelp(const QString &page)
{
    m_helpWindow = CHelpWindow::showHelp(AppContext::productName(), page, m_helpRect,
                                         m_helpSplitA, m_helpSplitB);
}

CHelpWindow *CMainWindow::helpWindow() const
{
    return m_helpWindow;
}

QList<int> CMainWindow::helpSplitterSizes() const
{
    if (!m_helpWindow)
        return QList<int>();
    return m_helpWindow->splitter()->sizes();
}

void CMainWindow::closeHelpWindow()
{
    if (m_helpWindow)
        m_helpWindow->close();
}

void CMainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_dataPage->maybeSave()) {
        event->ignore();
        return;
    }
    m_settings->save(this);
    closeHelpWindow();
    event->accept();
}
