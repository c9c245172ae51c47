#include "colour/imageregionaverage.h"

#include "colour/colourconversion.h"
#include "colour/labrowsum.h"
#include "colour/rowhalves.h"

#include <QVector>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

// Hands out one row of the region at a time as packed QRgb values, exactly as
// QImage::pixel would report them, without a per-pixel call for the common
// 32-bit and indexed formats.
class RowReader
{
public:
    RowReader(const QImage &image, const QRect &region)
        : m_image(image), m_region(region), m_buffer(region.width())
    {
        const QImage::Format f = image.format();
        m_direct = hasPackedRgbPixels(f);
        m_indexed = f == QImage::Format_Indexed8;
        if (m_indexed) {
            const QVector<QRgb> table = image.colorTable();
            m_palette.fill(0);
            for (int i = 0; i < table.size() && i < 256; ++i)
                m_palette[i] = table.at(i);
        }
    }

    const QRgb *row(int y)
    {
        const int x0 = m_region.left();
        if (m_direct)
            return reinterpret_cast<const QRgb *>(m_image.constScanLine(y)) + x0;
        QRgb *out = m_buffer.data();
        if (m_indexed) {
            const uchar *in = m_image.constScanLine(y) + x0;
            for (int i = 0; i < m_buffer.size(); ++i)
                out[i] = m_palette[in[i]];
        } else {
            for (int i = 0; i < m_buffer.size(); ++i)
                out[i] = m_image.pixel(x0 + i, y);
        }
        return out;
    }

private:
    const QImage &m_image;
    QRect m_region;
    QVector<QRgb> m_buffer;
    std::array<QRgb, 256> m_palette{};
    bool m_direct = false;
    bool m_indexed = false;
};

// Root mean square per component. Pixels only take 256 values per channel,
// so counting them first and weighing each value's square by its count gives
// the same sum of squares without a floating point operation per pixel. The
// halves of a large region are counted on two threads and their counts
// added: the same counts, so the same colour.
RgbColour rootMeanSquare(const QImage &image, const QRect &region)
{
    ChannelCounts halves[2] = {};
    RowHalves::run(region, [&](int first, int last, int half) {
        ChannelCounts counts{};
        RowReader reader(image, region);
        for (int y = first; y <= last; ++y) {
            const QRgb *row = reader.row(y);
            for (int i = 0; i < region.width(); ++i) {
                ++counts[0][qRed(row[i])];
                ++counts[1][qGreen(row[i])];
                ++counts[2][qBlue(row[i])];
            }
        }
        halves[half] = counts;
    });
    for (size_t c = 0; c < 3; ++c) {
        for (size_t v = 0; v < 256; ++v)
            halves[0][c][v] += halves[1][c][v];
    }
    return rootMeanSquareOfCounts(halves[0], qint64(region.width()) * region.height());
}

void addLab(LabColour &sum, const LabColour &lab)
{
    sum.L += lab.L;
    sum.a += lab.a;
    sum.b += lab.b;
}

// The same arithmetic as rgbToLab, with the linearisation looked up.
LabColour pixelLab(int red, int green, int blue)
{
    const std::array<double, 256> &linear = linearisedBytes();
    const XyzColour xyz =
        linearRgbToXyz(linear[size_t(red)], linear[size_t(green)], linear[size_t(blue)]);
    return xyzToLabFast(xyz.X, xyz.Y, xyz.Z);
}

// L*a*b* of 8-bit pixels, remembering recent colours: neighbouring pixels of
// a photograph repeat colours far more often than not, and the cube roots of
// the conversion are what costs. Those use the quick cube root, within 1e-12
// of the exact conversion per pixel, so pictures without repeated colours
// (film grain, sensor noise) cost little more than photographs.
class LabCache
{
public:
    LabCache()
    {
        for (Bucket &bucket : m_buckets)
            bucket.key = kEmpty;
    }

    const LabColour &lab(QRgb pixel)
    {
        const uint32_t key = pixel & 0xffffffu;
        Bucket &bucket = m_buckets[(key * 2654435761u) >> (32 - kBits)];
        if (bucket.key != key) {
            bucket.key = key;
            bucket.lab = pixelLab(qRed(pixel), qGreen(pixel), qBlue(pixel));
        } else {
            ++m_hits;
        }
        return bucket.lab;
    }

    // Whether the next row should go through the cache. A picture without
    // repeated colours (noise) would only thrash it, so after a row with
    // few hits the cache is left out and tried again 16 rows later; each
    // trial that fails again doubles the wait, up to 256 rows, since a
    // trial row costs several times a row of the vector path.
    bool useForNextRow()
    {
        if (m_worthIt || ++m_rowsWithout >= m_rowsBetweenTrials) {
            m_rowsWithout = 0;
            return true;
        }
        return false;
    }
    void rowDone(int width)
    {
        const bool wasWorthIt = m_worthIt;
        m_worthIt = m_hits * 16 >= qint64(width) * m_hitsWantedPer16;
        m_hits = 0;
        if (m_worthIt || wasWorthIt)
            m_rowsBetweenTrials = kRowsBetweenTrials;
        else
            m_rowsBetweenTrials = std::min(2 * m_rowsBetweenTrials, kMostRowsBetweenTrials);
    }

