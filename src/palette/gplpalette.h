#pragma once

#include "palette/palette.h"
#include "palette/palettereadresult.h"

#include <QByteArray>

// GIMP palettes (.gpl): a first line "GIMP Palette", optional "Name:" and
// "Columns:" lines, "#" comments, then one colour a line: three whole numbers
// 0..255 separated by blanks and the rest of the line as the name, which may
// hold spaces. UTF-8 text.
class CGplPalette
{
public:
    static CPaletteReadResult read(const QByteArray &bytes);
    static QByteArray write(const CPalette &palette);

private:
    static bool readHeaderLine(const QString &line, CPalette *palette, QString *reason);
    static bool readColourLine(const QString &line, CPalette *palette, QString *reason);
};
