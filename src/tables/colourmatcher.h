#pragma once

#include "colour/rgbcolour.h"
#include "tables/colourtableentry.h"

#include <QString>
#include <QVector>

class CColourTable;

// One table entry scored against the sample: the entry as it stands in the
// table, and its difference from the sample.
struct CMatchResult : CColourTableEntry
{
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
