#pragma once

#include "cli/clistatus.h"
#include "colour/rgbcolour.h"

#include <QStringList>

class CColourTable;

// The commands that read colour tables: table (print it as a save would
// write it) and match (the rows the match panel would show for a colour).
class CCliTableCommands
{
public:
    static CCliStatus table(const QStringList &words);
    static CCliStatus match(const QStringList &words);

    // Loads a table file, failing with the application's own texts.
    static CCliStatus loadTable(const QString &path, CColourTable *table);
    // Reads --count (default 4): at least that many rows are shown.
    static CCliStatus rowCountOption(const QString &text, int *count);
    // An empty table cannot be matched: that fails with the application's text.
    static CCliStatus checkMatchable(const CColourTable &table);
    // Prints the rows to show for sample as TSV (json false) or JSON; with
    // explain, each row also says in words how the sample differs from it.
    static CCliStatus printMatch(const CColourTable &table, const RgbColour &sample, int count,
                                 bool json, bool explain = false);
};
