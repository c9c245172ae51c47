#pragma once

#include "palette/palettefile.h"
#include "palette/palettereadresult.h"

#include <QDateTime>
#include <QString>

class CColourTable;

// A palette file made into a library table the way the companion import
// makes one: all or nothing, Lab derived, sorted by name ignoring case, and
// a note naming the source and the time.
class CPaletteImport
{
public:
    // Empties target and fills it from path. A result that is not ok, or a
    // palette without colours, leaves target without entries.
    static CPaletteReadResult importFile(const QString &path, CPaletteFile::Format format,
                                         CColourTable &target, const QDateTime &now);
    // The text for the user when the import cannot go on (the same texts
    // as the companion import where it has one); empty when it can.
    static QString errorText(const CPaletteReadResult &result, const QString &path);
    // The conversions a reader made, for the user; empty when there were none.
    static QString notesText(const CPaletteReadResult &result, const QString &path);
};
