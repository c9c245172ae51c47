#include "palette/asepalette.h"

#include "colour/colourconversion.h"

#include <QCoreApplication>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CAsePalette", text);
}

const quint16 kColourBlock = 0x0001;
const quint16 kGroupStart = 0xC001;
const quint16 kGroupEnd = 0xC002;
const quint16 kNormalColour = 2;

// Reads big-endian values from a byte range without ever passing its end.
class Cursor
{
public:
    Cursor(const char *begin, const char *end) : m_pos(begin), m_end(end) {}

    bool has(qint64 n) const { return n >= 0 && n <= m_end - m_pos; }
    quint16 u16() { return take<quint16>(); }
    quint32 u32() { return take<quint32>(); }
    float f32()
    {
        const quint32 bits = u32();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    QByteArray bytes(int n)
    {
        QByteArray out(m_pos, n);
        m_pos += n;
        return out;
    }
    const char *pos() const { return m_pos; }

private:
    template <typename T> T take()
    {
        T value = qFromBigEndian<T>(m_pos);
        m_pos += sizeof(T);
        return value;
    }
    const char *m_pos;
    const char *m_end;
};

struct ModelSpec
{
    const char *tag;
    int floats;
};
const ModelSpec kModels[] = {{"RGB ", 3}, {"LAB ", 3}, {"CMYK", 4}, {"Gray", 1}};

int floatsFor(const QByteArray &tag)
{
    for (const ModelSpec &m : kModels) {
        if (tag == m.tag)
            return m.floats;
    }
    return -1;
}

QString nameFrom(Cursor &cursor, int units)
{
    QVector<char16_t> text;
    for (int i = 0; i < units; ++i)
        text.append(char16_t(cursor.u16()));
    while (!text.isEmpty() && text.last() == 0)
        text.removeLast();
    return QString::fromUtf16(text.constData(), text.size());
}

RgbColour fromModel(const QByteArray &tag, const float *v, const QString &name, QStringList *notes)
{
    if (tag == "RGB ")
        return {v[0], v[1], v[2]};
    if (tag == "LAB ")
        return labToRgb(v[0] * 100.0, v[1], v[2]);
    if (tag == "CMYK") {
        notes->append(translated("\"%1\" is a CMYK colour: converted to RGB as "
                                 "(1 - C) \u00d7 (1 - K), (1 - M) \u00d7 (1 - K), "
                                 "(1 - Y) \u00d7 (1 - K).")
                          .arg(name));
        return CAsePalette::cmykToRgb(v[0], v[1], v[2], v[3]);
    }
    notes->append(translated("\"%1\" is a grey colour: converted to RGB with the grey "
                             "value in every channel.")
                      .arg(name));
    return CAsePalette::greyToRgb(v[0]);
}

// One colour block's body; false with a reason when it does not hold one.
bool readColour(Cursor body, CPalette *palette, QString *reason)
{
    if (!body.has(2)) {
        *reason = translated("the colour block is too short for its name.");
        return false;
    }
    const int units = body.u16();
    if (!body.has(2 * qint64(units) + 4)) {
        *reason = translated("the colour's name runs past the end of its block.");
        return false;
    }
    const QString name = nameFrom(body, units);
    const QByteArray tag = body.bytes(4);
    const int count = floatsFor(tag);
    if (count < 0) {
        *reason = translated("\"%1\" is not a colour model (RGB, LAB, CMYK or Gray).")
                      .arg(QString::fromLatin1(tag.toHex()));
        return false;
    }
    if (!body.has(4 * count + 2)) {
        *reason = translated("the values of \"%1\" run past the end of its block.").arg(name);
        return false;
    }
    float values[4] = {0, 0, 0, 0};
    for (int i = 0; i < count; ++i) {
        values[i] = body.f32();
        if (!std::isfinite(values[i])) {
            *reason = translated("a value of \"%1\" is not a number.").arg(name);
            return false;
        }
    }
    palette->colours.append({name, fromModel(tag, values, name, &palette->notes)});
    return true;
}

void putU16(QByteArray *out, quint16 v)
{
    char b[2];
    qToBigEndian(v, b);
    out->append(b, 2);
}

void putU32(QByteArray *out, quint32 v)
{
    char b[4];
    qToBigEndian(v, b);
    out->append(b, 4);
}

void putF32(QByteArray *out, double v)
{
    const float f = float(v);
    quint32 bits;
    std::memcpy(&bits, &f, sizeof bits);
    putU32(out, bits);
}

double clamped(double v)
{
    return v > 0.0 ? (v < 1.0 ? v : 1.0) : 0.0;
}

QByteArray colourBody(const PaletteColour &colour, CAsePalette::Model model)
{
    QByteArray body;
    const QString name = colour.name.left(0xFFFE);
    putU16(&body, quint16(name.size() + 1));
    for (const QChar c : name)
        putU16(&body, c.unicode());
    putU16(&body, 0);
    const RgbColour rgb{clamped(colour.rgb.red), clamped(colour.rgb.green),
                        clamped(colour.rgb.blue)};
    if (model == CAsePalette::Lab) {
        const LabColour lab = rgbToLab(rgb);
        body.append("LAB ", 4);
        putF32(&body, lab.L / 100.0);
        putF32(&body, lab.a);
        putF32(&body, lab.b);
    } else {
        body.append("RGB ", 4);
        putF32(&body, rgb.red);
        putF32(&body, rgb.green);
        putF32(&body, rgb.blue);
    }
    putU16(&body, kNormalColour);
    return body;
}

// Why the file is not one of ours, or empty when its signature and version are.
QString headerProblem(Cursor *file, const QByteArray &bytes)
{
    if (!file->has(12) || std::memcmp(bytes.constData(), "ASEF", 4) != 0)
        return translated("it does not start with \"ASEF\".");
    file->bytes(4);
    const quint16 major = file->u16();
    file->u16();
    if (major != 1)
        return translated("its version %1 is not version 1.").arg(major);
    return QString();
}

} // namespace

