// Averages arbitrary rectangles of arbitrary small images by both rules.
// The input chooses the image's size, format and pixels (and palette), the
// rectangle's corners (anywhere, any size, either way round) and the rule.
// An average must be a colour of fractions from 0 to 1, and a region that
// holds no pixel must leave the result alone. The same rectangle goes to the
// spread of the pick (the same average, a count of its pixels, finite
// figures) and to the colour counter (every pixel counted once).
#include "colour/colourcounts.h"
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"

#include <QImage>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

class Input
{
public:
    Input(const uint8_t *data, size_t size) : m_data(data), m_size(size) {}
    uint8_t byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    int32_t word()
    {
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i)
            v = (v << 8) | byte();
        int32_t out;
        std::memcpy(&out, &v, sizeof out);
        return out;
    }

private:
    const uint8_t *m_data;
    size_t m_size;
    size_t m_pos = 0;
};

const QImage::Format kFormats[] = {
    QImage::Format_RGB32,   QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied,
    QImage::Format_Indexed8, QImage::Format_RGB888, QImage::Format_Grayscale8,
    QImage::Format_RGB16,   QImage::Format_Mono,   QImage::Format_RGBA64};

QImage makeImage(Input &in)
{
    const int width = 1 + in.byte() % 40;
    const int height = 1 + in.byte() % 40;
    const QImage::Format format = kFormats[in.byte() % (sizeof kFormats / sizeof kFormats[0])];
    QImage image(width, height, format);
    if (image.isNull())
        return image;
    if (format == QImage::Format_Indexed8 || format == QImage::Format_Mono) {
        // A palette that may be shorter than the indices the pixels use.
        QVector<QRgb> palette(in.byte() % 258);
        for (QRgb &c : palette)
            c = qRgba(in.byte(), in.byte(), in.byte(), in.byte());
        image.setColorTable(palette);
    }
    for (int y = 0; y < height; ++y) {
        uchar *line = image.scanLine(y);
        for (int i = 0; i < image.bytesPerLine(); ++i)
            line[i] = in.byte();
    }
    return image;
}

bool isFraction(double v)
{
    return std::isfinite(v) && v >= 0.0 && v <= 1.0;
}

void checkSpread(const QImage &image, const QRect &region, bool useRgb, const RgbColour &average)
{
    RgbColour again;
    PickSpread spread;
    if (!averageWithSpread(image, region, useRgb, &again, &spread))
        std::abort();
    if (again.red != average.red || again.green != average.green || again.blue != average.blue)
        std::abort();
    const QRect inside = region & image.rect();
    if (spread.pixels != qint64(inside.width()) * inside.height())
        std::abort();
    if (!std::isfinite(spread.mean) || spread.mean < 0.0 || spread.p95 < 0.0 || spread.p95 > 200.0)
        std::abort();
}

// Only 32-bit pictures are counted; every pixel inside lands in one counter.
void checkCounts(const QImage &image, const QRect &region)
{
    ColourCounts counts;
    if (!counts.count(image, region))
        return;
    quint64 total = 0;
    for (const uint32_t pair : counts.usedRedGreen())
        for (uint32_t blue = 0; blue < 256; ++blue)
            total += counts.at((pair << 8) | blue);
    if (total != quint64(counts.pixels()))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input in(data, size);
    const bool useRgb = in.byte() & 1;
    const QImage image = makeImage(in);
    const QRect region(QPoint(in.word(), in.word()), QPoint(in.word(), in.word()));
    const RgbColour untouched{0.25, 0.5, 0.75};
    RgbColour result = untouched;
    const bool averaged = averageImageRegion(image, region, useRgb, &result);
    if (!averaged) {
        if (result.red != untouched.red || result.green != untouched.green
            || result.blue != untouched.blue)
            std::abort();
        return 0;
    }
    if (!isFraction(result.red) || !isFraction(result.green) || !isFraction(result.blue))
        std::abort();
    checkSpread(image, region, useRgb, result);
    checkCounts(image, region);
    return 0;
}
