#include "colour/colourvision.h"

#include "colour/colourconversion.h"

#include <algorithm>
#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// The encoded byte of a linear value v is looked up at sqrt(v) in steps of
// 1 / kSteps: in the square root the steps are fine where the encoding is
// steep (near black) and the table is 4 KB, small enough for the
// first-level cache beside the products. The encoded value moves by less
// than 0.1 of a byte from one step to the next anywhere.
const int kSteps = 1 << 12;

const CvdMatrices::Matrix kIdentity{{1, 0, 0, 0, 1, 0, 0, 0, 1}};
// The luminance weights of linear sRGB, as rows for all three channels.
const CvdMatrices::Matrix kLuminance{
    {0.2126, 0.7152, 0.0722, 0.2126, 0.7152, 0.0722, 0.2126, 0.7152, 0.0722}};

double clampedUnit(double c)
{
    return std::isnan(c) ? 0.0 : std::clamp(c, 0.0, 1.0);
}

CvdMatrices::Deficiency deficiencyOf(ColourVision::Type type)
{
    switch (type) {
    case ColourVision::Deuteranopia:
    case ColourVision::Deuteranomaly:
        return CvdMatrices::Deutan;
    case ColourVision::Tritanopia:
    case ColourVision::Tritanomaly:
        return CvdMatrices::Tritan;
    default:
        break;
    }
    return CvdMatrices::Protan;
}

// One pixel through the tables (see m_columns and m_encode), written out
// where the loop over a row can take it in: a call per pixel would cost as
// much as the pixel.
inline QRgb simulatedPixel(const float *columns, const uint8_t *encode, QRgb pixel)
{
    const float *red = columns + size_t(qRed(pixel)) * 4;
    const float *green = columns + (256 + size_t(qGreen(pixel))) * 4;
    const float *blue = columns + (512 + size_t(qBlue(pixel))) * 4;
    uint out[3];
#if defined(__SSE2__)
    __m128 sum = _mm_add_ps(_mm_add_ps(_mm_loadu_ps(red), _mm_loadu_ps(green)), _mm_loadu_ps(blue));
    sum = _mm_min_ps(_mm_max_ps(sum, _mm_setzero_ps()), _mm_set1_ps(1.0f));
    // Rounded to the nearest step, as the portable path below.
    const __m128i steps =
        _mm_cvtps_epi32(_mm_mul_ps(_mm_sqrt_ps(sum), _mm_set1_ps(float(kSteps))));
    out[0] = encode[_mm_cvtsi128_si32(steps)];
    out[1] = encode[_mm_cvtsi128_si32(_mm_srli_si128(steps, 4))];
    out[2] = encode[_mm_cvtsi128_si32(_mm_srli_si128(steps, 8))];
#else
    for (size_t i = 0; i < 3; ++i) {
        const float v = std::clamp(red[i] + green[i] + blue[i], 0.0f, 1.0f);
        out[i] = encode[size_t(std::lround(std::sqrt(v) * kSteps))];
    }
#endif
    return (uint(qAlpha(pixel)) << 24) | (out[0] << 16) | (out[1] << 8) | out[2];
}

} // namespace

ColourVision::ColourVision(Type type, double severity)
    : m_type(type < Normal || type >= TypeCount ? Normal : type),
      m_severity(std::isnan(severity) ? kMaximumSeverity
                                      : std::clamp(severity, kMinimumSeverity, kMaximumSeverity))
{
    if (!hasSeverity())
        m_severity = kMaximumSeverity;
    m_matrix = matrixFor(m_type, m_severity);
    buildTables();
}

CvdMatrices::Matrix ColourVision::matrixFor(Type type, double severity)
{
    if (type == Normal)
        return kIdentity;
    if (type == Achromatopsia)
        return kLuminance;
    const CvdMatrices::Deficiency deficiency = deficiencyOf(type);
    if (!hasSeverity(type))
        return CvdMatrices::matrix(deficiency, 10);
    // Between the published tenths, a straight line; severity 0 would be the
    // identity, but the setting starts at 0.1.
    const double tenths = severity * 10.0;
    const int lower = std::clamp(int(std::floor(tenths + 1e-9)), 1, 10);
    const double part = std::clamp(tenths - lower, 0.0, 1.0);
    const CvdMatrices::Matrix &a = CvdMatrices::matrix(deficiency, lower);
    const CvdMatrices::Matrix &b = CvdMatrices::matrix(deficiency, std::min(lower + 1, 10));
    CvdMatrices::Matrix m;
    for (size_t i = 0; i < m.size(); ++i)
        m[i] = part < 1e-9 ? a[i] : a[i] + (b[i] - a[i]) * part;
    return m;
}

