#include "sample/findcolourhook.h"

#include "app/appsettings.h"
#include "sample/dlgfindcolour.h"
#include "sample/libraryselector.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>

#include <utility>

CFindColourHook::CFindColourHook(CLibrarySelector *selector, QWidget *page,
                                 CAppSettings *settings)
    : QObject(page), m_selector(selector), m_page(page), m_settings(settings)
{
    m_action = new QAction(tr("Find Colour\u2026"), page);
    m_action->setShortcut(QKeySequence::Find);
    m_action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    page->addAction(m_action);
    connect(m_action, &QAction::triggered, this, &CFindColourHook::open);
    m_selector->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_selector, &QWidget::customContextMenuRequested, this, &CFindColourHook::showMenu);
    // Connected after the page's own handler, so the new table is loaded.
    connect(m_selector, &CLibrarySelector::tableSelected, this, &CFindColourHook::followTable);
}

void CFindColourHook::showMenu(const QPoint &pos)
{
    QMenu menu(m_selector);
    menu.addAction(m_action);
    menu.exec(m_selector->mapToGlobal(pos));
}

void CFindColourHook::open()
{
    if (m_window) {
        followTable();
        m_window->raise();
        m_window->activateWindow();
        m_window->searchField()->setFocus();
        return;
    }
    const CLibrarySelector &selector = std::as_const(*m_selector);
    m_window = new CDlgFindColour(selector.currentText(), selector.table(),
                                  CAppSettings::rgbFormatOf(m_settings), m_page);
    m_window->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_window, &CDlgFindColour::colourChosen, this,
            [this](const QString &, const RgbColour &colour) { emit colourChosen(colour); });
    connect(m_window, &CDlgFindColour::displayHelpSignal, this, &CFindColourHook::displayHelpSignal);
    m_window->show();
    m_window->searchField()->setFocus();
}

void CFindColourHook::followTable()
{
    if (m_window) {
        const CLibrarySelector &selector = std::as_const(*m_selector);
        m_window->setTable(selector.currentText(), selector.table());
    }
}

CDlgFindColour *CFindColourHook::window() const
{
    return m_window;
}
