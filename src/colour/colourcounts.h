#pragma once

#include "colour/imageregionaverage.h"

#include <QImage>
#include <QRect>
#include <QtGlobal>

#include <atomic>
#include <cstdint>
#include <vector>

// How many pixels of a region have each 24-bit colour (alpha ignored). A
// large pick of a photograph holds millions of pixels but only tens of
// thousands of colours: counting them in one pass over the picture lets
// whatever is computed per colour (its L*a*b*, its difference from the
// average) be computed once per colour instead of once per pixel. One
// counter per colour of the 8-bit cube (64 MB), so meant for large regions
// only; pictures are refused above 2 GiB, so a count never overflows.
//
// The counters are kept for the next count when this object is done with
// them: memory fresh from the system costs a page fault for every 4 KB
// touched, which on a virtual machine takes longer than counting 24 million
// pixels. Only the counters used are cleared before they are kept.
class ColourCounts
{
public:
    ColourCounts() = default;
    ColourCounts(const ColourCounts &) = delete;
    ColourCounts &operator=(const ColourCounts &) = delete;
    ~ColourCounts();

    // Regions of at least this many pixels are worth counting.
    static constexpr qint64 kWorthCounting = qint64(1) << 20;

    // Counts the pixels of region (inside the image) of a 32-bit RGB or ARGB
    // image. False, counting nothing, for another format or when the
    // counters' memory cannot be had, or when `cancel` is set before it is
    // done (looked at every row).
    bool count(const QImage &image, const QRect &region,
               const std::atomic<bool> *cancel = nullptr);

    qint64 pixels() const { return m_pixels; }
    // The pixels counted per 8-bit value of each channel, for the RGB rule.
    ChannelCounts channelCounts() const;

    // The colours present, in groups that share red and green: the count of
    // colour (red << 16) | (green << 8) | blue is at(colour).
    const std::vector<uint32_t> &usedRedGreen() const { return m_usedRedGreen; }
    uint32_t at(uint32_t colour) const { return m_counts[colour]; }

private:
    void release();
    // Keeps the red-green groups flagged in `used` (one flag per group).
    void markUsed(const std::vector<uint8_t> &used);

    uint32_t *m_counts = nullptr;
    std::vector<uint32_t> m_usedRedGreen; // red << 8 | green
    qint64 m_pixels = 0;
};
