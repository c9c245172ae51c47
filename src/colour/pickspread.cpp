#include "colour/pickspread.h"

#include "colour/colourconversion.h"
#include "colour/colourcounts.h"
#include "colour/deltae2000.h"
#include "colour/imageregionaverage.h"
#include "colour/rowhalves.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace {

constexpr double kLargestDifference = 200.0;

constexpr uint32_t kBinsPerUnit = 10000;
constexpr uint32_t kUnits = uint32_t(kLargestDifference) + 1;
constexpr uint32_t kBins = kUnits * kBinsPerUnit;

// One counter per 0.0001 wide bin (8 MB), shared by the threads of one
// spread: what a tally keeps once its list of differences grows long. A
// picture of noise holds millions of colours, and a list of every one
// would take far more memory than the bins. Made on first use, so that a
// click never pays for it; pictures are refused above 2 GiB, so a bin's
// count never overflows.
class SharedBins
{
public:
    void add(uint32_t bin, uint32_t count)
    {
        counters()[bin].fetch_add(count, std::memory_order_relaxed);
    }
    bool used() const { return m_counters != nullptr; }
    quint64 at(uint32_t bin) const { return m_counters[bin].load(std::memory_order_relaxed); }

private:
    std::atomic<uint32_t> *counters()
    {
        std::call_once(m_made, [this]() { m_counters.reset(new std::atomic<uint32_t>[kBins]()); });
        return m_counters.get();
    }

    std::once_flag m_made;
    std::unique_ptr<std::atomic<uint32_t>[]> m_counters;
};

// The differences found so far: their sum, and each distinct difference
// with the number of pixels that have it, moved into the shared bins when
// the list grows long. The percentile is read from a histogram of whole
// units first, then one of 0.0001 wide bins within the unit that holds it:
// small, whatever the spread, so that no pick pays for clearing megabytes
// of bins.
class SpreadTally
{
public:
    explicit SpreadTally(SharedBins *bins = nullptr) : m_bins(bins) {}

    void add(float difference, uint32_t count)
    {
        m_sum += double(difference) * double(count);
        m_records.push_back({binOf(difference), count});
        if (m_bins != nullptr && m_records.size() >= kMostRecords)
            spill();
    }

    void add(const SpreadTally &other)
    {
        m_sum += other.m_sum;
        m_records.insert(m_records.end(), other.m_records.begin(), other.m_records.end());
        if (m_bins == nullptr)
            m_bins = other.m_bins;
    }

    double sum() const { return m_sum; }

    // The smallest bin at which at least 95 % of the pixels are counted.
    double percentile95(qint64 pixels) const
    {
        const quint64 rank = quint64(std::ceil(0.95 * double(pixels)));
        const bool shared = m_bins != nullptr && m_bins->used();
        std::array<quint64, kUnits> units{};
        for (const Record &r : m_records)
            units[r.bin / kBinsPerUnit] += r.count;
        for (uint32_t bin = 0; shared && bin < kBins; ++bin)
            units[bin / kBinsPerUnit] += m_bins->at(bin);
        quint64 seen = 0;
        uint32_t unit = 0;
        while (unit + 1 < kUnits && seen + units[unit] < rank)
            seen += units[unit++];
        std::vector<quint64> bins(kBinsPerUnit, 0);
        for (const Record &r : m_records) {
            if (r.bin / kBinsPerUnit == unit)
                bins[r.bin % kBinsPerUnit] += r.count;
        }
        for (uint32_t i = 0; i < kBinsPerUnit; ++i) {
            seen += bins[i] + (shared ? m_bins->at(unit * kBinsPerUnit + i) : 0);
            if (seen >= rank)
                return double(unit * kBinsPerUnit + i) / kBinsPerUnit;
        }
        return kLargestDifference;
    }

private:
    // 64 K records (512 KB) per tally before they go into the bins.
    static constexpr size_t kMostRecords = size_t(1) << 16;
    struct Record
    {
        uint32_t bin;
        uint32_t count;
    };