CPaletteReadResult CAsePalette::read(const QByteArray &bytes)
{
    Cursor file(bytes.constData(), bytes.constData() + bytes.size());
    const QString problem = headerProblem(&file, bytes);
    if (!problem.isEmpty())
        return CPaletteReadResult::notThisFormat(translated("an Adobe Swatch Exchange file"), problem);
    const quint32 blocks = file.u32();
    CPalette palette;
    for (quint32 i = 1; i <= blocks; ++i) {
        QString reason;
        if (!file.has(6)) {
            reason = translated("the file ends before block %1 of %2.").arg(i).arg(blocks);
            return CPaletteReadResult::badPart(translated("block"), int(qMin<quint32>(i, INT_MAX)),
                                               reason);
        }
        const quint16 type = file.u16();
        const quint32 length = file.u32();
        if (!file.has(qint64(length))) {
            return CPaletteReadResult::badPart(translated("block"), int(i),
                                               translated("the block runs past the end of the file."));
        }
        const Cursor body(file.pos(), file.pos() + length);
        file.bytes(int(length));
        // Group starts and ends only frame colours, which are read flat.
        if (type != kColourBlock && type != kGroupStart && type != kGroupEnd)
            reason = translated("0x%1 is not a block type.").arg(type, 4, 16, QLatin1Char('0'));
        else if (type == kColourBlock)
            readColour(body, &palette, &reason);
        if (!reason.isEmpty())
            return CPaletteReadResult::badPart(translated("block"), int(i), reason);
    }
    return CPaletteReadResult::ok(palette);
}

QByteArray CAsePalette::write(const CPalette &palette, Model model)
{
    QByteArray out("ASEF", 4);
    putU16(&out, 1);
    putU16(&out, 0);
    putU32(&out, quint32(palette.colours.size()));
    for (const PaletteColour &colour : palette.colours) {
        const QByteArray body = colourBody(colour, model);
        putU16(&out, kColourBlock);
        putU32(&out, quint32(body.size()));
        out += body;
    }
    return out;
}

RgbColour CAsePalette::cmykToRgb(double c, double m, double y, double k)
{
    return {(1.0 - c) * (1.0 - k), (1.0 - m) * (1.0 - k), (1.0 - y) * (1.0 - k)};
}

RgbColour CAsePalette::greyToRgb(double grey)
{
    return {grey, grey, grey};
}
