#pragma once

#include "tables/datasetsnapshot.h"

#include <QCoreApplication>
#include <QUndoCommand>

class CDataModel;

// One undoable change of the data set: a colour added, a row deleted, a row
// renamed, or the whole set replaced (New, Open). Rows are kept by value, so
// a command never holds an entry the table owns. Its text names the change
// ("Delete "Sky Blue""); the menus put "Undo" or "Redo" before it. Every
// replay marks the set modified, so the title and the Save icon follow.
class CDataSetCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(CDataSetCommand)

public:
    enum Kind { Add, Delete, Rename, Replace };

    // Appends row; done by the push.
    static CDataSetCommand *add(CDataModel *model, const CDataSetSnapshot::Row &row);
    // Removes the model's row; done by the push.
    static CDataSetCommand *remove(CDataModel *model, int row);
    // Gives the model's row a new name; done by the push.
    static CDataSetCommand *rename(CDataModel *model, int row, const QString &newName);
    // The set went from before to after (already done by its caller, who
    // also set the modified flag). text is "New" or "Open "<file>"".
    static CDataSetCommand *replace(CDataModel *model, const QString &text,
                                    const CDataSetSnapshot &before, const CDataSetSnapshot &after);

    Kind kind() const { return m_kind; }
    void undo() override;
    void redo() override;

private:
    CDataSetCommand(CDataModel *model, Kind kind, const QString &text);
    void insertRow(const CDataSetSnapshot::Row &row, int at);

    CDataModel *m_model;
    Kind m_kind;
    int m_row = 0;
    CDataSetSnapshot::Row m_value;
    QString m_otherName;
    CDataSetSnapshot m_before;
    CDataSetSnapshot m_after;
    bool m_skipFirstRedo = false;
};