    static uint32_t binOf(float difference)
    {
        const double clamped = difference > float(kLargestDifference) || std::isnan(difference)
                                   ? kLargestDifference
                                   : double(difference);
        return uint32_t(clamped * kBinsPerUnit);
    }

    void spill()
    {
        for (const Record &r : m_records)
            m_bins->add(r.bin, r.count);
        m_records.clear();
    }

    double m_sum = 0.0;
    std::vector<Record> m_records;
    SharedBins *m_bins = nullptr;
};

// The single-precision CIEDE2000 of a packed 8-bit colour from the average,
// with the colour converted exactly as rgbToLab converts it.
class SpreadReference
{
public:
    explicit SpreadReference(const RgbColour &average)
    {
        const LabColour lab = rgbToLab(average);
        m_L = float(lab.L);
        m_a = float(lab.a);
        m_b = float(lab.b);
    }

    float difference(uint32_t colour) const
    {
        const XyzColour xyz = byteRgbToXyz(int(colour >> 16), int((colour >> 8) & 0xff),
                                           int(colour & 0xff));
        const LabColour lab = xyzToLab(xyz.X, xyz.Y, xyz.Z);
        return deltaE2000(m_L, m_a, m_b, float(lab.L), float(lab.a), float(lab.b));
    }

private:
    float m_L = 0.0f;
    float m_a = 0.0f;
    float m_b = 0.0f;
};

// Differences of recent colours, for picks too small to count every colour:
// photographs repeat colours from pixel to pixel, and the conversion plus
// CIEDE2000 is what costs. Direct mapped on the packed 24-bit colour; each
// bucket counts its pixels and adds them to the tally only when it is reused
// for another colour or at the end, so the pixel loop itself does no
// floating point and touches no histogram.
class SpreadCache
{
public:
    // Sized to the pick: a click's few pixels should not pay for setting up
    // 65,536 buckets.
    SpreadCache(const SpreadReference &reference, qint64 pixels, SharedBins *bins)
        : m_reference(reference), m_bits(bitsFor(pixels)),
          m_buckets(new Bucket[size_t(1) << m_bits]), m_tally(bins)
    {
        for (int i = 0; i < (1 << m_bits); ++i)
            m_buckets[i] = Bucket{kEmpty, 0.0f, 0};
    }

    void add(QRgb pixel)
    {
        const uint32_t key = pixel & 0xffffffu;
        Bucket &bucket = m_buckets[(key * 2654435761u) >> (32 - m_bits)];
        if (bucket.key != key || bucket.count == UINT32_MAX)
            refill(bucket, key);
        ++bucket.count;
    }

    // Empties every bucket into the tally.
    const SpreadTally &flush()
    {
        for (int i = 0; i < (1 << m_bits); ++i)
            settle(m_buckets[i]);
        return m_tally;
    }

private:
    static constexpr int kFewestBits = 4;
    static constexpr int kMostBits = 16;
    static constexpr uint32_t kEmpty = 0xffffffffu;
    struct Bucket
    {
        uint32_t key;
        float difference;
        uint32_t count;
    };

    void settle(Bucket &bucket)
    {
        if (bucket.count == 0)
            return;
        m_tally.add(bucket.difference, bucket.count);
        bucket.count = 0;
    }

    void refill(Bucket &bucket, uint32_t key)
    {
        settle(bucket);
        if (bucket.key == key)
            return;
        bucket.key = key;
        bucket.difference = m_reference.difference(key);
    }

    // Enough buckets for every pixel, between 16 and 65,536.
    static int bitsFor(qint64 pixels)
    {
        int bits = kFewestBits;
        while (bits < kMostBits && (qint64(1) << bits) < pixels)
            ++bits;
        return bits;
    }

    const SpreadReference &m_reference;
    const int m_bits;
    std::unique_ptr<Bucket[]> m_buckets;
    SpreadTally m_tally;
};

bool stopped(const std::atomic<bool> *cancel)
{
    return cancel != nullptr && cancel->load(std::memory_order_relaxed);
}

