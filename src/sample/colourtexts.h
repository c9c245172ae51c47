#pragma once

#include "colour/rgbcolour.h"

#include <QCoreApplication>
#include <QString>

// The one-line RGB and Lab texts of a colour, with two decimals, as the
// results table and the multiple-selection tool tips show them.
class CColourTexts
{
    Q_DECLARE_TR_FUNCTIONS(CColourTexts)

public:
    // "R:%1, G:%2, B:%3" in the given RGB display format.
    static QString rgbLine(const RgbColour &colour, int rgbFormat);
    // "L:%1, a:%2, b:%3".
    static QString labLine(const RgbColour &colour);
};
