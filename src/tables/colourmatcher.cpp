#include "tables/colourmatcher.h"

#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "tables/colourtable.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

// Beyond the rows the user asked for, only near-identical colours are added,
// and never more than this many rows in all.
const float kCloseMatchDeltaE = 2.5f;
const int kMaxCloseRows = 32;

// deltaE and entry index packed into one integer, so that sorting compares
// plain integers. For non-negative floats the bit pattern orders like the
// value. A table may hold "nan" values (nothing is range-checked): they are
// scored as infinitely far, so that they sort last.
quint64 sortKey(float deltaE, int index)
{
    float key = deltaE;
    if (std::isnan(key))
        key = std::numeric_limits<float>::infinity();
    else if (!(key > 0.0f))
        key = 0.0f; // -0.0 (a difference is never negative)
    quint32 bits;
    std::memcpy(&bits, &key, sizeof bits);
    return (quint64(bits) << 32) | quint32(index);
}

int indexOfKey(quint64 key)
{
    return int(key & 0xffffffffu);
}

// Stable radix sort on the deltaE half of the keys: a match sorts the whole
// table for every sample, and this is several times faster than comparing.
void sortByDeltaE(std::vector<quint64> &keys)
{
    std::vector<quint64> buffer(keys.size());
    for (int shift = 32; shift < 64; shift += 8) {
        size_t start[257] = {};
        for (const quint64 key : keys)
            ++start[((key >> shift) & 0xff) + 1];
        if (std::find(start + 1, start + 257, keys.size()) != start + 257)
            continue; // every key has the same digit here
        for (int digit = 0; digit < 256; ++digit)
            start[digit + 1] += start[digit];
        for (const quint64 key : keys)
            buffer[start[(key >> shift) & 0xff]++] = key;
        keys.swap(buffer);
    }
}

void fillResult(CMatchResult &r, const CColourTableEntry &e, float deltaE)
{
    static_cast<CColourTableEntry &>(r) = e;
    r.deltaE = deltaE;
}

} // namespace

QVector<CMatchResult> CColourMatcher::match(const CColourTable &table, const RgbColour &sample)
{
    const LabColour lab = rgbToLab(sample);
    const float sampleL = float(lab.L);
    const float sampleA = float(lab.a);
    const float sampleB = float(lab.b);
    const int entryCount = table.count();
    std::vector<float> deltaEs(static_cast<size_t>(entryCount));
    std::vector<quint64> order(static_cast<size_t>(entryCount));
    for (int i = 0; i < entryCount; ++i) {
        const CColourTableEntry *e = table.at(i);
        deltaEs[size_t(i)] = deltaE2000(float(e->L), float(e->a), float(e->b), sampleL, sampleA, sampleB);
        order[size_t(i)] = sortKey(deltaEs[size_t(i)], i);
    }
    // Ties keep table order here, though callers may not rely on any order
    // among equal differences.
    sortByDeltaE(order);
    QVector<CMatchResult> results(entryCount);
    for (int i = 0; i < results.size(); ++i) {
        const int index = indexOfKey(order[size_t(i)]);
        fillResult(results[i], *table.at(index), deltaEs[size_t(index)]);
    }
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
