#pragma once

#include "palette/palette.h"
#include "palette/palettereadresult.h"

#include <QByteArray>

// Adobe Swatch Exchange (.ase), big-endian throughout: "ASEF", version 1.0
// (two 16-bit numbers), a 32-bit block count, then blocks of a 16-bit type
// (0x0001 colour, 0xC001 group start, 0xC002 group end) and a 32-bit length.
// A colour block holds a 16-bit name length in UTF-16 units counting the
// closing zero, the UTF-16 name, a four-letter model ("RGB ", "LAB ", "CMYK",
// "Gray"), 32-bit floats (RGB 0..1; LAB with L as a fraction of 100 and a,
// b as they are; CMYK 0..1; Gray 0..1 with 1 white) and a 16-bit colour type.
// Groups are flattened on reading; CMYK and grey become RGB and are noted.
class CAsePalette
{
public:
    enum Model { Rgb, Lab };

    static CPaletteReadResult read(const QByteArray &bytes);
    // Writes one colour block per colour, in RGB or in L*a*b*.
    static QByteArray write(const CPalette &palette, Model model = Rgb);

    // The plain conversions used for the models Vellora does not keep.
    static RgbColour cmykToRgb(double c, double m, double y, double k);
    static RgbColour greyToRgb(double grey);
};
