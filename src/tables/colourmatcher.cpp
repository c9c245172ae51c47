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

float deltaEOfKey(quint64 key)
{
    const quint32 bits = quint32(key >> 32);
    float deltaE;
    std::memcpy(&deltaE, &bits, sizeof deltaE);
    return deltaE;
}

// Why an entry may be passed over without scoring it. The difference is
// dE^2 = l^2 + c^2 + h^2 + R_T c h with |R_T| <= 2 sin 60 deg, so
//   dE^2 >= l^2 + (1 - sin 60 deg)(c^2 + h^2) >= l^2 + 0.13 (c^2 + h^2).
// Lightness: l = |dL| / S_L and S_L <= 1 + 0.015 |mean L - 50|.
// Chroma and hue: S_H < S_C <= 1 + 0.0225 * 1.5 (C1 + C2) (T < 1.93, and the
// a* stretch 1 + G is at most 1.5), and dC'^2 + dH'^2 is the squared
// distance of the stretched (a', b) points, at least (da^2 + db^2). None of
// this needs a square root or an angle.
// Single-precision scoring strays from the exact value by a few units in the
// last place: the relative margin and the small absolute allowance on the
// chroma part are far above that. An entry is passed over only when its
// bound is above the threshold (strictly), so it could neither beat nor tie
// anything kept, whatever its place in the table. NaN never compares as
// above, so such entries are scored.
const double kMarginSquared = (1.0 - 1e-4) * (1.0 - 1e-4);
const double kRotationSlack = 0.13;
const double kChromaAllowance = 1e-3;

double lightnessTerm(double entryL, double sampleL)
{
    const double d = std::fabs((entryL + sampleL) / 2.0 - 50.0);
    return std::fabs(sampleL - entryL) / (1.0 + 0.015 * d);
}

// The lightness part alone, for every L in [lowest, highest] at once.
double groupBoundSquared(float lowest, float highest, double sampleL)
{
    double dL = 0.0;
    if (sampleL < lowest)
        dL = double(lowest) - sampleL;
    else if (sampleL > highest)
        dL = sampleL - double(highest);
    const double d = std::max(std::fabs((double(lowest) + sampleL) / 2.0 - 50.0),
                              std::fabs((double(highest) + sampleL) / 2.0 - 50.0));
    const double l = dL / (1.0 + 0.015 * d);
    return kMarginSquared * l * l;
}

// A closer bound for entries the quick one lets through, still without an
// angle: the a* stretch G, the stretched chromas C' and the exact lightness
// weighting as the formula has them; dH'^2 is the squared (a', b) distance
// less dC'^2, and S_H is taken at its largest (T <= 1 + 0.93, rounded up).
double closeBoundSquared(double L1, double a1, double b1, double C1, double L2, double a2,
                         double b2, double C2)
{
    const double meanC = (C1 + C2) / 2.0;
    const double c7 = meanC * meanC * meanC * meanC * meanC * meanC * meanC;
    const double G = 0.5 * (1.0 - std::sqrt(c7 / (c7 + 6103515625.0)));
    const double a1p = (1.0 + G) * a1;
    const double a2p = (1.0 + G) * a2;
    const double C1p = std::sqrt(a1p * a1p + b1 * b1);
    const double C2p = std::sqrt(a2p * a2p + b2 * b2);
    const double dC = C2p - C1p;
    const double distance = (a1p - a2p) * (a1p - a2p) + (b1 - b2) * (b1 - b2);
    const double dH2 = std::max(0.0, distance - dC * dC);
    const double SC = 1.0 + 0.0225 * (C1p + C2p);
    const double SHmost = 1.0 + 0.0075 * 1.94 * (C1p + C2p);
    const double d = (L1 + L2) / 2.0 - 50.0;
    const double SL = 1.0 + 0.015 * d * d / std::sqrt(20.0 + d * d);
    const double l = (L2 - L1) / SL;
    const double chroma =
        std::max(0.0, dC * dC / (SC * SC) + dH2 / (SHmost * SHmost) - kChromaAllowance);
    return kMarginSquared * (l * l + kRotationSlack * chroma);
}

