#include "sample/matchrunner.h"

#include "common/appcontext.h"
#include "sample/colourcontextmenu.h"
#include "sample/dlgexplainmatch.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"

#include <QAction>
#include <QMessageBox>

CMatchRunner::CMatchRunner(CLibrarySelector *library, CMatchResultsView *results,
                           QWidget *dialogParent)
    : QObject(dialogParent), m_library(library), m_results(results), m_parent(dialogParent)
{
    connect(m_results, &CMatchResultsView::rowMenuAboutToShow, this,
            &CMatchRunner::addExplainAction);
}

void CMatchRunner::match(const RgbColour &sample, bool present)
{
    if (!present) {
        QMessageBox::warning(m_parent, AppContext::productName(),
                             tr("No Colour has been selected for matching."), QMessageBox::Ok);
        return;
    }
    m_matched = true;
    if (m_library->table().count() == 0) {
        m_results->clearResults();
        QMessageBox::warning(
            m_parent, AppContext::productName(),
            tr("The %1 Colour Match Library is empty, so a match cannot be attempted.")
                .arg(m_library->selectedTableBaseName()),
            QMessageBox::Ok);
        return;
    }
    showMatches(sample);
}

void CMatchRunner::repeat(const RgbColour &sample, bool present)
{
    if (!m_matched || !present || m_library->table().count() == 0)
        return;
    showMatches(sample);
}

void CMatchRunner::showMatches(const RgbColour &sample)
{
    m_results->showMatches(m_library->matcher(), sample);
    emit matched();
}

void CMatchRunner::addExplainAction(QMenu *menu, int row)
{
    QAction *action = menu->addAction(tr("Explain this match\u2026"));
    connect(action, &QAction::triggered, this, [this, row]() { explainMatch(row); });
}

void CMatchRunner::explainMatch(int row)
{
    const CMatchResult *entry = m_results->rowEntry(row);
    if (entry == nullptr)
        return;
    auto *dialog = new CDlgExplainMatch(m_results->matchedSample(), entry->name,
                                        {entry->red, entry->green, entry->blue}, m_parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}
