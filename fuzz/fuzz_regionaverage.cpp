// Averages arbitrary rectangles of arbitrary small images by both rules.
// The input chooses the image's size, format and pixels (and palette), the
// rectangle's corners (anywhere, any size, either way round) and the rule.
// An average must be a colour of fractions from 0 to 1, and a region that
// holds no pixel must leave the result alone.
#include "colour/imageregionaverage.h"

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
    return 0;
}
