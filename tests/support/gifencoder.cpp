#include "gifencoder.h"

namespace {

void appendWord(QByteArray &out, int value)
{
    out += char(value & 0xff);
    out += char((value >> 8) & 0xff);
}

// Bits packed least significant first into 255-byte sub-blocks.
class BitWriter
{
public:
    void write(int code, int width)
    {
        m_buffer |= quint32(code) << m_bits;
        m_bits += width;
        while (m_bits >= 8) {
            m_bytes += char(m_buffer & 0xff);
            m_buffer >>= 8;
            m_bits -= 8;
        }
    }

    QByteArray subBlocks()
    {
        if (m_bits > 0)
            m_bytes += char(m_buffer & 0xff);
        QByteArray out;
        for (int i = 0; i < m_bytes.size(); i += 255) {
            const QByteArray block = m_bytes.mid(i, 255);
            out += char(block.size());
            out += block;
        }
        out += char(0);
        return out;
    }

private:
    QByteArray m_bytes;
    quint32 m_buffer = 0;
    int m_bits = 0;
};

int paletteBits(int colours)
{
    int bits = 1;
    while ((1 << bits) < colours)
        ++bits;
    return bits;
}

QByteArray imageData(const QImage &image, int minimumCodeSize)
{
    const int clear = 1 << minimumCodeSize;
    const int width = minimumCodeSize + 1;
    // Restart the dictionary before it would need wider codes.
    const int run = clear - 2;
    BitWriter bits;
    int sinceClear = run;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (sinceClear == run) {
                bits.write(clear, width);
                sinceClear = 0;
            }
            bits.write(row[x], width);
            ++sinceClear;
        }
    }
    bits.write(clear + 1, width);
    return bits.subBlocks();
}

} // namespace

namespace GifEncoder {

QByteArray encode(const QImage &image)
{
    if (image.format() != QImage::Format_Indexed8 || image.isNull())
        return QByteArray();
    const QVector<QRgb> palette = image.colorTable();
    const int bits = paletteBits(qMax(palette.size(), 2));
    QByteArray out("GIF89a");
    appendWord(out, image.width());
    appendWord(out, image.height());
    out += char(0x80 | ((bits - 1) << 4) | (bits - 1));
    out += char(0);
    out += char(0);
    for (int i = 0; i < (1 << bits); ++i) {
        const QRgb c = palette.value(i, 0);
        out += char(qRed(c));
        out += char(qGreen(c));
        out += char(qBlue(c));
    }
    out += char(0x2c);
    appendWord(out, 0);
    appendWord(out, 0);
    appendWord(out, image.width());
    appendWord(out, image.height());
    out += char(0);
    const int minimumCodeSize = qMax(bits, 2);
    out += char(minimumCodeSize);
    out += imageData(image, minimumCodeSize);
    out += char(0x3b);
    return out;
}

} // namespace GifEncoder
