// The Lab rule's row sums: the vector path, when the processor has it, and
// the plain code give the same sums within 1e-9 of the mean (each pixel's
// L*a*b* within 1e-12, on both sides of the cube root's branch point), and
// forcing the plain code makes every average take it.
#include "colour/colourconversion.h"
#include "colour/imageregionaverage.h"
#include "colour/labrowsum.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

std::vector<QRgb> noiseRow(int width, quint32 seed)
{
    std::vector<QRgb> row(size_t(std::max(width, 1)));
    QRandomGenerator rng(seed);
    for (QRgb &pixel : row)
        pixel = 0xff000000u | rng.bounded(0x1000000u);
    return row;
}

// Every byte value of every channel, the darkest colours (the linear branch
// of the cube root) and the brightest, next to each other.
std::vector<QRgb> extremesRow()
{
    std::vector<QRgb> row;
    for (int v = 0; v < 256; ++v) {
        row.push_back(qRgb(v, 0, 0));
        row.push_back(qRgb(0, v, 0));
        row.push_back(qRgb(0, 0, v));
        row.push_back(qRgb(v, v, v));
        row.push_back(qRgb(255 - v, v, 255));
    }
    row.push_back(qRgb(255, 255, 255));
    row.push_back(qRgb(0, 0, 0));
    return row;
}

// Smooth ramps of every channel, as a sky or a vignette gives them.
std::vector<QRgb> gradientRow(int width)
{
    std::vector<QRgb> row(size_t(std::max(width, 1)));
    for (int x = 0; x < width; ++x) {
        const int v = x * 256 / width;
        row[size_t(x)] = qRgb(v, (v * 3 / 4 + 40) & 0xff, 255 - v);
    }
    return row;
}

// The colours of a channel's every value, one colour a pixel.
QRgb channelColour(int channel, int v)
{
    switch (channel) {
    case 0:
        return qRgb(v, 0, 0);
    case 1:
        return qRgb(0, v, 0);
    case 2:
        return qRgb(0, 0, v);
    default:
        return qRgb(v, v, v);
    }
}

// t of the cube root's argument for Y, as the conversion works it out.
double yOverWhite(QRgb pixel)
{
    const std::array<double, 256> &linear = linearisedBytes();
    return linearRgbToXyz(linear[size_t(qRed(pixel))], linear[size_t(qGreen(pixel))],
                          linear[size_t(qBlue(pixel))])
               .Y
           / kWhiteY;
}

LabColour sumOf(LabRowSum::Path path, const std::vector<QRgb> &row, int width)
{
    LabColour sum;
    LabRowSum::add(path, row.data(), width, sum);
    return sum;
}

// Each pixel by rgbToLab, the conversion a single colour takes.
LabColour exactSum(const std::vector<QRgb> &row, int width)
{
    LabColour sum;
    for (int i = 0; i < width; ++i) {
        const LabColour lab = rgbToLab(qRed(row[size_t(i)]) / 255.0,
                                       qGreen(row[size_t(i)]) / 255.0,
                                       qBlue(row[size_t(i)]) / 255.0);
        sum.L += lab.L;
        sum.a += lab.a;
        sum.b += lab.b;
    }
    return sum;
}

void verifyClose(const LabColour &got, const LabColour &expected, int width)
{
    const double n = std::max(width, 1);
    QVERIFY2(std::fabs(got.L - expected.L) / n < 1e-9,
             qPrintable(QStringLiteral("L %1 vs %2").arg(got.L, 0, 'g', 17).arg(expected.L, 0, 'g', 17)));
    QVERIFY(std::fabs(got.a - expected.a) / n < 1e-9);
    QVERIFY(std::fabs(got.b - expected.b) / n < 1e-9);
}

QImage noiseImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator rng(99);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = 0xff000000u | rng.bounded(0x1000000u);
    }
    return image;
}

} // namespace

Q_DECLARE_METATYPE(LabRowSum::Path)

class TestLabRowSum : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { LabRowSum::forcePlain(false); }
    void everyPathMatchesTheExactConversion_data();
    void everyPathMatchesTheExactConversion();
    void vectorAndPlainSumsAgree_data();
    void vectorAndPlainSumsAgree();
    void everyValueOfAChannelAgreesPerPixel_data();
    void everyValueOfAChannelAgreesPerPixel();
    void forcingPlainChoosesPlain();
    void averageOfNoiseAgreesOnEveryPath();
};

void TestLabRowSum::everyPathMatchesTheExactConversion_data()
{
    QTest::addColumn<LabRowSum::Path>("path");
    QTest::addColumn<int>("kind");
    for (const LabRowSum::Path path : {LabRowSum::Path::Plain, LabRowSum::Path::Avx2}) {
        const char *name = path == LabRowSum::Path::Plain ? "plain" : "AVX2";
        QTest::addRow("%s, noise", name) << path << 0;
        QTest::addRow("%s, extremes", name) << path << 1;
        QTest::addRow("%s, gradients", name) << path << 2;
    }
}

void TestLabRowSum::everyPathMatchesTheExactConversion()
{
    QFETCH(LabRowSum::Path, path);
    QFETCH(int, kind);
    if (!LabRowSum::available(path))
        QSKIP("this processor has no such vector instructions");
    const std::vector<QRgb> row = kind == 0   ? noiseRow(4099, 3)
                                  : kind == 1 ? extremesRow()
                                              : gradientRow(6007);
    const int width = int(row.size());
    verifyClose(sumOf(path, row, width), exactSum(row, width), width);
}

