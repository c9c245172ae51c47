#include "help/helpwindow.h"

#include "common/appcontext.h"
#include "help/helpanchors.h"
#include "help/helpbrowser.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHelpContentModel>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdio>

QPointer<CHelpWindow> CHelpWindow::s_instance;
bool CHelpWindow::s_ready = false;

namespace {

// The folder of the toolbar images. The file names below start with their
// own "/", so the joined paths hold a doubled one, which the resource
// system reads as a single separator.
const char kHelpIconFolder[] = ":/resources/widgets/help/";

// Keeps the event loop running for `ms` milliseconds of wall-clock time.
void processEventsFor(qint64 ms)
{
    const qint64 end = QDateTime::currentMSecsSinceEpoch() + ms;
    while (QDateTime::currentMSecsSinceEpoch() < end)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

} // namespace

CHelpWindow::CHelpWindow(const QString &folder, QWidget *parent) : QWidget(parent)
{
    m_helpEngine = new QHelpEngine(collectionPath(folder), this);
    m_helpEngine->setProperty("_q_readonly", QVariant(true));
    m_browser = new CHelpBrowser(m_helpEngine, this);
    buildToolBar();
    buildLayout();
    connectEngine();
    m_helpEngine->contentWidget()->viewport()->installEventFilter(this);
    m_helpEngine->setupData();
}

CHelpWindow::~CHelpWindow() = default;

QString CHelpWindow::collectionFileName()
{
    return AppContext::helpCollectionName();
}

QString CHelpWindow::collectionPath(const QString &folder)
{
    return folder + QLatin1Char('/') + collectionFileName();
}

QString CHelpWindow::helpNamespace()
{
    return QStringLiteral("qthelp://tessaline.Vellora/help/");
}

QUrl CHelpWindow::pageUrl(const QString &page)
{
    return QUrl(helpNamespace() + page);
}

void CHelpWindow::buildToolBar()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setIconSize(QSize(50, 38));
    m_toolBar->setMovable(false);
    m_toolBar->setFloatable(false);
    m_homeAction = addToolAction(QStringLiteral("/btn_help_home.png"), tr("Home"), tr("Alt+H"));
    m_backAction = addToolAction(QStringLiteral("/btn_help_back.png"), tr("Back"), tr("Alt+B"));
    m_forwardAction =
        addToolAction(QStringLiteral("/btn_help_forward.png"), tr("Forward"), tr("Alt+F"));
    m_toolBar->addSeparator();
    m_printAction = addToolAction(QStringLiteral("/btn_help_print.png"), tr("Print"), tr("Alt+P"));
    m_closeAction = addToolAction(QStringLiteral("/btn_help_close.png"), tr("Close"), tr("Alt+C"));
    m_homeAction->setEnabled(false);
    m_backAction->setEnabled(false);
    m_forwardAction->setEnabled(false);
    connect(m_homeAction, &QAction::triggered, this, &CHelpWindow::home);
    connect(m_backAction, &QAction::triggered, this, &CHelpWindow::backward);
    connect(m_forwardAction, &QAction::triggered, this, &CHelpWindow::forward);
    connect(m_printAction, &QAction::triggered, this, &CHelpWindow::print);
    connect(m_closeAction, &QAction::triggered, this, &CHelpWindow::close);
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &CHelpWindow::close);
}

QAction *CHelpWindow::addToolAction(const QString &icon, const QString &text, const QString &key)
{
    QAction *action =
        m_toolBar->addAction(QIcon(QLatin1String(kHelpIconFolder) + icon), text);
    action->setShortcut(QKeySequence(key));
    return action;
}

QWidget *CHelpWindow::buildIndexPage()
{
    auto *page = new QWidget(this);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(tr("&Find:"), page);
    m_findField = new QLineEdit(page);
    m_findField->setMinimumWidth(
        m_findField->fontMetrics().horizontalAdvance(QStringLiteral("Minimum Edit Box Width")));
    label->setBuddy(m_findField);
    layout->addWidget(label);
    layout->addWidget(m_findField);
    layout->addWidget(m_helpEngine->indexWidget());
    return page;
}

void CHelpWindow::buildLayout()
{
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(m_helpEngine->contentWidget(), tr("Contents"));
    m_tabs->addTab(buildIndexPage(), tr("Index"));

    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_splitter->insertWidget(0, m_tabs);
    m_splitter->insertWidget(1, m_browser);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 10);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_splitter);
}

