#include "app/mainwindow.h"

#include "app/appcontext.h"
#include "app/appsettings.h"
#include "app/commandmapping.h"
#include "config/configdlg.h"
#include "config/updatecheck.h"
#include "data/chartdatawindow.h"
#include "help/helpwindow.h"
#include "help/spacerwidget.h"
#include "sample/colourimagewindow.h"
#include "sample/imagedrop.h"
#include "sample/imagesource.h"
#include "screen/screenpicker.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenu>
#include <QShortcut>
#include <QSignalMapper>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

namespace {

// One row per main command; the shortcut is kept as text, as the platform
// names it.
struct CommandRow
{
    int id;
    const char *text;
    QString shortcut;
    const char *statusTip;
    const char *icon;
};

const int kCommandCount = 9;
const int kRecentEntries = 6;
const int kRecentButtonWidth = 21;

// Toolbar layout codes: a command id, or one of these.
enum LayoutCode {
    kLayoutEnd = -1,
    kLayoutExtraWidget = -2,
    kLayoutSeparator = -3,
    kLayoutWideSpacer = -4,
    kLayoutNarrowSpacer = -5,
    kLayoutStretch = -6
};
const int kToolBarLayout[] = {CmdRecentImages, CmdOpenImage,    kLayoutSeparator, CmdConfigure,
                              kLayoutWideSpacer, CmdZoomOut,     CmdZoomActual,    CmdZoomIn,
                              kLayoutStretch,    kLayoutSeparator, CmdHelpContents, CmdExit,
                              kLayoutEnd};

QKeySequence zoomActualKey()
{
    return QKeySequence(Qt::CTRL + Qt::Key_0);
}

QString nativeText(const QKeySequence &key)
{
    return key.toString(QKeySequence::NativeText);
}

QVector<CommandRow> &commandTable()
{
    static QVector<CommandRow> table = {
        {CmdRecentImages, QT_TRANSLATE_NOOP("CMainWindow", "Recent Images"), QString(),
         QT_TRANSLATE_NOOP("CMainWindow", "Recent image files"), "toolbar/btn_toolbar_recent.png"},
        {CmdOpenImage, QT_TRANSLATE_NOOP("CMainWindow", "Open &Image"), QStringLiteral("ALT+I"),
         QT_TRANSLATE_NOOP("CMainWindow", "Open an image file"), "toolbar/btn_toolbar_open_img.png"},
        {CmdConfigure, QT_TRANSLATE_NOOP("CMainWindow", "&Configure"), QStringLiteral("ALT+C"),
         QT_TRANSLATE_NOOP("CMainWindow", "Display the configuration dialogue box"),
         "toolbar/btn_toolbar_configure.png"},
        {CmdExit, QT_TRANSLATE_NOOP("CMainWindow", "E&xit"), QStringLiteral("ALT+X"),
         QT_TRANSLATE_NOOP("CMainWindow", "Exit the application"), "toolbar/btn_toolbar_exit.png"},
        {CmdHelpContents, QT_TRANSLATE_NOOP("CMainWindow", "&Contents"), QString(),
         QT_TRANSLATE_NOOP("CMainWindow", "Help Contents"), "toolbar/btn_toolbar_help.png"},
        {CmdAbout, QT_TRANSLATE_NOOP("CMainWindow", "&About"), QString(),
         QT_TRANSLATE_NOOP("CMainWindow", "About"), "toolbar/btn_toolbar_about.png"},
        {CmdZoomOut, QT_TRANSLATE_NOOP("CMainWindow", "Zoom Out"),
         nativeText(QKeySequence(QKeySequence::ZoomOut)),
         QT_TRANSLATE_NOOP("CMainWindow", "Zoom Out: [%1]"), "toolbar/btn_toolbar_zoom_out.png"},
        {CmdZoomIn, QT_TRANSLATE_NOOP("CMainWindow", "Zoom In"),
         nativeText(QKeySequence(QKeySequence::ZoomIn)),
         QT_TRANSLATE_NOOP("CMainWindow", "Zoom In: [%1]"), "toolbar/btn_toolbar_zoom_in.png"},
        {CmdZoomActual, QT_TRANSLATE_NOOP("CMainWindow", "Zoom Actual Size"),
         nativeText(zoomActualKey()), QT_TRANSLATE_NOOP("CMainWindow", "Zoom Actual Size: [%1]"),
         "toolbar/btn_toolbar_zoom_actual.png"},
    };
    return table;
}

// The zoom commands take their shortcut from the key sequence itself, and
// show its platform name in their status tip.
bool isZoomCommand(int id)
{
    return id == CmdZoomOut || id == CmdZoomIn || id == CmdZoomActual;
}

QKeySequence zoomKey(int id)
{
    if (id == CmdZoomOut)
        return QKeySequence(QKeySequence::ZoomOut);
    if (id == CmdZoomIn)
        return QKeySequence(QKeySequence::ZoomIn);
    return zoomActualKey();
}

} // namespace

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
    commandTable()[CmdHelpContents].shortcut =
        nativeText(QKeySequence(QKeySequence::HelpContents));
    buildToolBar();
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
    connect(m_samplingPage, &CColourImageWindow::helpRequested, this, &CMainWindow::displayHelp);
    connect(m_dataPage, &CChartDataWindow::titleChanged, this, &CMainWindow::updateTitle);
    connect(m_dataPage, &CChartDataWindow::helpRequested, this, &CMainWindow::displayHelp);
}

