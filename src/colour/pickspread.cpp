#include "colour/pickspread.h"

#include "colour/colourconversion.h"
#include "colour/deltae2000.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

namespace {

constexpr double kBinsPerUnit = 10000.0;
constexpr double kLargestDifference = 200.0;
// Below this many pixels a second thread costs more than it saves.
constexpr qint64 kThreadedPixels = 1 << 20;

// Differences of recent colours from the reference: photographs repeat
// colours from pixel to pixel, and the conversion plus CIEDE2000 is what
// costs. Direct mapped on the packed 24-bit colour; each slot counts its
// pixels and adds them to the sum and the histogram only when it is reused
// for another colour or at the end, so the pixel loop itself does no
// floating point and touches no histogram.
class SpreadCache
{
public:
    explicit SpreadCache(const LabColour &reference)
        : m_L(float(reference.L)), m_a(float(reference.a)), m_b(float(reference.b)),
          m_slots(new Slot[kSlots])
    {
        for (int i = 0; i < kSlots; ++i)
            m_slots[i] = Slot{kEmpty, 0, 0.0f, 0};
    }

    void add(QRgb pixel)
    {
        const uint32_t key = pixel & 0xffffffu;
        Slot &slot = m_slots[(key * 2654435761u) >> (32 - kBits)];
        if (slot.key != key || slot.count == UINT32_MAX)
            refill(slot, key);
        ++slot.count;
    }

    // Empties every slot into the sum and the histogram.
    void flush()
    {
        for (int i = 0; i < kSlots; ++i)
            settle(m_slots[i]);
    }

    double sum() const { return m_sum; }
    const std::vector<quint64> &histogram() const { return m_histogram; }

private:
    static constexpr int kBits = 16;
    static constexpr int kSlots = 1 << kBits;
    static constexpr uint32_t kEmpty = 0xffffffffu;
    struct Slot
    {
        uint32_t key;
        uint32_t bin;
        float difference;
        uint32_t count;
    };

    void settle(Slot &slot)
    {
        if (slot.count == 0)
            return;
        m_sum += double(slot.difference) * double(slot.count);
        m_histogram[slot.bin] += slot.count;
        slot.count = 0;
    }

    void refill(Slot &slot, uint32_t key)
    {
        settle(slot);
        if (slot.key == key)
            return;
        const LabColour lab =
            rgbToLab(qRed(key) / 255.0, qGreen(key) / 255.0, qBlue(key) / 255.0);
        const float d = deltaE2000(m_L, m_a, m_b, float(lab.L), float(lab.a), float(lab.b));
        const double clamped = d > float(kLargestDifference) || std::isnan(d)
                                   ? kLargestDifference
                                   : double(d);
        slot.key = key;
        slot.difference = d;
        slot.bin = uint32_t(clamped * kBinsPerUnit);
        if (slot.bin >= m_histogram.size())
            m_histogram.resize(slot.bin + 1, 0);
    }

    float m_L;
    float m_a;
    float m_b;
    std::unique_ptr<Slot[]> m_slots;
    double m_sum = 0.0;
    std::vector<quint64> m_histogram;
};

// Rows first..last of a 32-bit image.
void addRows(const QImage &image, const QRect &region, int first, int last, SpreadCache *cache)
{
    for (int y = first; y <= last; ++y) {
        const QRgb *row = reinterpret_cast<const QRgb *>(image.constScanLine(y)) + region.left();
        for (int i = 0; i < region.width(); ++i)
            cache->add(row[i]);
    }
    cache->flush();
}

// The smallest bin at which at least 95 % of the pixels are counted.
double percentile95(const std::vector<quint64> &a, const std::vector<quint64> &b, qint64 pixels)
{
    const quint64 rank = quint64(std::ceil(0.95 * double(pixels)));
    quint64 seen = 0;
    const size_t bins = std::max(a.size(), b.size());
    for (size_t i = 0; i < bins; ++i) {
        seen += (i < a.size() ? a[i] : 0) + (i < b.size() ? b[i] : 0);
        if (seen >= rank)
            return double(i) / kBinsPerUnit;
    }
    return kLargestDifference;
}

bool isDirect(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32
           || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

bool pickSpread(const QImage &image, const QRect &requested, const RgbColour &average,
                PickSpread *result)
{
    const QRect region = requested & image.rect();
    if (region.isEmpty() || result == nullptr)
        return false;
    // Other formats are read through a 32-bit copy of the region alone.
    if (!isDirect(image.format())) {
        const QImage copy = image.copy(region).convertToFormat(QImage::Format_ARGB32);
        return pickSpread(copy, copy.rect(), average, result);
    }
    const LabColour reference = rgbToLab(average);
    const qint64 pixels = qint64(region.width()) * region.height();
    SpreadCache top(reference);
    SpreadCache bottom(reference);
    int middle = region.bottom() + 1;
    std::thread worker;
    if (pixels >= kThreadedPixels && region.height() > 1) {
        middle = region.top() + region.height() / 2;
        try {
            worker = std::thread(addRows, std::cref(image), region, middle, region.bottom(),
                                 &bottom);
        } catch (const std::system_error &) {
            middle = region.bottom() + 1; // no thread to be had: one pass does it all
        }
    }
    addRows(image, region, region.top(), middle - 1, &top);
    if (worker.joinable())
        worker.join();
    result->pixels = pixels;
    result->mean = (top.sum() + bottom.sum()) / double(pixels);
    result->p95 = percentile95(top.histogram(), bottom.histogram(), pixels);
    return true;
}