// Groups 0 (L < 0), 1..100 (each whole L from 0 to 99), 101 (L >= 100), and
// 102 for L that is not finite.
const int kFiniteGroups = 102;
const int kNonFiniteGroup = kFiniteGroups;

double chromaOf(float a, float b)
{
    return std::sqrt(double(a) * a + double(b) * b);
}

} // namespace

// The sample as matching sees it: single-precision Lab, widened.
struct CColourMatcher::Sample
{
    explicit Sample(const RgbColour &colour)
    {
        const LabColour lab = rgbToLab(colour);
        fL = float(lab.L);
        fa = float(lab.a);
        fb = float(lab.b);
        C = chromaOf(fa, fb);
    }
    float fL, fa, fb;
    double C;
};

// The best keys found so far. Beyond the `shown` best, an entry only matters
// while it is close (deltaE below 2.5), so the threshold an entry must reach
// is the worst of the `keep` best or, if lower, the larger of the worst of
// the `shown` best and 2.5.
class CColourMatcher::BestKeys
{
public:
    BestKeys(int keep, int shown) : m_keep(size_t(keep)), m_shown(size_t(std::min(shown, keep)))
    {
        m_heap.reserve(m_keep);
        m_shownHeap.reserve(m_shown);
    }
    double thresholdSquared() const { return m_threshold * m_threshold; }
    void offer(quint64 key)
    {
        offerTo(m_heap, m_keep, key);
        if (m_shown < m_keep)
            offerTo(m_shownHeap, m_shown, key);
        updateThreshold();
    }
    std::vector<quint64> sorted()
    {
        std::sort_heap(m_heap.begin(), m_heap.end());
        return m_heap;
    }

private:
    static void offerTo(std::vector<quint64> &heap, size_t size, quint64 key)
    {
        if (size == 0)
            return;
        if (heap.size() < size) {
            heap.push_back(key);
            std::push_heap(heap.begin(), heap.end());
        } else if (key < heap.front()) {
            std::pop_heap(heap.begin(), heap.end());
            heap.back() = key;
            std::push_heap(heap.begin(), heap.end());
        }
    }
    static double worst(const std::vector<quint64> &heap, size_t size)
    {
        if (size == 0)
            return 0.0;
        return heap.size() < size ? std::numeric_limits<double>::infinity()
                                  : double(deltaEOfKey(heap.front()));
    }
    void updateThreshold()
    {
        m_threshold = worst(m_heap, m_keep);
        if (m_shown < m_keep) {
            const double close = std::max(worst(m_shownHeap, m_shown), double(kCloseMatchDeltaE));
            m_threshold = std::min(m_threshold, close);
        }
    }

    size_t m_keep;
    size_t m_shown;
    std::vector<quint64> m_heap;
    std::vector<quint64> m_shownHeap;
    double m_threshold = std::numeric_limits<double>::infinity();
};

int CColourMatcher::groupOf(float L)
{
    if (!std::isfinite(L))
        return kNonFiniteGroup;
    if (L < 0.0f)
        return 0;
    if (L >= 100.0f)
        return kFiniteGroups - 1;
    return 1 + int(L);
}

CColourMatcher::CColourMatcher(const CColourTable &table) : m_table(table)
{
    const QList<CColourTableEntry *> &entries = table.entries();
    std::vector<Prepared> prepared;
    prepared.reserve(size_t(entries.size()));
    m_groups.resize(kFiniteGroups + 1);
    for (int i = 0; i < entries.size(); ++i) {
        const CColourTableEntry *e = entries.at(i);
        const float a = float(e->a);
        const float b = float(e->b);
        prepared.push_back({float(e->L), a, b, chromaOf(a, b), i});
        ++m_groups[size_t(groupOf(prepared.back().L))].end;
    }
    int first = 0;
    for (Group &group : m_groups) {
        const int size = group.end;
        group.first = group.end = first;
        first += size;
    }
    m_prepared.resize(prepared.size());
    for (const Prepared &p : prepared) {
        Group &group = m_groups[size_t(groupOf(p.L))];
        if (group.end == group.first)
            group.lowest = group.highest = p.L;
        group.lowest = std::min(group.lowest, p.L);
        group.highest = std::max(group.highest, p.L);
        m_prepared[size_t(group.end++)] = p;
    }
}

