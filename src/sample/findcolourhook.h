#pragma once

#include "colour/rgbcolour.h"

#include <QObject>
#include <QPointer>

class CAppSettings;
class CDlgFindColour;
class CLibrarySelector;
class QAction;
class QPoint;
class QWidget;

// Reaches "Find Colour…" on the sampling page: the library combo's context
// menu and Ctrl+F (a key the page leaves free) open one window on the
// selected table, which follows the combo while it is open. The chosen
// colour is signalled for the page to install as its sample.
class CFindColourHook : public QObject
{
    Q_OBJECT

public:
    // selector: the library combo; page: where the key works and the
    // window's parent. settings may be null.
    CFindColourHook(CLibrarySelector *selector, QWidget *page, CAppSettings *settings);

    QAction *findAction() const { return m_action; }
    // The open window, or null.
    CDlgFindColour *window() const;

public slots:
    // Opens the window on the selected table, or brings the open one forward.
    void open();

signals:
    void colourChosen(const RgbColour &colour);
    void displayHelpSignal(const QString &page);

private:
    void showMenu(const QPoint &pos);
    void followTable();

    CLibrarySelector *m_selector = nullptr;
    QWidget *m_page = nullptr;
    CAppSettings *m_settings = nullptr;
    QAction *m_action = nullptr;
    QPointer<CDlgFindColour> m_window;
};
