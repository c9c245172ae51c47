#pragma once

#include "colour/cvdmatrices.h"
#include "colour/rgbcolour.h"

#include <QImage>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <array>
#include <cstdint>
#include <vector>

// How a colour or a picture looks to someone with a colour vision
// deficiency: the matrices of Machado, Oliveira & Fernandes (2009) applied
// to linear sRGB (decode, matrix, clamp, encode; applying them to the
// encoded values is a common mistake that darkens the result), or for
// achromatopsia the linear luminance on all three channels.
//
// Two paths give the same picture: simulate() for one colour in double
// precision, and simulatePixels()/simulatedImage() for whole rows through
// tables worked out once per setting, for the view that repaints at every
// scroll.
class ColourVision
{
public:
    enum Type
    {
        Normal,
        Protanopia,
        Deuteranopia,
        Tritanopia,
        Achromatopsia,
        Protanomaly,
        Deuteranomaly,
        Tritanomaly,
        TypeCount
    };

    static constexpr double kMinimumSeverity = 0.1;
    static constexpr double kMaximumSeverity = 1.0;

    // severity counts only for the three anomalies: 0.1 .. 1.0 (clamped),
    // between two published tenths the matrices are interpolated linearly.
    explicit ColourVision(Type type = Normal, double severity = kMaximumSeverity);

    Type type() const { return m_type; }
    double severity() const { return m_severity; }
    bool isNormal() const { return m_type == Normal; }
    bool hasSeverity() const { return hasSeverity(m_type); }

    // Components 0..1 (clamped first); the result is unrounded.
    RgbColour simulate(const RgbColour &colour) const;
    // 8-bit pixels through the tables: alpha is kept, each channel is the
    // exact result rounded to the nearest byte, give or take one.
    QRgb simulatePixel(QRgb pixel) const;
    void simulatePixels(const QRgb *in, QRgb *out, int count) const;
    // The picture as simulated, in ARGB32 (premultiplied alpha undone
    // first); a Normal setting gives the picture back unchanged.
    QImage simulatedImage(const QImage &image) const;

    // The matrix in use (identity for Normal; all rows the luminance for
    // achromatopsia).
    const CvdMatrices::Matrix &matrix() const { return m_matrix; }

    static bool hasSeverity(Type type);
    // "protanopia", ... for settings and the command line.
    static QString key(Type type);
    static bool fromKey(const QString &key, Type *type);
    static QStringList keys();
    // "Protanopia (no red cones)" and the like, for menus.
    static QString title(Type type);
    // The description with the severity for anomalies: "Deuteranomaly 0.6".
    QString description() const;

private:
    static CvdMatrices::Matrix matrixFor(Type type, double severity);
    void buildTables();

    Type m_type;
    double m_severity;
    CvdMatrices::Matrix m_matrix;
    // m_columns[(256 * j + v) * 4 + i]: m[i][j] times the linear value of
    // byte v: for one input channel the contributions
    // to the three outputs side by side (and a zero), so that a pixel is the
    // sum of three groups of four, added at once where the processor can.
    // 12 KB that stay in the first-level cache.
    alignas(16) std::array<float, 3 * 256 * 4> m_columns{};
    // The nearest encoded byte at steps of the square root of linear values.
    std::vector<uint8_t> m_encode;
};
