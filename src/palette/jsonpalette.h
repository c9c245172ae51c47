#pragma once

#include "palette/palette.h"
#include "palette/palettereadresult.h"

#include <QByteArray>
#include <QJsonObject>

// A JSON array of {"name": text, "hex": "#rrggbb", "rgb": [r, g, b] (0..255),
// "lab": [L, a, b]}. Reading takes the colour from "rgb", else "hex", else
// "lab" (through the same Lab to RGB conversion as everywhere else).
class CJsonPalette
{
public:
    static CPaletteReadResult read(const QByteArray &bytes);
    static QByteArray write(const CPalette &palette);

private:
    static bool readEntry(const QJsonObject &object, PaletteColour *colour, QString *reason);
    static bool readTriple(const QJsonObject &object, const QString &key, double min, double max,
                           double values[3], QString *reason);
    static bool readHex(const QString &text, RgbColour *rgb);
};
