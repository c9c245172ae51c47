#include "colour/colourprofile.h"

#include <QCoreApplication>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("CColourProfile", text);
}

} // namespace

bool CColourProfile::needsConversion(const QImage &image)
{
    const QColorSpace space = image.colorSpace();
    return !image.isNull() && space.isValid() && space != QColorSpace(QColorSpace::SRgb);
}

QString CColourProfile::name(const QColorSpace &space)
{
    using TF = QColorSpace::TransferFunction;
    switch (space.primaries()) {
    case QColorSpace::Primaries::DciP3D65:
        if (space.transferFunction() == TF::SRgb)
            return tr("Display P3");
        break;
    case QColorSpace::Primaries::AdobeRgb:
        return tr("Adobe RGB");
    case QColorSpace::Primaries::ProPhotoRgb:
        return tr("ProPhoto RGB");
    case QColorSpace::Primaries::SRgb:
        if (space.transferFunction() == TF::Linear)
            return tr("linear sRGB");
        break;
    case QColorSpace::Primaries::Custom:
        break;
    }
    return tr("a custom profile");
}

QString CColourProfile::convertToSrgb(QImage *image)
{
    if (image == nullptr || !needsConversion(*image))
        return QString();
    const QString from = name(image->colorSpace());
    const QImage::Format f = image->format();
    if (f != QImage::Format_RGB32 && f != QImage::Format_ARGB32
        && f != QImage::Format_ARGB32_Premultiplied) {
        *image = image->convertToFormat(image->hasAlphaChannel() ? QImage::Format_ARGB32
                                                                 : QImage::Format_RGB32);
    }
    image->convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    return from;
}
