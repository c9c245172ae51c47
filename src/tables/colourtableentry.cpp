#include "tables/colourtableentry.h"

#include "colour/colourconversion.h"

CColourTableEntry::CColourTableEntry(const QString &entryName, double entryRed,
                                     double entryGreen, double entryBlue)
    : name(entryName), red(entryRed), green(entryGreen), blue(entryBlue)
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
