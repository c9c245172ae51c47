// vellora-cli's words for a match (--explain), the spread of a pick
// (--stats) and the conversion of images tagged with a colour profile
// (--srgb), run through the real executable.
#include "clirunner.h"

#include "colour/colourconversion.h"
#include "colour/deltae2000.h"

#include "support/fixturefile.h"
#include "support/pixellist.h"

#include <QColorSpace>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using Matrix = double[3][3];

// Linear RGB of a primaries set to XYZ (D65), then XYZ to linear sRGB.
const Matrix kDisplayP3ToXyz = {{0.4865709, 0.2656677, 0.1982173},
                                {0.2289746, 0.6917385, 0.0792869},
                                {0.0000000, 0.0451134, 1.0439444}};
const Matrix kAdobeRgbToXyz = {{0.5767309, 0.1855540, 0.1881852},
                               {0.2973769, 0.6273491, 0.0752741},
                               {0.0270343, 0.0706872, 0.9911085}};
const Matrix kXyzToSrgb = {{3.2404542, -1.5371385, -0.4985314},
                           {-0.9692660, 1.8760108, 0.0415560},
                           {0.0556434, -0.2040259, 1.0572252}};

double srgbDecode(double v)
{
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double srgbEncode(double v)
{
    v = std::min(1.0, std::max(0.0, v));
    return v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
}

double adobeDecode(double v)
{
    return std::pow(v, 563.0 / 256.0);
}

// The sRGB bytes of a colour stored as bytes in another space.
QVector<int> toSrgb(QRgb stored, const Matrix &toXyz, double (*decode)(double))
{
    const double in[3] = {decode(qRed(stored) / 255.0), decode(qGreen(stored) / 255.0),
                          decode(qBlue(stored) / 255.0)};
    double xyz[3];
    for (int r = 0; r < 3; ++r)
        xyz[r] = toXyz[r][0] * in[0] + toXyz[r][1] * in[1] + toXyz[r][2] * in[2];
    QVector<int> out;
    for (int r = 0; r < 3; ++r) {
        const double linear = kXyzToSrgb[r][0] * xyz[0] + kXyzToSrgb[r][1] * xyz[1]
                              + kXyzToSrgb[r][2] * xyz[2];
        out << int(std::lround(srgbEncode(linear) * 255.0));
    }
    return out;
}

// "R G B #rrggbb" back to bytes.
QVector<int> bytesOf(const QString &sampleLine)
{
    const QStringList words = sampleLine.split(QLatin1Char(' '));
    QVector<int> out;
    for (int i = 0; i < 3 && i < words.size(); ++i)
        out << int(std::lround(words.at(i).toDouble() * 255.0));
    return out;
}

bool near(const QVector<int> &actual, const QVector<int> &expected, int tolerance)
{
    if (actual.size() != 3 || expected.size() != 3)
        return false;
    for (int i = 0; i < 3; ++i)
        if (std::abs(actual[i] - expected[i]) > tolerance)
            return false;
    return true;
}

QString show(const QVector<int> &v)
{
    QStringList words;
    for (int x : v)
        words << QString::number(x);
    return words.join(QLatin1Char(','));
}

} // namespace

class TestCliInsight : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString greysTable();
    QString taggedImage(const QString &name, const char *format, QRgb colour,
                        QColorSpace::NamedColorSpace space);
    void verifySrgb(const QString &file, const Matrix &toXyz, double (*decode)(double));

private slots:
    void explainAddsALastTsvColumnOfSentences();
    void explainWordsLightnessLikeTheFormula();
    void explainJsonKeyHoldsTheSameSentence();
    void withoutExplainTheColumnsStayAsTheyWere();
    void statsPrintsPixelsMeanAndPercentileAfterTheColour();
    void statsOfAUniformClickAreZero();
    void statsComeBeforeTheMatchRows();
    void srgbConvertsTaggedImages_data();
    void srgbConvertsTaggedImages();
    void withoutSrgbTaggedPixelsAreReadAsStored();
    void srgbLeavesAnUntaggedImageAlone();
};

QString TestCliInsight::greysTable()
{
    const QString file = path("greys.clrtable");
    FixtureFile::write(file, "0.5020, 0.5020, 0.5020, Middle Grey\n"
                             "0.5098, 0.5098, 0.5098, Lighter Grey\n"
                             "0.4000, 0.4000, 0.4000, Much Darker Grey\n"
                             "0.5020, 0.3000, 0.3000, Dusty Rose\n");
    return file;
}

void TestCliInsight::explainAddsALastTsvColumnOfSentences()
{
    const CliRunner::Result run =
        CliRunner::run({"match", "--table", greysTable(), "--rgb", "128,128,128", "--explain"});
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.first(), QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict\texplain"));
    QCOMPARE(lines.size(), 5);
    for (const QString &line : lines.mid(1)) {
        const QStringList columns = line.split(QLatin1Char('\t'));
        QCOMPARE(columns.size(), 7);
        QVERIFY2(columns.last().startsWith(QLatin1String("The sample ")), qPrintable(line));
        QVERIFY2(columns.last().contains(columns.at(1)), qPrintable(line));
    }
    // Identical colour: nothing to tell apart.
    QCOMPARE(lines.at(1).section(QLatin1Char('\t'), 6),
             QStringLiteral("The sample and Middle Grey differ by less than half a unit in "
                            "each of lightness, saturation and hue."));
}

