#include "tables/colourtableentry.h"

#include "colour/colourconversion.h"

CColourTableEntry::CColourTableEntry(const QString &name, double red, double green, double blue)
    : name(name), red(red), green(green), blue(blue)
{
    updateLab();
}

void CColourTableEntry::updateLab()
{
    const LabColour lab = rgbToLab(red, green, blue);
    L = lab.L;
    a = lab.a;
    b = lab.b;
}
