#pragma once

#include "tables/datasetsnapshot.h"

#include <QObject>

class CDataModel;
class QUndoStack;
class QWidget;

// The undo history of the data page. Deleting and renaming a row reach it
// through the model; the page records added colours and the replacements of
// the whole set (New, Open). The desktop's Undo and Redo keys work while
// the page is showing. Saving leaves the history as it is.
class CDataSetHistory : public QObject
{
    Q_OBJECT

public:
    // page: where the keys live (they only act while it is shown).
    CDataSetHistory(CDataModel *model, QWidget *page);

    QUndoStack *stack() const { return m_stack; }

    // Appends a colour to the set as an undoable change.
    void add(const CDataSetSnapshot::Row &row);
    // The set was replaced since before was taken (New, Open): recorded so
    // that undoing brings before back, file name included. Nothing is
    // recorded when the set is still the same, or when before was an empty
    // set without a file.
    void recordReplace(const QString &text, const CDataSetSnapshot &before);

signals:
    // Any change of the set through the history: a new change, an undo or
    // a redo.
    void changed();

private:
    CDataModel *m_model;
    QUndoStack *m_stack;
};
