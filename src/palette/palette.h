#pragma once

#include "palette/palettecolour.h"

#include <QString>
#include <QStringList>
#include <QVector>

// A list of named colours read from or written to a palette file, with the
// palette's own name (where the format has one) and the notes a reader made
// about colours it had to convert, so that no conversion goes unreported.
class CPalette
{
public:
    QString name;
    QVector<PaletteColour> colours;
    QStringList notes;

    // The 8-bit value palette files store for a fraction: clamped to 0..1
    // and rounded, so that n / 255 comes back as n.
    static int toByte(double fraction);
    static double fromByte(int byte) { return byte / 255.0; }
    // "#rrggbb" from the rounded bytes, lower case.
    static QString hex(const RgbColour &colour);
    // True when a component lies outside 0..1 and must be clamped for an
    // 8-bit or 0..1 float format.
    static bool outOfRange(const RgbColour &colour);
    // How many colours outside 0..1 a writer will clamp.
    int outOfRangeCount() const;
};
