#pragma once

#include "colour/rgbcolour.h"

#include <QString>

// One named colour as palette files carry it.
struct PaletteColour
{
    QString name;
    RgbColour rgb;
};