void CHelpWindow::connectEngine()
{
    connect(m_browser, &QTextBrowser::sourceChanged, this, &CHelpWindow::updateHomeButtonState);
    connect(m_browser, &QTextBrowser::backwardAvailable, this,
            &CHelpWindow::updateBackwardButtonState);
    connect(m_browser, &QTextBrowser::forwardAvailable, this,
            &CHelpWindow::updateForwardButtonState);
    connect(m_helpEngine->contentWidget(), &QAbstractItemView::clicked, this,
            &CHelpWindow::contentItemActivated);
    connect(m_helpEngine->indexWidget(), &QAbstractItemView::clicked, this,
            &CHelpWindow::indexItemActivated);
    connect(m_findField, &QLineEdit::textChanged, this, &CHelpWindow::filterIndices);
    connect(m_helpEngine, &QHelpEngineCore::setupStarted, this, &CHelpWindow::setupStarted);
    connect(m_helpEngine, &QHelpEngineCore::setupFinished, this, &CHelpWindow::setupFinished);
    connect(m_helpEngine, &QHelpEngineCore::warning, this, &CHelpWindow::warning);
}

CHelpWindow *CHelpWindow::showHelp(const QString &applicationName, const QString &page,
                                   const QRect &rect, int splitA, int splitB,
                                   const QString &folder)
{
    if (!s_instance) {
        s_ready = false;
        const QString dir = folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder;
        s_instance = new CHelpWindow(dir);
        while (!s_ready)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        s_instance->setWindowTitle(tr("%1 - Help").arg(applicationName));
        s_instance->resize(rect.size());
        s_instance->move(rect.topLeft());
        s_instance->m_splitter->setSizes({splitA, splitB});
        s_instance->openPage(QLatin1String(HelpAnchors::kHomePage));
    }
    if (!page.isEmpty())
        s_instance->openPage(page);
    s_instance->show();
    s_instance->raise();
    s_instance->activateWindow();
    return s_instance;
}

CHelpWindow *CHelpWindow::instance()
{
    return s_instance;
}

void CHelpWindow::deleteInstance()
{
    delete s_instance;
    s_instance = nullptr;
    s_ready = false;
}

bool CHelpWindow::isReady()
{
    return s_ready;
}

void CHelpWindow::openPage(const QString &page)
{
    m_browser->setSource(pageUrl(page));
}

void CHelpWindow::home()
{
    openPage(QLatin1String(HelpAnchors::kHomePage));
}

void CHelpWindow::backward()
{
    m_browser->backward();
}

void CHelpWindow::forward()
{
    m_browser->forward();
}

void CHelpWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print Help Page"));
    if (dialog.exec() == QDialog::Accepted)
        m_browser->print(&printer);
}

bool CHelpWindow::close()
{
    return QWidget::close();
}

void CHelpWindow::updateHomeButtonState(const QUrl &url)
{
    m_homeAction->setEnabled(QFileInfo(url.path()).fileName()
                             != QLatin1String(HelpAnchors::kHomePage));
}

void CHelpWindow::updateBackwardButtonState(bool available)
{
    m_backAction->setEnabled(available);
}

void CHelpWindow::updateForwardButtonState(bool available)
{
    m_forwardAction->setEnabled(available);
}

void CHelpWindow::contentItemActivated(const QModelIndex &index)
{
    const QHelpContentItem *item = m_helpEngine->contentModel()->contentItemAt(index);
    if (item)
        m_browser->setSource(item->url());
}

void CHelpWindow::indexItemActivated(const QModelIndex &index)
{
    const QString keyword = index.data(Qt::DisplayRole).toString();
    QList<QHelpLink> links = m_helpEngine->documentsForKeyword(keyword);
    if (links.isEmpty())
        return;
    // The documents come as title -> url; the smallest title wins.
    std::sort(links.begin(), links.end(),
              [](const QHelpLink &a, const QHelpLink &b) { return a.title < b.title; });
    m_browser->setSource(links.first().url);
}

void CHelpWindow::filterIndices(const QString &text)
{
    if (text.contains(QLatin1Char('*')))
        m_helpEngine->indexWidget()->filterIndices(text, text);
    else
        m_helpEngine->indexWidget()->filterIndices(text, QString());
}

void CHelpWindow::setupStarted()
{
    if (m_waitCursorShown)
        return;
    m_waitCursorShown = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void CHelpWindow::setupFinished()
{
    // The engine may run its setup again while events are processed below;
    // such a nested round finds the wait already under way and returns.
    if (m_finishingSetup)
        return;
    m_finishingSetup = true;
    if (!m_setupDone)
        processEventsFor(750);
    m_setupDone = true;
    m_helpEngine->setUsesFilterEngine(true);
    if (m_waitCursorShown)
        QApplication::restoreOverrideCursor();
    m_waitCursorShown = false;
    m_finishingSetup = false;
    s_ready = true;
}

void CHelpWindow::warning(const QString &message)
{
    std::printf("Help Engine warning:%s\n", message.toLatin1().constData());
    std::fflush(stdout);
}

bool CHelpWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Only a single click opens a contents entry.
    if (watched == m_helpEngine->contentWidget()->viewport()
        && event->type() == QEvent::MouseButtonDblClick)
        return true;
    return QWidget::eventFilter(watched, event);
}