// Greys differ in lightness alone: dL / S_L, S_L = 1 + 0.015 (L-50)^2 /
// sqrt(20 + (L-50)^2) at the mean L, decides the word.
void TestCliInsight::explainWordsLightnessLikeTheFormula()
{
    const CliRunner::Result run =
        CliRunner::run({"match", "--table", greysTable(), "--rgb", "128,128,128", "--explain"});
    const double sample = rgbToLab(128 / 255.0, 128 / 255.0, 128 / 255.0).L;
    const double lighter = rgbToLab(0.5098, 0.5098, 0.5098).L;
    const double darker = rgbToLab(0.4, 0.4, 0.4).L;
    auto weighted = [sample](double other) {
        const double m = (sample + other) / 2.0 - 50.0;
        return (sample - other) / (1.0 + 0.015 * m * m / std::sqrt(20.0 + m * m));
    };
    QVERIFY(std::fabs(weighted(lighter)) >= 0.5 && std::fabs(weighted(lighter)) < 1.0);
    QVERIFY(weighted(darker) >= 5.0);
    QVERIFY2(run.outText().contains(
                 "\tThe sample is slightly darker than Lighter Grey.\n"),
             qPrintable(run.outText()));
    QVERIFY2(run.outText().contains("\tThe sample is much lighter than Much Darker Grey.\n"),
             qPrintable(run.outText()));
}

void TestCliInsight::explainJsonKeyHoldsTheSameSentence()
{
    const QStringList args{"match", "--table", greysTable(), "--rgb", "128,128,128", "--explain"};
    const CliRunner::Result tsv = CliRunner::run(args);
    const CliRunner::Result json = CliRunner::run(args + QStringList{"--format", "json"});
    QCOMPARE(json.exitCode, 0);
    const QJsonArray rows = QJsonDocument::fromJson(json.out).array();
    const QStringList lines = tsv.outLines();
    QCOMPARE(rows.size(), lines.size() - 1);
    for (int i = 0; i < rows.size(); ++i) {
        const QJsonObject row = rows.at(i).toObject();
        QCOMPARE(row.value("explain").toString(), lines.at(i + 1).section(QLatin1Char('\t'), 6));
        QCOMPARE(row.size(), 7);
    }
}

void TestCliInsight::withoutExplainTheColumnsStayAsTheyWere()
{
    const CliRunner::Result run =
        CliRunner::run({"match", "--table", greysTable(), "--rgb", "128,128,128"});
    QCOMPARE(run.outLines().first(), QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict"));
    QVERIFY(!run.outText().contains(QLatin1String("The sample")));
    const CliRunner::Result json =
        CliRunner::run({"match", "--table", greysTable(), "--rgb", "128,128,128", "--format",
                        "json"});
    QVERIFY(!QJsonDocument::fromJson(json.out).array().first().toObject().contains("explain"));
}

// A 20 x 10 picture, left half blue, right half yellow: the band straddles
// both. Expected values come from every pixel's difference, sorted.
void TestCliInsight::statsPrintsPixelsMeanAndPercentileAfterTheColour()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(qRgb(30, 60, 200));
    for (int y = 0; y < 10; ++y)
        for (int x = 12; x < 20; ++x)
            image.setPixel(x, y, qRgb(240, 220, 30));
    const QString file = path("halves.png");
    QVERIFY(image.save(file));
    const CliRunner::Result run =
        CliRunner::run({"sample", file, "--band", "0,0,20,10", "--stats"});
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.size(), 4);
    const QVector<int> average = bytesOf(lines.first());
    QCOMPARE(average.size(), 3);
    // The band stops one short of the edges: 19 x 9 pixels.
    const QRect region(0, 0, 19, 9);
    const QStringList words = lines.first().split(QLatin1Char(' '));
    const LabColour ref =
        rgbToLab(words.at(0).toDouble(), words.at(1).toDouble(), words.at(2).toDouble());
    std::vector<double> d;
    double sum = 0.0;
    for (const RgbColour &c : PixelList::read(image, region)) {
        const LabColour lab = rgbToLab(c);
        d.push_back(double(deltaE2000(float(ref.L), float(ref.a), float(ref.b), float(lab.L),
                                      float(lab.a), float(lab.b))));
        sum += d.back();
    }
    std::sort(d.begin(), d.end());
    QCOMPARE(lines.at(1), QStringLiteral("pixels 171"));
    const double mean = lines.at(2).section(QLatin1Char(' '), 1).toDouble();
    const double p95 = lines.at(3).section(QLatin1Char(' '), 1).toDouble();
    QVERIFY(lines.at(2).startsWith(QLatin1String("spread-mean ")));
    QVERIFY(lines.at(3).startsWith(QLatin1String("spread-p95 ")));
    QVERIFY2(std::fabs(mean - sum / 171.0) < 0.00051, qPrintable(lines.at(2)));
    QVERIFY2(std::fabs(p95 - d[size_t(std::ceil(0.95 * 171)) - 1]) < 0.00011, qPrintable(lines.at(3)));
    QVERIFY(p95 > 5.0);
    QCOMPARE(lines.at(3).section(QLatin1Char('.'), 1).size(), 4);
}

