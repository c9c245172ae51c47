#include "app/maintoolbar.h"

#include "common/appcontext.h"
#include "common/commandid.h"
#include "common/commandmapping.h"
#include "help/spacerwidget.h"

#include <QAction>
#include <QKeySequence>
#include <QToolButton>
#include <QVector>

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

const QVector<CommandRow> &commandTable()
{
    static const QVector<CommandRow> table = {
        {CmdRecentImages, QT_TRANSLATE_NOOP("CMainToolBar", "Recent Images"), QString(),
         QT_TRANSLATE_NOOP("CMainToolBar", "Recent image files"), "toolbar/btn_toolbar_recent.png"},
        {CmdOpenImage, QT_TRANSLATE_NOOP("CMainToolBar", "Open &Image"), QStringLiteral("ALT+I"),
         QT_TRANSLATE_NOOP("CMainToolBar", "Open an image file"), "toolbar/btn_toolbar_open_img.png"},
        {CmdConfigure, QT_TRANSLATE_NOOP("CMainToolBar", "&Configure"), QStringLiteral("ALT+C"),
         QT_TRANSLATE_NOOP("CMainToolBar", "Display the configuration dialogue box"),
         "toolbar/btn_toolbar_configure.png"},
        {CmdExit, QT_TRANSLATE_NOOP("CMainToolBar", "E&xit"), QStringLiteral("ALT+X"),
         QT_TRANSLATE_NOOP("CMainToolBar", "Exit the application"), "toolbar/btn_toolbar_exit.png"},
        {CmdHelpContents, QT_TRANSLATE_NOOP("CMainToolBar", "&Contents"),
         nativeText(QKeySequence(QKeySequence::HelpContents)),
         QT_TRANSLATE_NOOP("CMainToolBar", "Help Contents"), "toolbar/btn_toolbar_help.png"},
        {CmdAbout, QT_TRANSLATE_NOOP("CMainToolBar", "&About"), QString(),
         QT_TRANSLATE_NOOP("CMainToolBar", "About"), "toolbar/btn_toolbar_about.png"},
        {CmdZoomOut, QT_TRANSLATE_NOOP("CMainToolBar", "Zoom Out"),
         nativeText(QKeySequence(QKeySequence::ZoomOut)),
         QT_TRANSLATE_NOOP("CMainToolBar", "Zoom Out: [%1]"), "toolbar/btn_toolbar_zoom_out.png"},
        {CmdZoomIn, QT_TRANSLATE_NOOP("CMainToolBar", "Zoom In"),
         nativeText(QKeySequence(QKeySequence::ZoomIn)),
         QT_TRANSLATE_NOOP("CMainToolBar", "Zoom In: [%1]"), "toolbar/btn_toolbar_zoom_in.png"},
        {CmdZoomActual, QT_TRANSLATE_NOOP("CMainToolBar", "Zoom Actual Size"),
         nativeText(zoomActualKey()), QT_TRANSLATE_NOOP("CMainToolBar", "Zoom Actual Size: [%1]"),
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

CMainToolBar::CMainToolBar(QSignalMapper *commands, QWidget *parent,
                           const QList<QWidget *> &extraWidgets)
    : QToolBar(tr("ToolBarMain"), parent), m_commands(commands)
{
    setObjectName(QStringLiteral("ToolBarMain"));
    setIconSize(QSize(56, 42));
    setMovable(false);
    setFloatable(false);
    setStyleSheet(QStringLiteral("QWidget {border:none;}"));
    for (int i = 0; i < kCommandCount; ++i)
        m_commandActions.append(nullptr);
    // The gaps are measured against the bar's height before anything is in it.
    const int height = sizeHint().height();
    int nextExtra = 0;
    for (int code : kToolBarLayout) {
        if (code == kLayoutEnd)
            break;
        addLayoutItem(code, height, extraWidgets, &nextExtra);
    }
}

void CMainToolBar::addLayoutItem(int code, int height, const QList<QWidget *> &extraWidgets,
                                 int *nextExtra)
{
    if (code >= 0) {
        addCommand(code);
    } else if (code == kLayoutSeparator) {
        addSeparator();
    } else if (code == kLayoutStretch) {
        auto *stretch = new QWidget(this);
        stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        addWidget(stretch);
    } else if (code == kLayoutWideSpacer) {
        addWidget(new CSpacerWidget(4 * height, height, this));
    } else if (code == kLayoutNarrowSpacer) {
        addWidget(new CSpacerWidget(height / 2, height, this));
    } else if (code == kLayoutExtraWidget && *nextExtra < extraWidgets.size()) {
        addWidget(extraWidgets.at((*nextExtra)++));
    }
}

void CMainToolBar::addCommand(int id)
{
    QAction *action = createCommandAction(id);
    m_commandActions[id] = action;
    addAction(action);
    QWidget *button = widgetForAction(action);
    button->setStyleSheet(QStringLiteral("QWidget:hover {border:1px solid gray;}"));
    if (id != CmdRecentImages)
        return;
    // A narrow button beside "Open Image"; the recent menu pops up at it.
    m_recentButton = qobject_cast<QToolButton *>(button);
    if (m_recentButton)
        m_recentButton->setFixedWidth(kRecentButtonWidth);
}

QAction *CMainToolBar::createCommandAction(int id)
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
    mapCommand(action, m_commands, id);
    return action;
}

QAction *CMainToolBar::commandAction(int id) const
{
    return m_commandActions.value(id, nullptr);
}

void CMainToolBar::enableCommand(int id, bool enable)
{
    for (QAction *action : actions()) {
        if (action == commandAction(id))
            action->setEnabled(enable);
    }
}
