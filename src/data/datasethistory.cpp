#include "data/datasethistory.h"

#include "data/datamodel.h"
#include "data/datasetcommand.h"
#include "tables/datacolourtable.h"

#include <QKeySequence>
#include <QShortcut>
#include <QUndoStack>
#include <QWidget>

CDataSetHistory::CDataSetHistory(CDataModel *model, QWidget *page)
    : QObject(page), m_model(model), m_stack(new QUndoStack(this))
{
    m_model->setUndoStack(m_stack);
    connect(m_stack, &QUndoStack::indexChanged, this, &CDataSetHistory::changed);
    // A window shortcut of a hidden widget does not fire: the keys act only
    // while the page is the tab on show.
    auto *undoKey = new QShortcut(QKeySequence(QKeySequence::Undo), page);
    auto *redoKey = new QShortcut(QKeySequence(QKeySequence::Redo), page);
    connect(undoKey, &QShortcut::activated, m_stack, &QUndoStack::undo);
    connect(redoKey, &QShortcut::activated, m_stack, &QUndoStack::redo);
}

void CDataSetHistory::add(const CDataSetSnapshot::Row &row)
{
    m_stack->push(CDataSetCommand::add(m_model, row));
}

void CDataSetHistory::recordReplace(const QString &text, const CDataSetSnapshot &before)
{
    // An empty set without a file has nothing to bring back: opening the
    // first file of a session is not a change to undo.
    if (before.rows.isEmpty() && before.filePath.isEmpty())
        return;
    const CDataSetSnapshot after = CDataSetSnapshot::capture(*m_model->table());
    if (after != before)
        m_stack->push(CDataSetCommand::replace(m_model, text, before, after));
}
