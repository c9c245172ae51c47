#pragma once

#include "colour/rgbcolour.h"

#include <QString>
#include <QVector>

// Finds the colours written in one CSS value: "#rgb", "#rrggbb" (and the
// forms with an alpha digit pair, whose transparency is not kept), "rgb()"
// and "rgba()" with numbers 0..255 or percentages, comma or blank
// separated. Text inside url() and quotes is skipped.
class CCssColourValue
{
public:
    struct Found
    {
        RgbColour rgb;
        int offset = 0;        // where in the value the colour starts
        bool hadAlpha = false; // an alpha value was given and dropped
    };

    // False with a reason and the offset of the first colour that is
    // malformed.
    static bool parse(const QString &value, QVector<Found> *found, QString *reason, int *offset);

private:
    static bool hexColour(const QString &digits, Found *found);
    static bool functionColour(const QString &arguments, Found *found);
    static bool channel(const QString &text, double *fraction);
};
