#include "colour/colourconversion.h"
#include "palette/asepalette.h"

#include <QtEndian>
#include <QtTest>

#include <cstring>

namespace {

// Builds swatch exchange files byte by byte from the format's description,
// independently of the writer under test.
struct AseBytes
{
    QByteArray bytes;

    AseBytes &u16(quint16 v)
    {
        bytes.append(char(v >> 8)).append(char(v & 0xFF));
        return *this;
    }
    AseBytes &u32(quint32 v) { return u16(quint16(v >> 16)).u16(quint16(v & 0xFFFF)); }
    AseBytes &f32(float f)
    {
        quint32 bits;
        std::memcpy(&bits, &f, 4);
        return u32(bits);
    }
    AseBytes &raw(const QByteArray &b)
    {
        bytes += b;
        return *this;
    }
    static AseBytes header(quint32 blocks)
    {
        AseBytes a;
        a.raw("ASEF").u16(1).u16(0).u32(blocks);
        return a;
    }
    static QByteArray name(const QString &text)
    {
        AseBytes a;
        a.u16(quint16(text.size() + 1));
        for (const QChar c : text)
            a.u16(c.unicode());
        a.u16(0);
        return a.bytes;
    }
    AseBytes &colour(const QString &text, const QByteArray &model, const QVector<float> &values)
    {
        AseBytes body;
        body.raw(name(text)).raw(model);
        for (float v : values)
            body.f32(v);
        body.u16(2);
        return u16(0x0001).u32(quint32(body.bytes.size())).raw(body.bytes);
    }
    AseBytes &groupStart(const QString &text)
    {
        const QByteArray body = name(text);
        return u16(0xC001).u32(quint32(body.size())).raw(body);
    }
    AseBytes &groupEnd() { return u16(0xC002).u32(0); }
};

} // namespace

class TestAsePalette : public QObject
{
    Q_OBJECT

private slots:
    void rgbEntryWithUtf16NameIsRead();
    void labEntryGoesThroughTheLabToRgbConversion();
    void cmykSwatchIsConvertedAndReported();
    void greySwatchIsConvertedAndReported();
    void groupsAreFlattened();
    void malformedBlock_data();
    void malformedBlock();
    void fileThatIsNotSwatchExchangeIsNamedSo_data();
    void fileThatIsNotSwatchExchangeIsNamedSo();
    void writerOutputMatchesTheHandBuiltBytes();
    void rgbRoundTripKeepsNamesAndColours();
    void labRoundTripComesBackThroughTheConversions();
};

void TestAsePalette::rgbEntryWithUtf16NameIsRead()
{
    const QString name = QStringLiteral("Bl\u00e5 \U0001F535");
    const QByteArray file =
        AseBytes::header(1).colour(name, "RGB ", {0.25f, 0.5f, 1.0f}).bytes;
    const CPaletteReadResult r = CAsePalette::read(file);
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 1);
    QCOMPARE(r.palette().colours.at(0).name, name);
    QCOMPARE(r.palette().colours.at(0).rgb.red, 0.25);
    QCOMPARE(r.palette().colours.at(0).rgb.green, 0.5);
    QCOMPARE(r.palette().colours.at(0).rgb.blue, 1.0);
    QVERIFY(r.palette().notes.isEmpty());
}

void TestAsePalette::labEntryGoesThroughTheLabToRgbConversion()
{
    // L is stored as a fraction of 100.
    const QByteArray file = AseBytes::header(1).colour("Lab", "LAB ", {0.5f, 20.0f, -30.0f}).bytes;
    const CPaletteReadResult r = CAsePalette::read(file);
    QVERIFY(r.isOk());
    const RgbColour expected = labToRgb(double(0.5f) * 100.0, 20.0, -30.0);
    QCOMPARE(r.palette().colours.at(0).rgb.red, expected.red);
    QCOMPARE(r.palette().colours.at(0).rgb.green, expected.green);
    QCOMPARE(r.palette().colours.at(0).rgb.blue, expected.blue);
    QVERIFY(r.palette().notes.isEmpty());
}

