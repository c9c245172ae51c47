#pragma once

#include <QString>

// One named colour of a table. Lab is derived from RGB when the entry is
// created or read, and never written to a file.
class CColourTableEntry
{
public:
    CColourTableEntry() = default;
    CColourTableEntry(const QString &entryName, double entryRed, double entryGreen,
                      double entryBlue);

    // Recomputes L, a, b from red, green, blue.
    void updateLab();

    QString name;
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double L = 0.0;
    double a = 0.0;
    double b = 0.0;
};