void CMainWindow::rememberRecentFile(const QString &path)
{
    m_settings->addRecentFile(this, path);
    refreshRecentFiles();
}

QAction *CMainWindow::commandAction(int id) const
{
    return m_commandActions.value(id, nullptr);
}

QAction *CMainWindow::createCommandAction(int id)
{
    const CommandRow &row = commandTable().at(id);
    auto *action = new QAction(AppContext::widgetIcon(QLatin1String(row.icon)), tr(row.text), this);
    if (isZoomCommand(id)) {
        action->setShortcut(zoomKey(id));
        action->setStatusTip(tr(row.statusTip).arg(nativeText(zoomKey(id))));
    } else {
        if (!row.shortcut.isEmpty())
            action->setShortcut(QKeySequence::fromString(row.shortcut, QKeySequence::NativeText));
        action->setStatusTip(tr(row.statusTip));
    }
    mapCommand(action, m_commandMapper, id);
    return action;
}

void CMainWindow::buildToolBar(const QList<QWidget *> &extraWidgets)
{
    m_toolBar = addToolBar(tr("ToolBarMain"));
    m_toolBar->setObjectName(QStringLiteral("ToolBarMain"));
    m_toolBar->setIconSize(QSize(56, 42));
    m_toolBar->setMovable(false);
    m_toolBar->setFloatable(false);
    m_toolBar->setStyleSheet(QStringLiteral("QWidget {border:none;}"));
    m_commandActions = QList<QAction *>();
    for (int i = 0; i < kCommandCount; ++i)
        m_commandActions.append(nullptr);

    int nextExtra = 0;
    const int height = m_toolBar->sizeHint().height();
    for (int code : kToolBarLayout) {
        if (code == kLayoutEnd)
            break;
        if (code >= 0) {
            QAction *action = createCommandAction(code);
            m_commandActions[code] = action;
            m_toolBar->addAction(action);
            QWidget *button = m_toolBar->widgetForAction(action);
            button->setStyleSheet(QStringLiteral("QWidget:hover {border:1px solid gray;}"));
            if (code == CmdRecentImages)
                addRecentButton(action);
        } else if (code == kLayoutSeparator) {
            m_toolBar->addSeparator();
        } else if (code == kLayoutStretch) {
            auto *stretch = new QWidget(m_toolBar);
            stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
            m_toolBar->addWidget(stretch);
        } else if (code == kLayoutWideSpacer) {
            m_toolBar->addWidget(new CSpacerWidget(4 * height, height, m_toolBar));
        } else if (code == kLayoutNarrowSpacer) {
            m_toolBar->addWidget(new CSpacerWidget(height / 2, height, m_toolBar));
        } else if (code == kLayoutExtraWidget && nextExtra < extraWidgets.size()) {
            m_toolBar->addWidget(extraWidgets.at(nextExtra++));
        }
    }
}

void CMainWindow::addRecentButton(QAction *action)
{
    // A narrow button beside "Open Image"; the recent menu pops up at it.
    m_recentButton = qobject_cast<QToolButton *>(m_toolBar->widgetForAction(action));
    if (m_recentButton)
        m_recentButton->setFixedWidth(kRecentButtonWidth);
}

void CMainWindow::buildRecentMenu()
{
    m_recentMenu = new QMenu(this);
    for (int i = 0; i < kRecentEntries; ++i) {
        auto *action = new QAction(this);
        action->setVisible(false);
        connect(action, &QAction::triggered, this, &CMainWindow::openRecentFile);
        m_recentActions.append(action);
        m_recentMenu->addAction(action);
    }
    m_recentMenu->addSeparator();
    QAction *clear = m_recentMenu->addAction(tr("Clear &List"));
    clear->setStatusTip(tr("Clear recently used files list"));
    connect(clear, &QAction::triggered, this, &CMainWindow::clearRecentFilesList);
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

void CMainWindow::fillRecentMenu()
{
    const QStringList &files = m_settings->recentFiles;
    for (int i = 0; i < m_recentActions.size(); ++i) {
        QAction *action = m_recentActions.at(i);
        if (i < files.size()) {
            const QString &path = files.at(i);
            action->setText(tr("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName()));
            action->setStatusTip(path);
            action->setData(path);
            action->setVisible(true);
        } else {
            action->setVisible(false);
        }
    }
}

void CMainWindow::refreshRecentFiles()
{
    fillRecentMenu();
    enableCommand(CmdRecentImages, !m_settings->recentFiles.isEmpty());
}

void CMainWindow::enableCommand(int id, bool enable)
{
    for (QAction *action : m_toolBar->actions()) {
        if (action == commandAction(id))
            action->setEnabled(enable);
    }
}

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
        fillRecentMenu();
        if (m_recentButton)
            m_recentMenu->exec(m_toolBar->mapToGlobal(m_recentButton->pos()));
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
