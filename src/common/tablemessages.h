#pragma once

#include "tables/colourtable.h"

#include <QCoreApplication>
#include <QString>

class QComboBox;
class QWidget;

// The interactive side of colour table files: the core reports statuses and
// error texts, these functions turn them into the boxes the user sees.
class CTableMessages
{
    Q_DECLARE_TR_FUNCTIONS(CTableMessages)

public:
    // Loads path into table; a file that cannot be opened or a bad line is
    // reported in a critical box. True only when the table was loaded.
    static bool loadWithMessages(QWidget *parent, CColourTable &table, const QString &tableName,
                                 const QString &path);

    // Loads path into table under the wait cursor; nothing is reported.
    static CColourTable::LoadResult loadWithWaitCursor(CColourTable &table, const QString &path);

    // Reports how loading a data set from path went, with the data set's own
    // texts (the path stands in both messages). True only for a loaded table.
    static bool reportDataTableLoad(QWidget *parent, const CColourTable::LoadResult &result,
                                    const QString &path);

    // Writes table to path, creating missing folders. Unless told otherwise
    // asks before replacing an existing file; a failed write is reported.
    static bool save(QWidget *parent, CColourTable &table, const QString &path,
                     bool overwriteWithoutAsking);
    // The box of a write that failed: "Error, writing to file: <path>.".
    static void showWriteError(QWidget *parent, const QString &path);

    // Replaces the combo's items by the library tables of folder: display
    // name as text, canonical path as item data.
    static void fillLibraryCombo(const QString &folder, QComboBox *combo);

    // Makes the item whose data equals rememberedPath current (the last one
    // when several do, the first item when none does). The change of
    // selection is always signalled, even when that item is current already,
    // so that its owner reloads the table. Returns the index, -1 when empty.
    static int selectLibraryTable(QComboBox *combo, const QString &rememberedPath);
};
