#pragma once

#include "access/contrastcolour.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class CColourContextMenu;
class CColourImageWindow;
class CContrastGridWindow;
class CContrastWindow;
class CDataGrid;
class CMatchResultsView;

// Puts "Check Contrast…" on the sample swatch's menu, on a match row's menu
// and on the data grid's menu, and "Contrast Grid…" on the data grid's
// menu, and keeps the two windows they open (one of each, raised again when
// asked for again). While the contrast window is open the page's picks are
// handed to it. Owned by the main window, which owns both pages; either
// page may be null.
class CContrastTools : public QObject
{
    Q_OBJECT

public:
    CContrastTools(CColourImageWindow *page, CDataGrid *grid, QWidget *windowParent);

    // Opens (or raises) the contrast window on a pair.
    void openContrast(const ContrastColour &text, const ContrastColour &background);
    // Opens (or raises) the grid of the data set's colours.
    void openGrid();
    // What the contrast window's list offers besides white and black: the
    // multiple-selection entries, the shown match rows, the data set rows.
    QVector<ContrastColour> candidates() const;

    // Null until first opened.
    CContrastWindow *contrastWindow() const;
    CContrastGridWindow *gridWindow() const;

private:
    void addSwatchEntry(CColourContextMenu *menu);
    void addMatchRowEntry(CColourContextMenu *menu, int row);
    void addGridEntries(CColourContextMenu *menu, int row);
    void takePick(const RgbColour &colour);
    // The page's sample, or white when there is none.
    ContrastColour pageBackground() const;
    CMatchResultsView *results() const;

    QPointer<CColourImageWindow> m_page;
    QPointer<CDataGrid> m_grid;
    QWidget *m_windowParent;
    QPointer<CContrastWindow> m_window;
    QPointer<CContrastGridWindow> m_gridWindow;
};