void TestCliInsight::statsOfAUniformClickAreZero()
{
    QImage image(12, 12, QImage::Format_RGB32);
    image.fill(qRgb(90, 140, 60));
    const QString file = path("flat.png");
    QVERIFY(image.save(file));
    const CliRunner::Result run =
        CliRunner::run({"sample", file, "--point", "5,5", "--size", "9", "--stats"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines().mid(1), (QStringList{"pixels 81", "spread-mean 0.0000",
                                                 "spread-p95 0.0000"}));
}

void TestCliInsight::statsComeBeforeTheMatchRows()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    const QString file = path("grey.png");
    QVERIFY(image.save(file));
    const CliRunner::Result run = CliRunner::run(
        {"sample", file, "--point", "1,1", "--stats", "--table", greysTable(), "--count", "1"});
    QCOMPARE(run.exitCode, 0);
    const QStringList lines = run.outLines();
    QCOMPARE(lines.mid(1, 3), (QStringList{"pixels 1", "spread-mean 0.0000", "spread-p95 0.0000"}));
    QVERIFY(lines.at(4).startsWith(QLatin1String("rank\tname")));
}

QString TestCliInsight::taggedImage(const QString &name, const char *format, QRgb colour,
                                    QColorSpace::NamedColorSpace space)
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(colour);
    image.setColorSpace(QColorSpace(space));
    const QString file = path(name);
    return image.save(file, format, 100) ? file : QString();
}

// The stored bytes are read back without conversion, and the conversion of
// those bytes, worked out here from the primaries, is what --srgb must give.
void TestCliInsight::verifySrgb(const QString &file, const Matrix &toXyz, double (*decode)(double))
{
    QVERIFY(!file.isEmpty());
    QImage stored(file);
    QVERIFY(stored.colorSpace().isValid());
    QVERIFY(stored.colorSpace() != QColorSpace(QColorSpace::SRgb));
    const QVector<int> expected = toSrgb(stored.pixel(5, 5), toXyz, decode);
    const CliRunner::Result run = CliRunner::run({"sample", file, "--point", "5,5", "--srgb"});
    QCOMPARE(run.exitCode, 0);
    const QVector<int> actual = bytesOf(run.outLines().first());
    QVERIFY2(near(actual, expected, 2), qPrintable(show(actual) + " vs " + show(expected)));
    // The conversion moved it well away from the stored numbers.
    const QRgb raw = stored.pixel(5, 5);
    QVERIFY(!near(actual, {qRed(raw), qGreen(raw), qBlue(raw)}, 4));
}

void TestCliInsight::srgbConvertsTaggedImages_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("space");
    QTest::newRow("Display P3 PNG") << "p3.png" << QByteArray("PNG") << int(QColorSpace::DisplayP3);
    QTest::newRow("Adobe RGB PNG") << "adobe.png" << QByteArray("PNG") << int(QColorSpace::AdobeRgb);
    QTest::newRow("Display P3 JPEG") << "p3.jpg" << QByteArray("JPEG") << int(QColorSpace::DisplayP3);
    QTest::newRow("Adobe RGB JPEG") << "adobe.jpg" << QByteArray("JPEG") << int(QColorSpace::AdobeRgb);
}

void TestCliInsight::srgbConvertsTaggedImages()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, format);
    QFETCH(int, space);
    const bool p3 = space == QColorSpace::DisplayP3;
    const QRgb colour = p3 ? qRgb(200, 100, 50) : qRgb(60, 170, 90);
    verifySrgb(taggedImage(fileName, format.constData(), colour,
                           QColorSpace::NamedColorSpace(space)),
               p3 ? kDisplayP3ToXyz : kAdobeRgbToXyz, p3 ? srgbDecode : adobeDecode);
}

void TestCliInsight::withoutSrgbTaggedPixelsAreReadAsStored()
{
    const QString file = taggedImage("p3raw.png", "PNG", qRgb(200, 100, 50), QColorSpace::DisplayP3);
    const CliRunner::Result run = CliRunner::run({"sample", file, "--point", "5,5"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(bytesOf(run.outLines().first()), (QVector<int>{200, 100, 50}));
}

void TestCliInsight::srgbLeavesAnUntaggedImageAlone()
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    const QString file = path("plain.png");
    QVERIFY(image.save(file));
    const CliRunner::Result run = CliRunner::run({"sample", file, "--point", "2,2", "--srgb"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.outLines().first(), QStringLiteral("0.784314 0.392157 0.196078 #c86432"));
}

QTEST_GUILESS_MAIN(TestCliInsight)
#include "tst_cliinsight.moc"
