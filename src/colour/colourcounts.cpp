#include "colour/colourcounts.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

namespace {

constexpr uint32_t kColours = 1u << 24;
constexpr uint32_t kRedGreenPairs = 1u << 16;

// At most one block of counters, all zero, waiting for the next count.
class SpareCounters
{
public:
    ~SpareCounters() { std::free(m_spare); }

    uint32_t *take()
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_spare != nullptr)
                return std::exchange(m_spare, nullptr);
        }
        // calloc: the system hands out zeroed pages as they are first touched.
        return static_cast<uint32_t *>(std::calloc(kColours, sizeof(uint32_t)));
    }

    void give(uint32_t *counters)
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_spare == nullptr) {
                m_spare = counters;
                return;
            }
        }
        std::free(counters);
    }

private:
    std::mutex m_mutex;
    uint32_t *m_spare = nullptr;
};

SpareCounters &spareCounters()
{
    static SpareCounters spare;
    return spare;
}

} // namespace

ColourCounts::~ColourCounts()
{
    release();
}

void ColourCounts::release()
{
    if (m_counts == nullptr)
        return;
    for (const uint32_t pair : m_usedRedGreen)
        std::memset(m_counts + (pair << 8), 0, 256 * sizeof(uint32_t));
    spareCounters().give(m_counts);
    m_counts = nullptr;
    m_usedRedGreen.clear();
    m_pixels = 0;
}

bool ColourCounts::count(const QImage &image, const QRect &requested,
                         const std::atomic<bool> *cancel)
{
    release();
    const QRect region = pixelsInside(image, requested);
    if (!hasPackedRgbPixels(image.format()) || region.isEmpty())
        return false;
    m_counts = spareCounters().take();
    if (m_counts == nullptr)
        return false;
    std::vector<uint8_t> used(kRedGreenPairs, 0);
    uint32_t *counts = m_counts;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        if (cancel != nullptr && cancel->load(std::memory_order_relaxed)) {
            // What was counted is cleared before the counters are kept.
            markUsed(used);
            release();
            return false;
        }
        const QRgb *row = reinterpret_cast<const QRgb *>(image.constScanLine(y)) + region.left();
        for (int i = 0; i < region.width(); ++i) {
            const uint32_t colour = row[i] & 0xffffffu;
            ++counts[colour];
            used[colour >> 8] = 1;
        }
    }
    markUsed(used);
    m_pixels = qint64(region.width()) * region.height();
    return true;
}

void ColourCounts::markUsed(const std::vector<uint8_t> &used)
{
    m_usedRedGreen.clear();
    for (uint32_t pair = 0; pair < kRedGreenPairs; ++pair) {
        if (used[pair])
            m_usedRedGreen.push_back(pair);
    }
}

ChannelCounts ColourCounts::channelCounts() const
{
    ChannelCounts channels{};
    for (const uint32_t pair : m_usedRedGreen) {
        const uint32_t *counts = m_counts + (pair << 8);
        quint64 pairTotal = 0;
        for (uint32_t blue = 0; blue < 256; ++blue) {
            pairTotal += counts[blue];
            channels[2][blue] += counts[blue];
        }
        channels[0][pair >> 8] += pairTotal;
        channels[1][pair & 0xff] += pairTotal;
    }
    return channels;
}
