#include "screen/screenpicker.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "sample/libraryselector.h"

#include "screen/capturebackend.h"
#include "screen/screencapture.h"
#include "screen/screenoverlay.h"

#include <QAction>
#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QToolBar>
#include <QWidget>
#include <QWindow>

namespace {

const int kPollMs = 10;

} // namespace

CScreenPicker::CScreenPicker(QWidget *window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{
    m_action = new QAction(AppContext::widgetIcon(QStringLiteral("toolbar/btn_toolbar_pick_screen.png")),
                           tr("Pick from Screen"), this);
    m_action->setData(int(CmdPickFromScreen));
    m_action->setShortcut(QKeySequence::fromString(shortcutText(), QKeySequence::NativeText));
    m_action->setStatusTip(tr("Pick from Screen: any colour on the screen, named as the cursor "
                              "moves: [%1]")
                               .arg(shortcutText()));
    connect(m_action, &QAction::triggered, this, &CScreenPicker::start);
}

QString CScreenPicker::shortcutText()
{
    return QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P).toString(QKeySequence::NativeText);
}

void CScreenPicker::addToToolBar(QToolBar *toolBar, QAction *after)
{
    const QList<QAction *> actions = toolBar->actions();
    const int index = actions.indexOf(after);
    QAction *before = index >= 0 ? actions.value(index + 1, nullptr) : nullptr;
    toolBar->insertAction(before, m_action);
    if (QWidget *button = toolBar->widgetForAction(m_action))
        button->setStyleSheet(QStringLiteral("QWidget:hover {border:1px solid gray;}"));
}

void CScreenPicker::attachToPage(CColourImageWindow *page, CAppSettings *settings)
{
    connect(this, &CScreenPicker::aboutToStart, page, [this, page, settings]() {
        setPickSize(page->imageWidget()->pickSize());
        setRgbAverage(settings ? settings->rgbAverage : true);
        setMatcher(&page->librarySelector()->matcher());
    });
    connect(this, &CScreenPicker::pictureTaken, page, &CColourImageWindow::showScreenCapture);
    connect(this, &CScreenPicker::regionPicked, page, &CColourImageWindow::pickImageRegion);
}

CScreenPicker::~CScreenPicker()
{
    delete m_overlay;
}

CScreenOverlay *CScreenPicker::overlay() const
{
    return m_overlay;
}

void CScreenPicker::setCapture(std::unique_ptr<CScreenCapture> capture)
{
    m_capture = std::move(capture);
    connect(m_capture.get(), &CScreenCapture::captured, this, &CScreenPicker::captured);
    connect(m_capture.get(), &CScreenCapture::failed, this, &CScreenPicker::failed);
}

void CScreenPicker::start()
{
    if (m_active)
        return;
    if (!m_capture)
        setCapture(CCaptureBackend::create());
    m_active = true;
    emit aboutToStart();
    hideWindows();
    waitUntilGone(0);
}

void CScreenPicker::hideWindows()
{
    m_hidden.clear();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (!window->isVisible() || window->windowType() == Qt::Desktop)
            continue;
        // A tool tip or an open menu goes for good; windows come back.
        const Qt::WindowType type = window->windowType();
        if (type != Qt::ToolTip && type != Qt::Popup)
            m_hidden.append(window);
        window->hide();
    }
}

// Hiding is asked of the window system; a window is gone once Qt hears that
// it is no longer exposed (bounded, a window system may never say so). A
// compositor may still fade it out, hence the settling delay after that.
void CScreenPicker::waitUntilGone(int waitedMs)
{
    bool gone = true;
    for (const QPointer<QWidget> &window : qAsConst(m_hidden)) {
        if (window && window->windowHandle() && window->windowHandle()->isExposed())
            gone = false;
    }
    if (!gone && waitedMs < kGoneTimeoutMs) {
        QTimer::singleShot(kPollMs, this, [this, waitedMs]() { waitUntilGone(waitedMs + kPollMs); });
        return;
    }
    QTimer::singleShot(m_settleMs, this, [this]() { m_capture->start(); });
}

void CScreenPicker::captured(const QImage &image)
{
    if (!m_active || m_overlay)
        return;
    m_overlay = new CScreenOverlay(image);
    m_overlay->setAttribute(Qt::WA_DeleteOnClose);
    m_overlay->setPickSize(m_pickSize);
    m_overlay->setRgbAverage(m_rgbAverage);
    m_overlay->setMatcher(m_matcher);
    connect(m_overlay, &CScreenOverlay::picked, this, &CScreenPicker::picked);
    connect(m_overlay, &CScreenOverlay::cancelled, this, &CScreenPicker::cancelled);
    QScreen *primary = QGuiApplication::primaryScreen();
    const QRect desktop = primary ? primary->virtualGeometry() : QRect(QPoint(), image.size());
    m_overlay->showOverDesktop(desktop, QGuiApplication::screens().size() <= 1);
    emit overlayShown();
}

void CScreenPicker::failed(const QString &message)
{
    if (!m_active)
        return;
    restoreWindows();
    m_active = false;
    QMessageBox::warning(m_window, tr("Pick from Screen"), message);
    emit finishedWithoutPick();
}

void CScreenPicker::picked(const QRect &imageRect)
{
    const QImage picture = m_overlay->capture();
    closeOverlay();
    restoreWindows();
    m_active = false;
    emit pictureTaken(picture);
    emit regionPicked(imageRect);
}

void CScreenPicker::cancelled()
{
    closeOverlay();
    restoreWindows();
    m_active = false;
    emit finishedWithoutPick();
}

void CScreenPicker::closeOverlay()
{
    if (m_overlay) {
        m_overlay->disconnect(this);
        m_overlay->close();
    }
}

void CScreenPicker::restoreWindows()
{
    for (const QPointer<QWidget> &window : qAsConst(m_hidden)) {
        if (window)
            window->show();
    }
    m_hidden.clear();
    if (m_window) {
        m_window->raise();
        m_window->activateWindow();
    }
}