void TestAsePalette::cmykSwatchIsConvertedAndReported()
{
    const QByteArray file =
        AseBytes::header(1).colour("Press", "CMYK", {0.0f, 0.5f, 1.0f, 0.5f}).bytes;
    const CPaletteReadResult r = CAsePalette::read(file);
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 1);
    QCOMPARE(r.palette().colours.at(0).name, QStringLiteral("Press"));
    QCOMPARE(r.palette().colours.at(0).rgb.red, 0.5);
    QCOMPARE(r.palette().colours.at(0).rgb.green, 0.25);
    QCOMPARE(r.palette().colours.at(0).rgb.blue, 0.0);
    QCOMPARE(r.palette().notes.size(), 1);
    QVERIFY(r.palette().notes.at(0).startsWith(QStringLiteral("\"Press\" is a CMYK colour")));
}

void TestAsePalette::greySwatchIsConvertedAndReported()
{
    const QByteArray file = AseBytes::header(1).colour("Mid", "Gray", {0.75f}).bytes;
    const CPaletteReadResult r = CAsePalette::read(file);
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.at(0).rgb.red, 0.75);
    QCOMPARE(r.palette().colours.at(0).rgb.blue, 0.75);
    QCOMPARE(r.palette().notes.size(), 1);
    QVERIFY(r.palette().notes.at(0).contains(QStringLiteral("grey")));
}

void TestAsePalette::groupsAreFlattened()
{
    const QByteArray file = AseBytes::header(6)
                                .colour("Before", "RGB ", {0, 0, 0})
                                .groupStart("Brand")
                                .colour("In one", "RGB ", {1, 0, 0})
                                .colour("In two", "RGB ", {0, 1, 0})
                                .groupEnd()
                                .colour("After", "RGB ", {0, 0, 1})
                                .bytes;
    const CPaletteReadResult r = CAsePalette::read(file);
    QVERIFY(r.isOk());
    QStringList names;
    for (const PaletteColour &c : r.palette().colours)
        names << c.name;
    QCOMPARE(names, QStringList({"Before", "In one", "In two", "After"}));
}

void TestAsePalette::malformedBlock_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("block");
    const AseBytes good = AseBytes::header(3).colour("A", "RGB ", {0, 0, 0});
    QTest::newRow("count beyond the blocks") << good.bytes << 2;
    QTest::newRow("unknown model")
        << AseBytes(good).colour("B", "HSV ", {0, 0, 0}).bytes << 2;
    QTest::newRow("too few values")
        << AseBytes(good).u16(1).u32(6 + 4 + 4).raw(AseBytes::name("B")).raw("RGB ").f32(0).bytes
        << 2;
    QTest::newRow("length past the end") << AseBytes(good).u16(1).u32(1000).u16(2).bytes << 2;
    QTest::newRow("name past the block")
        << AseBytes(good).u16(1).u32(4).u16(50).u16(65).bytes << 2;
    QTest::newRow("not a number")
        << AseBytes(good).colour("B", "RGB ", {0, std::numeric_limits<float>::quiet_NaN(), 0}).bytes
        << 2;
    QTest::newRow("unknown block type")
        << AseBytes(good).colour("B", "RGB ", {0, 0, 0}).u16(0x0007).u32(0).bytes << 3;
}

void TestAsePalette::malformedBlock()
{
    QFETCH(QByteArray, file);
    QFETCH(int, block);
    const CPaletteReadResult r = CAsePalette::read(file);
    QCOMPARE(r.status(), CPaletteReadResult::BadPart);
    QCOMPARE(r.kind(), QStringLiteral("block"));
    QCOMPARE(r.position(), block);
    QVERIFY(r.palette().colours.isEmpty());
    QVERIFY(r.message(QStringLiteral("/s.ase"))
                .startsWith(QStringLiteral("Error in block %1\nwhile processing:\n/s.ase\n")
                                .arg(block)));
}

