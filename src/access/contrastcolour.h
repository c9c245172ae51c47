#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// A colour offered to the contrast window: its name where it has one
// (empty for a pick), and where it came from ("Match", "Data set", ...)
// for the window's list.
struct ContrastColour
{
    RgbColour colour;
    QString name;
    QString source;
};
