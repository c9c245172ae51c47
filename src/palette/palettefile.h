#pragma once

#include "palette/palette.h"
#include "palette/palettereadresult.h"

#include <QString>
#include <QStringList>

class CColourTable;

// Reads and writes every file Vellora can take colours from or give them
// to: its own colour tables and data sets, and the palette formats.
class CPaletteFile
{
public:
    enum Format { Unknown, ColourTable, DataSet, Gpl, Ase, Css, Json };

    // By suffix, ignoring case: .clrtable, .txt, .csv, .gpl, .ase, .css, .json.
    static Format formatForPath(const QString &path);
    // By the name a user types: "clrtable", "txt", "csv", "gpl", "ase",
    // "css", "json" (the suffixes without the dot).
    static Format formatForName(const QString &name);
    static QStringList formatNames();
    static QString suffix(Format format);

    // Files larger than this are refused before they are read.
    static const qint64 kMaximumSize = 64 * 1024 * 1024;

    static CPaletteReadResult read(const QString &path, Format format);
    static CPaletteReadResult parse(const QByteArray &bytes, Format format);
    // The bytes a write puts in the file.
    static QByteArray serialise(const CPalette &palette, Format format);
    // Replaces the file only once everything is written; creates missing
    // folders. On failure returns false with the reason.
    static bool write(const QString &path, Format format, const CPalette &palette,
                      QString *errorText = nullptr);

    // What a write will not keep as it is: components outside 0..1 in the
    // palette formats, names holding "#" in a table. Empty when all is kept.
    static QStringList writeNotes(const CPalette &palette, Format format);

    static CPalette fromTable(const CColourTable &table);
    // Appends the colours to the table through add(), with Lab computed.
    static void toTable(const CPalette &palette, CColourTable *table);
};
