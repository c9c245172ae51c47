#include "colour/imageregionaverage.h"

#include "colour/colourconversion.h"

#include <QVector>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

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
        m_direct = f == QImage::Format_RGB32 || f == QImage::Format_ARGB32
                   || f == QImage::Format_ARGB32_Premultiplied;
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
// the same sum of squares without a floating point operation per pixel.
RgbColour rootMeanSquare(const QImage &image, const QRect &region)
{
    std::array<std::array<uint64_t, 256>, 3> counts{};
    RowReader reader(image, region);
    for (int y = region.top(); y <= region.bottom(); ++y) {
        const QRgb *row = reader.row(y);
        for (int i = 0; i < region.width(); ++i) {
            ++counts[0][qRed(row[i])];
            ++counts[1][qGreen(row[i])];
            ++counts[2][qBlue(row[i])];
        }
    }
    double sums[3] = {0.0, 0.0, 0.0};
    for (int c = 0; c < 3; ++c) {
        for (int v = 0; v < 256; ++v) {
            const double fraction = v / 255.0;
            sums[c] += static_cast<double>(counts[c][v]) * (fraction * fraction);
        }
    }
    const double n = static_cast<double>(region.width()) * region.height();
    return {std::sqrt(sums[0] / n), std::sqrt(sums[1] / n), std::sqrt(sums[2] / n)};
}

// L*a*b* of 8-bit pixels, remembering recent colours: neighbouring pixels of
// a photograph repeat colours far more often than not, and the cube roots of
// the conversion are what costs.
class LabCache
{
public:
    LabCache()
    {
        for (int v = 0; v < 256; ++v)
            m_linear[v] = srgbLinearise(v / 255.0) * 100.0;
        for (Slot &slot : m_slots)
            slot.key = kEmpty;
    }

    const LabColour &lab(QRgb pixel)
    {
        const uint32_t key = pixel & 0xffffffu;
        Slot &slot = m_slots[(key * 2654435761u) >> (32 - kBits)];
        if (slot.key != key) {
            slot.key = key;
            slot.lab = convert(qRed(pixel), qGreen(pixel), qBlue(pixel));
        }
        return slot.lab;
    }

private:
    static constexpr int kBits = 16;
    static constexpr uint32_t kEmpty = 0xffffffffu;
    struct Slot
    {
        uint32_t key;
        LabColour lab;
    };

    // The same arithmetic as rgbToLab, with the linearisation looked up.
    LabColour convert(int red, int green, int blue) const
    {
        const double r = m_linear[red];
        const double g = m_linear[green];
        const double b = m_linear[blue];
        return xyzToLab(0.4124 * r + 0.3576 * g + 0.1805 * b,
                        0.2126 * r + 0.7152 * g + 0.0722 * b,
                        0.0193 * r + 0.1192 * g + 0.9505 * b);
    }

    std::array<double, 256> m_linear{};
    std::array<Slot, (1 << kBits)> m_slots{};
};

RgbColour labMean(const QImage &image, const QRect &region)
{
    // The cache is large; keep it off the stack.
    auto cache = std::make_unique<LabCache>();
    RowReader reader(image, region);
    LabColour sum;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        const QRgb *row = reader.row(y);
        for (int i = 0; i < region.width(); ++i) {
            const LabColour &lab = cache->lab(row[i]);
            sum.L += lab.L;
            sum.a += lab.a;
            sum.b += lab.b;
        }
    }
    const double n = static_cast<double>(region.width()) * region.height();
    return labToRgb(sum.L / n, sum.a / n, sum.b / n);
}

} // namespace

bool averageImageRegion(const QImage &image, const QRect &region, bool useRgb, RgbColour *result)
{
    // A region given with its corners the wrong way round holds no pixels;
    // intersecting first would turn it the right way round.
    if (region.isEmpty() || result == nullptr)
        return false;
    const QRect inside = region.intersected(image.rect());
    if (inside.isEmpty())
        return false;
    *result = useRgb ? rootMeanSquare(image, inside) : labMean(image, inside);
    return true;
}