void CColourMatcher::scoreGroup(const Group &group, const Sample &sample, BestKeys &best) const
{
    for (int i = group.first; i < group.end; ++i) {
        const Prepared &p = m_prepared[size_t(i)];
        const double l = lightnessTerm(p.L, sample.fL);
        const double da = double(p.a) - sample.fa;
        const double db = double(p.b) - sample.fb;
        const double sc = 1.0 + 0.03375 * (p.C + sample.C);
        const double chroma = std::max(0.0, (da * da + db * db) / (sc * sc) - kChromaAllowance);
        if (kMarginSquared * (l * l + kRotationSlack * chroma) > best.thresholdSquared())
            continue;
        if (closeBoundSquared(p.L, p.a, p.b, p.C, sample.fL, sample.fa, sample.fb, sample.C)
            > best.thresholdSquared())
            continue;
        best.offer(sortKey(deltaE2000(p.L, p.a, p.b, sample.fL, sample.fa, sample.fb), p.index));
    }
}

std::vector<quint64> CColourMatcher::search(const Sample &sample, int keep, int shown) const
{
    BestKeys best(keep, shown);
    // Groups nearest the sample's lightness first: the best matches are
    // usually there, and once they are found most other groups are out of
    // reach as a whole.
    const int start = std::min(groupOf(sample.fL), kFiniteGroups - 1);
    for (int step = 0; step < 2 * kFiniteGroups; ++step) {
        const int g = step % 2 == 0 ? start + step / 2 : start - (step + 1) / 2;
        if (g < 0 || g >= kFiniteGroups)
            continue;
        const Group &group = m_groups[size_t(g)];
        if (group.first == group.end
            || groupBoundSquared(group.lowest, group.highest, sample.fL) > best.thresholdSquared())
            continue;
        scoreGroup(group, sample, best);
    }
    scoreGroup(m_groups[size_t(kNonFiniteGroup)], sample, best);
    return best.sorted();
}

QVector<CMatchResult> CColourMatcher::results(const Sample &sample,
                                              const std::vector<quint64> &keys) const
{
    const QList<CColourTableEntry *> &entries = m_table.entries();
    QVector<CMatchResult> out(int(keys.size()));
    for (int i = 0; i < out.size(); ++i) {
        const CColourTableEntry *e = entries.at(indexOfKey(keys[size_t(i)]));
        fillResult(out[i], *e,
                   deltaE2000(float(e->L), float(e->a), float(e->b), sample.fL, sample.fa,
                              sample.fb));
    }
    return out;
}

QVector<CMatchResult> CColourMatcher::best(const RgbColour &sample, int keep) const
{
    if (keep >= int(m_prepared.size()))
        return match(m_table, sample);
    if (keep <= 0)
        return {};
    const Sample s(sample);
    return results(s, search(s, keep, keep));
}

QVector<CMatchResult> CColourMatcher::bestRows(const RgbColour &sample, int maxRecords) const
{
    const int keep = rowsKept(maxRecords);
    QVector<CMatchResult> rows;
    if (keep >= int(m_prepared.size())) {
        rows = match(m_table, sample);
    } else {
        const Sample s(sample);
        rows = results(s, search(s, keep, maxRecords));
    }
    rows.resize(rowsToShow(rows, maxRecords));
    return rows;
}

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

int CColourMatcher::rowsKept(int maxRecords)
{
    return std::max(maxRecords, kMaxCloseRows);
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
