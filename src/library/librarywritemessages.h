#pragma once

#include <QCoreApplication>
#include <QString>

class CColourTable;
class CColourTableEntry;
class QWidget;

// The questions and reports around a guarded write of a library table
// (CLibraryTableWriter): the same boxes as any table write while nobody
// else touches the file, and a question of its own before another window's
// or program's change would be overwritten.
class CLibraryWriteMessages
{
    Q_DECLARE_TR_FUNCTIONS(CLibraryWriteMessages)

public:
    enum EditOutcome { Saved, KeepOpen, Failed };

    // Adds entry to the library table table (loaded from its file) and
    // writes it; a table changed on disk is reread first and keeps the other
    // change. False when nothing was added (reported).
    static bool addEntry(QWidget *parent, CColourTable &table, const CColourTableEntry &entry);

    // The Edit dialog's OK: writes the edited table over the file it was
    // read from. When the file changed meanwhile, asks whether to overwrite
    // that change: No gives KeepOpen with nothing written.
    static EditOutcome saveEdited(QWidget *parent, CColourTable &table, const QString &path,
                                  const QString &tableName);

    // A new table (New, an import) written to path: an existing file is
    // replaced only when the user says so, and only if it is still the file
    // they were asked about (otherwise they are asked about the change).
    static bool saveNew(QWidget *parent, CColourTable &table, const QString &path);

    // "…overwrite that change?" for the table called tableName.
    static bool askOverwriteChange(QWidget *parent, const QString &tableName);

private:
    static void reportBusy(QWidget *parent, const QString &path);
};
