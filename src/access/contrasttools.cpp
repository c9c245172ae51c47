#include "access/contrasttools.h"

#include "access/contrastgridwindow.h"
#include "access/contrastwindow.h"
#include "data/datagrid.h"
#include "palette/palettefile.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourimagewindow.h"
#include "sample/matchresultsview.h"
#include "sample/samplepanel.h"
#include "tables/datacolourtable.h"

namespace {

RgbColour entryColour(const CColourTableEntry &entry)
{
    return {entry.red, entry.green, entry.blue};
}

void showRaised(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace

CContrastTools::CContrastTools(CColourImageWindow *page, CDataGrid *grid, QWidget *windowParent)
    : QObject(windowParent), m_page(page), m_grid(grid), m_windowParent(windowParent)
{
    if (page) {
        connect(page->samplePanel(), &CSamplePanel::swatchMenuAboutToShow, this,
                &CContrastTools::addSwatchEntry);
        connect(page->samplePanel(), &CSamplePanel::colourShown, this, &CContrastTools::takePick);
        if (CMatchResultsView *view = results()) {
            connect(view, &CMatchResultsView::rowMenuAboutToShow, this,
                    &CContrastTools::addMatchRowEntry);
        }
    }
    if (grid)
        connect(grid, &CDataGrid::contextMenuAboutToShow, this, &CContrastTools::addGridEntries);
}

CContrastWindow *CContrastTools::contrastWindow() const
{
    return m_window;
}

CContrastGridWindow *CContrastTools::gridWindow() const
{
    return m_gridWindow;
}

CMatchResultsView *CContrastTools::results() const
{
    return m_page ? qobject_cast<CMatchResultsView *>(m_page->resultsTable()) : nullptr;
}

void CContrastTools::addSwatchEntry(CColourContextMenu *menu)
{
    menu->addSeparator();
    QAction *action = menu->addAction(tr("Check Contrast\u2026"));
    connect(action, &QAction::triggered, this, [this]() {
        if (m_page && m_page->isSamplePresent())
            openContrast({m_page->sample(), QString(), tr("Sample")}, {{1.0, 1.0, 1.0}, tr("White"), {}});
    });
}

void CContrastTools::addMatchRowEntry(CColourContextMenu *menu, int row)
{
    QAction *action = menu->addAction(tr("Check Contrast\u2026"));
    connect(action, &QAction::triggered, this, [this, row]() {
        const CMatchResultsView *view = results();
        const CMatchResult *entry = view ? view->rowEntry(row) : nullptr;
        if (entry)
            openContrast({{entry->red, entry->green, entry->blue}, entry->name, tr("Match")},
                         pageBackground());
    });
}

void CContrastTools::addGridEntries(CColourContextMenu *menu, int row)
{
    if (!m_grid)
        return;
    if (row >= 0) {
        QAction *check = menu->addAction(tr("Check Contrast\u2026"));
        connect(check, &QAction::triggered, this, [this, row]() {
            const CDataColourTable *table = m_grid ? m_grid->table() : nullptr;
            if (table && row < table->count()) {
                const CColourTableEntry *entry = table->at(row);
                openContrast({entryColour(*entry), entry->name, tr("Data set")},
                             {{1.0, 1.0, 1.0}, tr("White"), {}});
            }
        });
    }
    QAction *grid = menu->addAction(tr("Contrast Grid\u2026"));
    grid->setEnabled(m_grid->table() && m_grid->table()->count() > 0);
    connect(grid, &QAction::triggered, this, &CContrastTools::openGrid);
}

ContrastColour CContrastTools::pageBackground() const
{
    if (m_page && m_page->isSamplePresent())
        return {m_page->sample(), QString(), tr("Sample")};
    return {{1.0, 1.0, 1.0}, tr("White"), {}};
}

void CContrastTools::openContrast(const ContrastColour &text, const ContrastColour &background)
{
    if (!m_window) {
        m_window = new CContrastWindow(m_windowParent);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        m_window->setCandidatesProvider([this]() { return candidates(); });
    }
    m_window->setPair(text, background);
    showRaised(m_window);
}

void CContrastTools::openGrid()
{
    if (!m_grid || !m_grid->table())
        return;
    if (!m_gridWindow) {
        m_gridWindow = new CContrastGridWindow(m_windowParent);
        m_gridWindow->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_gridWindow->setColours(CPaletteFile::fromTable(*m_grid->table()).colours);
    showRaised(m_gridWindow);
}

QVector<ContrastColour> CContrastTools::candidates() const
{
    QVector<ContrastColour> list;
    if (m_page) {
        const CMultipleSelectionModel &selection = m_page->multipleSelection();
        for (int i = 0; i < selection.count(); ++i)
            list.append({selection.at(i).colour, QString(), tr("Slot %1").arg(i + 1)});
    }
    if (const CMatchResultsView *view = results()) {
        for (int row = 0; view->rowEntry(row); ++row) {
            const CMatchResult *entry = view->rowEntry(row);
            list.append({{entry->red, entry->green, entry->blue}, entry->name, tr("Match")});
        }
    }
    if (m_grid && m_grid->table()) {
        const CDataColourTable *table = m_grid->table();
        for (int i = 0; i < table->count(); ++i)
            list.append({entryColour(*table->at(i)), table->at(i)->name, tr("Data set")});
    }
    return list;
}

void CContrastTools::takePick(const RgbColour &colour)
{
    if (m_window && m_window->isVisible())
        m_window->takePick(colour);
}