void TestAsePalette::fileThatIsNotSwatchExchangeIsNamedSo_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << "it does not start with \"ASEF\".";
    QTest::newRow("text") << QByteArray("GIMP Palette\nName: x\n") << "it does not start with \"ASEF\".";
    QTest::newRow("short") << QByteArray("ASEF\0\1", 6) << "it does not start with \"ASEF\".";
    QTest::newRow("version 2") << AseBytes().raw("ASEF").u16(2).u16(0).u32(0).bytes
                               << "its version 2 is not version 1.";
}

void TestAsePalette::fileThatIsNotSwatchExchangeIsNamedSo()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    const CPaletteReadResult r = CAsePalette::read(file);
    QCOMPARE(r.status(), CPaletteReadResult::NotThisFormat);
    QCOMPARE(r.message(QStringLiteral("/s.ase")),
             QStringLiteral("The file:\n/s.ase\nis not an Adobe Swatch Exchange file:\n") + reason);
}

void TestAsePalette::writerOutputMatchesTheHandBuiltBytes()
{
    CPalette p;
    p.colours = {{QStringLiteral("Red"), {1, 0, 0}}, {QStringLiteral(""), {0.5, 0.25, 0}}};
    const QByteArray expected = AseBytes::header(2)
                                    .colour("Red", "RGB ", {1, 0, 0})
                                    .colour("", "RGB ", {0.5f, 0.25f, 0})
                                    .bytes;
    QCOMPARE(CAsePalette::write(p).toHex(), expected.toHex());
}

void TestAsePalette::rgbRoundTripKeepsNamesAndColours()
{
    CPalette p;
    for (int i = 0; i < 256; i += 15)
        p.colours.append({QStringLiteral("C\u00f6lour %1").arg(i), {i / 255.0, 0.5, 1 - i / 255.0}});
    const CPaletteReadResult r = CAsePalette::read(CAsePalette::write(p));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), p.colours.size());
    for (int i = 0; i < p.colours.size(); ++i) {
        QCOMPARE(r.palette().colours.at(i).name, p.colours.at(i).name);
        // Single-precision floats: the same byte, and within a float's step.
        QCOMPARE(CPalette::hex(r.palette().colours.at(i).rgb), CPalette::hex(p.colours.at(i).rgb));
        QVERIFY(qAbs(r.palette().colours.at(i).rgb.red - p.colours.at(i).rgb.red) < 1e-7);
    }
}

void TestAsePalette::labRoundTripComesBackThroughTheConversions()
{
    CPalette p;
    p.colours = {{QStringLiteral("Orange"), {1.0, 0.5020, 0.0}},
                 {QStringLiteral("Teal"), {0.0, 0.502, 0.502}}};
    const QByteArray bytes = CAsePalette::write(p, CAsePalette::Lab);
    QVERIFY(bytes.contains("LAB "));
    const CPaletteReadResult r = CAsePalette::read(bytes);
    QVERIFY(r.isOk());
    for (int i = 0; i < p.colours.size(); ++i) {
        const LabColour lab = rgbToLab(p.colours.at(i).rgb);
        const RgbColour expected = labToRgb(double(float(lab.L / 100.0)) * 100.0,
                                            double(float(lab.a)), double(float(lab.b)));
        QCOMPARE(r.palette().colours.at(i).name, p.colours.at(i).name);
        QCOMPARE(r.palette().colours.at(i).rgb.red, expected.red);
        QCOMPARE(r.palette().colours.at(i).rgb.green, expected.green);
        QCOMPARE(r.palette().colours.at(i).rgb.blue, expected.blue);
        QVERIFY(qAbs(expected.green - p.colours.at(i).rgb.green) < 0.001);
    }
}

QTEST_GUILESS_MAIN(TestAsePalette)
#include "tst_asepalette.moc"
