#pragma once

#include "colour/rgbcolour.h"

#include <QByteArray>
#include <QString>

// One text and background pair as vellora-cli contrast prints it: the WCAG
// ratio (two decimals, truncated), the five verdicts ("pass" / "fail") and
// the APCA Lc, as a TSV row or a one-line JSON object.
class CCliContrastFormatter
{
public:
    // "foreground\tbackground\tratio\taa_normal\t...\tlc"
    static QString tsvHeader();
    static QString tsvRow(const RgbColour &foreground, const RgbColour &background);
    // {"foreground":"#rrggbb","background":...,"ratio":4.47,"aa_normal":false,...}
    // with a "line" member when line > 0 (members in JSON's sorted order).
    static QByteArray jsonObject(const RgbColour &foreground, const RgbColour &background,
                                 int line = 0);
};