// Every pixel through the cache, the two halves of a large region on two
// threads. False when cancelled.
bool tallyPixels(const QImage &image, const QRect &region, const SpreadReference &reference,
                 const std::atomic<bool> *cancel, SharedBins *bins, SpreadTally *result)
{
    SpreadTally halves[2];
    RowHalves::run(region, [&](int first, int last, int half) {
        SpreadCache cache(reference, qint64(last - first + 1) * region.width(), bins);
        for (int y = first; y <= last && !stopped(cancel); ++y) {
            const QRgb *row =
                reinterpret_cast<const QRgb *>(image.constScanLine(y)) + region.left();
            for (int i = 0; i < region.width(); ++i)
                cache.add(row[i]);
        }
        halves[half] = cache.flush();
    });
    halves[0].add(halves[1]);
    *result = std::move(halves[0]);
    return !stopped(cancel);
}

// Every colour once, weighed by its count; the groups of colours are shared
// between two threads. False when cancelled.
bool tallyColours(const ColourCounts &counts, const SpreadReference &reference,
                  const std::atomic<bool> *cancel, SharedBins *bins, SpreadTally *result)
{
    const std::vector<uint32_t> &pairs = counts.usedRedGreen();
    SpreadTally halves[2];
    RowHalves::run(0, int(pairs.size()) - 1, true, [&](int first, int last, int half) {
        SpreadTally tally(bins);
        for (int i = first; i <= last && !stopped(cancel); ++i) {
            const uint32_t base = pairs[size_t(i)] << 8;
            for (uint32_t colour = base; colour < base + 256; ++colour) {
                const uint32_t n = counts.at(colour);
                if (n == 0)
                    continue;
                tally.add(reference.difference(colour), n);
            }
        }
        halves[half] = std::move(tally);
    });
    halves[0].add(halves[1]);
    *result = std::move(halves[0]);
    return !stopped(cancel);
}

void fill(PickSpread *result, qint64 pixels, const SpreadTally &tally)
{
    result->pixels = pixels;
    result->mean = tally.sum() / double(pixels);
    result->p95 = tally.percentile95(pixels);
}

bool worthCounting(const QRect &region)
{
    return qint64(region.width()) * region.height() >= ColourCounts::kWorthCounting;
}

} // namespace

bool pickSpread(const QImage &image, const QRect &requested, const RgbColour &average,
                PickSpread *result, const std::atomic<bool> *cancel)
{
    const QRect region = pixelsInside(image, requested);
    if (region.isEmpty() || result == nullptr || stopped(cancel))
        return false;
    // Other formats are read through a 32-bit copy of the region alone.
    if (!hasPackedRgbPixels(image.format())) {
        const QImage copy = image.copy(region).convertToFormat(QImage::Format_ARGB32);
        return pickSpread(copy, copy.rect(), average, result, cancel);
    }
    const SpreadReference reference(average);
    const qint64 pixels = qint64(region.width()) * region.height();
    SharedBins bins;
    SpreadTally tally;
    ColourCounts counts;
    const bool done = worthCounting(region) && counts.count(image, region, cancel)
                          ? tallyColours(counts, reference, cancel, &bins, &tally)
                          : tallyPixels(image, region, reference, cancel, &bins, &tally);
    if (!done)
        return false;
    fill(result, pixels, tally);
    return true;
}

bool averageWithSpread(const QImage &image, const QRect &requested, bool useRgb,
                       RgbColour *average, PickSpread *spread)
{
    if (average == nullptr || spread == nullptr)
        return false;
    const QRect region = pixelsInside(image, requested);
    ColourCounts counts;
    if (useRgb && !region.isEmpty() && worthCounting(region) && counts.count(image, region)) {
        // One pass over the picture for both: the channel counts are the
        // very ones the RGB rule adds up.
        *average = rootMeanSquareOfCounts(counts.channelCounts(), counts.pixels());
        SharedBins bins;
        SpreadTally tally;
        tallyColours(counts, SpreadReference(*average), nullptr, &bins, &tally);
        fill(spread, counts.pixels(), tally);
        return true;
    }
    RgbColour colour;
    if (!averageImageRegion(image, requested, useRgb, &colour))
        return false;
    *average = colour;
    return pickSpread(image, requested, colour, spread);
}