// Widths that leave 0 to 7 pixels after the groups of eight, none at all,
// around the vector code's blocks of 64 pixels, and rows of noise, smooth
// ramps and pure black or white.
void TestLabRowSum::vectorAndPlainSumsAgree_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("kind");
    for (int width = 0; width <= 17; ++width)
        QTest::addRow("%d pixels of noise", width) << width << 0;
    for (const int width : {63, 64, 65, 71, 72, 129, 1000, 6001, 6007})
        QTest::addRow("%d pixels of noise", width) << width << 0;
    for (const int width : {5, 8, 6001})
        QTest::addRow("gradient, %d pixels", width) << width << 1;
    for (const int width : {8, 13})
        QTest::addRow("black, %d pixels", width) << width << 2;
    for (const int width : {8, 13})
        QTest::addRow("white, %d pixels", width) << width << 3;
}

void TestLabRowSum::vectorAndPlainSumsAgree()
{
    QFETCH(int, width);
    QFETCH(int, kind);
    if (!LabRowSum::available(LabRowSum::Path::Avx2))
        QSKIP("this processor has no AVX2");
    std::vector<QRgb> row = kind == 1 ? gradientRow(width) : noiseRow(width, quint32(width) + 11);
    if (kind >= 2)
        std::fill(row.begin(), row.end(), kind == 2 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    const LabColour plain = sumOf(LabRowSum::Path::Plain, row, width);
    const LabColour vector = sumOf(LabRowSum::Path::Avx2, row, width);
    verifyClose(vector, plain, width);
    verifyClose(vector, exactSum(row, width), width);
    if (width == 0)
        QCOMPARE(vector.L, 0.0);
    if (kind == 3)
        QVERIFY(std::fabs(vector.L / width - 100.0) < 1e-9); // white is L* 100
}

// Rows of eight pixels of one colour take the vector path whole: for each
// value of each channel, and of grey, its L*a*b* is the plain code's within
// 1e-12. The values run across the cube root's branch point (t = 0.008856)
// for X, Y and Z alike, and over each power of two of t the vector code
// handles by its exponent.
void TestLabRowSum::everyValueOfAChannelAgreesPerPixel_data()
{
    QTest::addColumn<int>("channel");
    QTest::newRow("red") << 0;
    QTest::newRow("green") << 1;
    QTest::newRow("blue") << 2;
    QTest::newRow("grey") << 3;
}

void TestLabRowSum::everyValueOfAChannelAgreesPerPixel()
{
    QFETCH(int, channel);
    if (!LabRowSum::available(LabRowSum::Path::Avx2))
        QSKIP("this processor has no AVX2");
    int below = 0;
    int above = 0;
    for (int v = 0; v < 256; ++v) {
        const std::vector<QRgb> row(8, channelColour(channel, v));
        const LabColour plain = sumOf(LabRowSum::Path::Plain, row, 8);
        const LabColour vector = sumOf(LabRowSum::Path::Avx2, row, 8);
        const QByteArray where = QByteArray::number(v);
        QVERIFY2(std::fabs(vector.L - plain.L) / 8 < 1e-12, where.constData());
        QVERIFY2(std::fabs(vector.a - plain.a) / 8 < 1e-12, where.constData());
        QVERIFY2(std::fabs(vector.b - plain.b) / 8 < 1e-12, where.constData());
        (yOverWhite(row[0]) > 0.008856 ? above : below) += 1;
    }
    // The values tried lie on both sides of the branch point.
    QVERIFY(below > 1);
    QVERIFY(above > 1);
}

void TestLabRowSum::forcingPlainChoosesPlain()
{
    LabRowSum::forcePlain(true);
    QCOMPARE(LabRowSum::chosen(), LabRowSum::Path::Plain);
    LabRowSum::forcePlain(false);
    QCOMPARE(LabRowSum::chosen(), LabRowSum::available(LabRowSum::Path::Avx2)
                                      ? LabRowSum::Path::Avx2
                                      : LabRowSum::Path::Plain);
    QVERIFY(LabRowSum::available(LabRowSum::Path::Plain));
}

// Noise takes the row sums for nearly every row: the mean L*a*b* of a picture
// of it is the same, within 1e-9, whichever path the rows take.
void TestLabRowSum::averageOfNoiseAgreesOnEveryPath()
{
    const QImage image = noiseImage(1100, 700);
    LabColour chosen;
    QVERIFY(meanImageRegionLab(image, image.rect(), &chosen));
    LabRowSum::forcePlain(true);
    LabColour plain;
    QVERIFY(meanImageRegionLab(image, image.rect(), &plain));
    QVERIFY(std::fabs(chosen.L - plain.L) < 1e-9);
    QVERIFY(std::fabs(chosen.a - plain.a) < 1e-9);
    QVERIFY(std::fabs(chosen.b - plain.b) < 1e-9);
    QVERIFY(plain.L > 1.0); // a real mean, not an untouched zero
}

QTEST_GUILESS_MAIN(TestLabRowSum)
#include "tst_labrowsum.moc"
