#pragma once

#include "colour/rgbcolour.h"

#include <QString>
#include <QVector>

class CColourTable;

// One table entry scored against the sample.
struct CMatchResult
{
    QString name;
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double L = 0.0;
    double a = 0.0;
    double b = 0.0;
    float deltaE = 0.0f; // single-precision CIEDE2000 (entry, sample)
};

// Scores every entry of a table against a sample and decides how many of
// the best to show. Shared by the match panel and vellora-cli.
class CColourMatcher
{
public:
    // One record per entry, sorted by deltaE ascending.
    static QVector<CMatchResult> match(const CColourTable &table, const RgbColour &sample);
    // Rows to show: at least maxRecords (fewer if the list is shorter), then
    // every further record with deltaE below 2.5, up to 32 rows in all.
    static int rowsToShow(const QVector<CMatchResult> &sorted, int maxRecords);
};