    // Converts one row into sum (in order), through the cache or not.
    // A trial takes the start of a wide row only, the rest going past.
    void addRow(const QRgb *row, int width, LabColour &sum)
    {
        int cached = 0;
        if (useForNextRow()) {
            cached = m_worthIt ? width : std::min(width, kTrialPixels);
            for (int i = 0; i < cached; ++i)
                addLab(sum, lab(row[i]));
            rowDone(cached);
        }
        LabRowSum::add(row + cached, width - cached, sum);
    }

private:
    static constexpr int kBits = 16;
    static constexpr int kRowsBetweenTrials = 16;
    static constexpr int kMostRowsBetweenTrials = 256;
    static constexpr int kTrialPixels = 1024;
    static constexpr uint32_t kEmpty = 0xffffffffu;
    struct Bucket
    {
        uint32_t key;
        LabColour lab;
    };

    std::array<Bucket, (1 << kBits)> m_buckets{};
    qint64 m_hits = 0;
    int m_rowsWithout = 0;
    int m_rowsBetweenTrials = kRowsBetweenTrials;
    // The share of hits (in sixteenths) that makes the cache pay: a
    // quarter against the plain code, nearly all against the vector path,
    // which converts a row of a photograph faster than the cache looks its
    // colours up and loses only to flat areas of a few colours.
    int m_hitsWantedPer16 = LabRowSum::chosen() == LabRowSum::Path::Plain ? 4 : 15;
    bool m_worthIt = true;
};

// Converts and sums rows first..last of the region.
void sumRows(const QImage &image, const QRect &region, int first, int last, LabCache &cache,
             LabColour &sum)
{
    // A local, not the caller's memory: the other half's sum, written by
    // another thread, may share a cache line with it.
    const int width = region.width();
    LabColour local = sum;
    RowReader reader(image, region);
    for (int y = first; y <= last; ++y)
        cache.addRow(reader.row(y), width, local);
    sum = local;
}

const qint64 kCacheWorthIt = 4096;

LabColour labMean(const QImage &image, const QRect &region)
{
    LabColour sum;
    if (qint64(region.width()) * region.height() < kCacheWorthIt) {
        // A click's few pixels: setting up the cache would cost more.
        RowReader reader(image, region);
        for (int y = region.top(); y <= region.bottom(); ++y) {
            const QRgb *row = reader.row(y);
            for (int i = 0; i < region.width(); ++i)
                addLab(sum, pixelLab(qRed(row[i]), qGreen(row[i]), qBlue(row[i])));
        }
    } else {
        // Each half of a large region has its own cache (large: kept off
        // the stack) and its own sum; the two sums are added at the end.
        LabColour halves[2];
        RowHalves::run(region, [&](int first, int last, int half) {
            auto cache = std::make_unique<LabCache>();
            sumRows(image, region, first, last, *cache, halves[half]);
        });
        addLab(sum, halves[0]);
        addLab(sum, halves[1]);
    }
    const double n = static_cast<double>(region.width()) * region.height();
    return {sum.L / n, sum.a / n, sum.b / n};
}

} // namespace

QRect pixelsInside(const QImage &image, const QRect &region)
{
    return region.isEmpty() ? QRect() : region.intersected(image.rect());
}

bool hasPackedRgbPixels(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32
           || format == QImage::Format_ARGB32_Premultiplied;
}

bool meanImageRegionLab(const QImage &image, const QRect &region, LabColour *mean)
{
    const QRect inside = pixelsInside(image, region);
    if (mean == nullptr || inside.isEmpty())
        return false;
    *mean = labMean(image, inside);
    return true;
}

bool averageImageRegion(const QImage &image, const QRect &region, bool useRgb, RgbColour *result)
{
    const QRect inside = pixelsInside(image, region);
    if (result == nullptr || inside.isEmpty())
        return false;
    *result = useRgb ? rootMeanSquare(image, inside) : labToRgb(labMean(image, inside));
    return true;
}

RgbColour rootMeanSquareOfCounts(const ChannelCounts &counts, qint64 pixels)
{
    double sums[3] = {0.0, 0.0, 0.0};
    for (int c = 0; c < 3; ++c) {
        for (int v = 0; v < 256; ++v) {
            const double fraction = v / 255.0;
            sums[c] += static_cast<double>(counts[size_t(c)][size_t(v)]) * (fraction * fraction);
        }
    }
    const double n = static_cast<double>(pixels);
    return {std::sqrt(sums[0] / n), std::sqrt(sums[1] / n), std::sqrt(sums[2] / n)};
}
