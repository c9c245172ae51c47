#include "tables/colourmatcher.h"

#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "tables/colourtable.h"

#include <algorithm>
#include <cmath>

namespace {

// Beyond the rows the user asked for, only near-identical colours are added,
// and never more than this many rows in all.
const float kCloseMatchDeltaE = 2.5f;
const int kMaxCloseRows = 32;

// A table may hold "nan" values (nothing is range-checked): those sort last,
// and the order stays a strict weak ordering.
bool lessDeltaE(const CMatchResult &x, const CMatchResult &y)
{
    if (std::isnan(x.deltaE))
        return false;
    if (std::isnan(y.deltaE))
        return true;
    return x.deltaE < y.deltaE;
}

} // namespace

QVector<CMatchResult> CColourMatcher::match(const CColourTable &table, const RgbColour &sample)
{
    const LabColour lab = rgbToLab(sample);
    const float sampleL = float(lab.L);
    const float sampleA = float(lab.a);
    const float sampleB = float(lab.b);
    QVector<CMatchResult> results;
    results.reserve(table.count());
    for (const CColourTableEntry *e : table.entries()) {
        CMatchResult r;
        r.name = e->name;
        r.red = e->red;
        r.green = e->green;
        r.blue = e->blue;
        r.L = e->L;
        r.a = e->a;
        r.b = e->b;
        r.deltaE = deltaE2000(float(e->L), float(e->a), float(e->b), sampleL, sampleA, sampleB);
        results.append(r);
    }
    // Entries with equal deltaE may come in any order.
    std::sort(results.begin(), results.end(), lessDeltaE);
    return results;
}

int CColourMatcher::rowsToShow(const QVector<CMatchResult> &sorted, int maxRecords)
{
    int i = 0;
    for (; i < sorted.size(); ++i) {
        if (i >= maxRecords && (sorted.at(i).deltaE >= kCloseMatchDeltaE || i >= kMaxCloseRows))
            break;
    }
    return i;
}