void ColourVision::buildTables()
{
    for (size_t v = 0; v < 256; ++v) {
        const double linear = srgbLinearise(double(v) / 255.0);
        for (size_t j = 0; j < 3; ++j) {
            for (size_t i = 0; i < 3; ++i)
                m_columns[(256 * j + v) * 4 + i] = float(m_matrix[3 * i + j] * linear);
        }
    }
    m_encode.resize(size_t(kSteps) + 1);
    for (int i = 0; i <= kSteps; ++i) {
        const double root = double(i) / kSteps;
        const double encoded = srgbCompand(root * root);
        m_encode[size_t(i)] = uint8_t(std::lround(std::clamp(encoded, 0.0, 1.0) * 255.0));
    }
}

RgbColour ColourVision::simulate(const RgbColour &colour) const
{
    const double in[3] = {srgbLinearise(clampedUnit(colour.red)),
                          srgbLinearise(clampedUnit(colour.green)),
                          srgbLinearise(clampedUnit(colour.blue))};
    double out[3];
    for (int i = 0; i < 3; ++i) {
        const double v = m_matrix[size_t(3 * i)] * in[0] + m_matrix[size_t(3 * i + 1)] * in[1] +
                         m_matrix[size_t(3 * i + 2)] * in[2];
        out[i] = srgbCompand(std::clamp(v, 0.0, 1.0));
    }
    return {out[0], out[1], out[2]};
}

QRgb ColourVision::simulatePixel(QRgb pixel) const
{
    return simulatedPixel(m_columns.data(), m_encode.data(), pixel);
}

void ColourVision::simulatePixels(const QRgb *in, QRgb *out, int count) const
{
    const float *columns = m_columns.data();
    const uint8_t *encode = m_encode.data();
    // Pictures hold runs of one colour: the last result is reused for them.
    QRgb lastIn = 0;
    QRgb lastOut = simulatedPixel(columns, encode, 0);
    for (int i = 0; i < count; ++i) {
        const QRgb pixel = in[i];
        if (pixel != lastIn) {
            lastIn = pixel;
            lastOut = simulatedPixel(columns, encode, pixel);
        }
        out[i] = lastOut;
    }
}

QImage ColourVision::simulatedImage(const QImage &image) const
{
    if (isNormal() || image.isNull())
        return image;
    QImage source = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32
                                                                  : QImage::Format_RGB32);
    QImage result(source.size(), source.format());
    if (result.isNull())
        return QImage();
    result.setDevicePixelRatio(image.devicePixelRatio());
    for (int y = 0; y < source.height(); ++y) {
        simulatePixels(reinterpret_cast<const QRgb *>(source.constScanLine(y)),
                       reinterpret_cast<QRgb *>(result.scanLine(y)), source.width());
    }
    return result;
}

bool ColourVision::hasSeverity(Type type)
{
    return type == Protanomaly || type == Deuteranomaly || type == Tritanomaly;
}

QStringList ColourVision::keys()
{
    QStringList all;
    for (int t = Normal; t < TypeCount; ++t)
        all << key(Type(t));
    return all;
}

QString ColourVision::key(Type type)
{
    static const char *const kKeys[TypeCount] = {
        "normal",       "protanopia",  "deuteranopia",  "tritanopia",
        "achromatopsia", "protanomaly", "deuteranomaly", "tritanomaly"};
    return QLatin1String(kKeys[type < Normal || type >= TypeCount ? Normal : type]);
}

bool ColourVision::fromKey(const QString &text, Type *type)
{
    const int index = keys().indexOf(text.trimmed().toLower());
    if (index < 0)
        return false;
    *type = Type(index);
    return true;
}

QString ColourVision::title(Type type)
{
    switch (type) {
    case Protanopia:
        return QStringLiteral("Protanopia (no red cones)");
    case Deuteranopia:
        return QStringLiteral("Deuteranopia (no green cones)");
    case Tritanopia:
        return QStringLiteral("Tritanopia (no blue cones)");
    case Achromatopsia:
        return QStringLiteral("Achromatopsia (no colour)");
    case Protanomaly:
        return QStringLiteral("Protanomaly (weak red)");
    case Deuteranomaly:
        return QStringLiteral("Deuteranomaly (weak green)");
    case Tritanomaly:
        return QStringLiteral("Tritanomaly (weak blue)");
    default:
        break;
    }
    return QStringLiteral("Normal");
}

QString ColourVision::description() const
{
    QString text = key(m_type);
    text[0] = text.at(0).toUpper();
    if (hasSeverity())
        text += QLatin1Char(' ') + QString::number(m_severity, 'f', 1);
    return text;
}
