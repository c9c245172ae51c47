#pragma once

#include <QColorSpace>
#include <QImage>
#include <QString>

// Images that carry an embedded colour profile (phones tag Display P3,
// cameras Adobe RGB) hold numbers that mean other colours than the same
// numbers in sRGB. These helpers say whether an image is such a one and turn
// its pixels into sRGB, so that picking reads the colours the photograph
// shows rather than the numbers it stores.
class CColourProfile
{
public:
    // True when the image has a valid colour space that is not sRGB.
    static bool needsConversion(const QImage &image);
    // A name for the user: "Display P3", "Adobe RGB", "ProPhoto RGB",
    // "linear sRGB", or "a custom profile" for anything else.
    static QString name(const QColorSpace &space);
    // Converts the image to sRGB in place when it needs it and returns the
    // name of the profile it was converted from; otherwise leaves it alone
    // and returns a null string. Indexed and other narrow formats become
    // 32-bit first, as colour conversion works on 32-bit pixels.
    static QString convertToSrgb(QImage *image);
};
