#pragma once

#include "tables/colourtable.h"

#include <QString>

// The texts that report a table the user cannot use. They are built here,
// without any widget, so that the message boxes of the application and the
// error lines of the command-line tool say the same thing.
class CTableMessageText
{
public:
    // "Error while attempting to open colour table file:\n<path>" or
    // "Unable to load colour table:\n<name>\n\nError in line <n>"; empty
    // when the table was loaded.
    static QString loadError(const CColourTable::LoadResult &result, const QString &tableName,
                             const QString &path);
    // The same two texts for a data set, which is named by its path.
    static QString dataLoadError(const CColourTable::LoadResult &result, const QString &path);
    // "The <name> Colour Match Library is empty, so a match cannot be
    // attempted." with "selected" when no name is known.
    static QString emptyLibrary(const QString &tableName);
};
