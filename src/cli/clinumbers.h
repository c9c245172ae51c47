#pragma once

#include "cli/clistatus.h"
#include "colour/rgbcolour.h"

#include <QStringList>
#include <QVector>

// Numbers typed by the user, read with "." as the decimal point whatever the
// locale. Anything that is not a finite number (text, "nan", "inf", a decimal
// comma) is refused with a line saying which word was wrong. A refused
// input leaves the caller's value or list exactly as it was.
class CCliNumbers
{
public:
    static CCliStatus toFinite(const QString &word, double *value);
    static CCliStatus toFinites(const QStringList &words, QVector<double> *values);
    // A whole number from minimum to maximum; `what` names it in the message.
    static CCliStatus toInteger(const QString &word, int minimum, int maximum, const QString &what,
                                int *value);
    // Exactly `count` whole numbers separated by commas, each in range, as
    // in "--point 10,20"; `what` is the option with its expected form.
    static CCliStatus toIntegerList(const QString &text, int count, int minimum, int maximum,
                                    const QString &what, QVector<int> *values);
    // "R,G,B" with bytes 0..255, or "RRGGBB" (an optional "#" allowed).
    static CCliStatus rgbBytes(const QString &text, RgbColour *colour);
    static CCliStatus hexColour(const QString &text, RgbColour *colour);
    // One colour in any of the forms a list of samples may use: "#rrggbb",
    // "rrggbb" or "R,G,B" with bytes 0..255 (spaces around the parts allowed).
    static CCliStatus anyColour(const QString &text, RgbColour *colour);
};
