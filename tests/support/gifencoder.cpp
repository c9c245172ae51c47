#include "gifencoder.h"

namespace {

const int kMinCodeSize = 8;
const int kClearCode = 256;
const int kEndCode = 257;
const int kCodeWidth = 9;
// Restarting the code table this often keeps every code 9 bits wide, so the
// encoder never needs a dictionary: each pixel is written as a literal.
const int kLiteralsPerTable = 250;

void appendWord(QByteArray &out, int value)
{
    out.append(char(value & 0xff));
    out.append(char((value >> 8) & 0xff));
}

class BitWriter
{
public:
    void write(int code)
    {
        m_buffer |= quint32(code) << m_bits;
        m_bits += kCodeWidth;
        while (m_bits >= 8) {
            m_bytes.append(char(m_buffer & 0xff));
            m_buffer >>= 8;
            m_bits -= 8;
        }
    }
    QByteArray finish()
    {
        if (m_bits > 0)
            m_bytes.append(char(m_buffer & 0xff));
        return m_bytes;
    }

private:
    QByteArray m_bytes;
    quint32 m_buffer = 0;
    int m_bits = 0;
};

QByteArray lzwLiterals(const QImage &image)
{
    BitWriter writer;
    int sinceClear = kLiteralsPerTable;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (sinceClear == kLiteralsPerTable) {
                writer.write(kClearCode);
                sinceClear = 0;
            }
            writer.write(row[x]);
            ++sinceClear;
        }
    }
    writer.write(kEndCode);
    return writer.finish();
}

void appendSubBlocks(QByteArray &out, const QByteArray &data)
{
    for (int at = 0; at < data.size(); at += 255) {
        const QByteArray block = data.mid(at, 255);
        out.append(char(block.size()));
        out.append(block);
    }
    out.append(char(0));
}

} // namespace

namespace GifEncoder {

QByteArray encode(const QImage &image)
{
    if (image.format() != QImage::Format_Indexed8 || image.isNull())
        return QByteArray();
    QByteArray out("GIF89a");
    appendWord(out, image.width());
    appendWord(out, image.height());
    out.append(char(0xf7)); // global table of 256 entries, 8 bits per primary
    out.append(char(0));
    out.append(char(0));
    const QVector<QRgb> table = image.colorTable();
    for (int i = 0; i < 256; ++i) {
        const QRgb c = i < table.size() ? table.at(i) : qRgb(0, 0, 0);
        out.append(char(qRed(c)));
        out.append(char(qGreen(c)));
        out.append(char(qBlue(c)));
    }
    out.append(char(0x2c));
    appendWord(out, 0);
    appendWord(out, 0);
    appendWord(out, image.width());
    appendWord(out, image.height());
    out.append(char(0));
    out.append(char(kMinCodeSize));
    appendSubBlocks(out, lzwLiterals(image));
    out.append(char(0x3b));
    return out;
}

} // namespace GifEncoder
