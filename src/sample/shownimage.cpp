#include "sample/shownimage.h"

#include "app/appsettings.h"
#include "colour/colourprofile.h"

#include <QDir>
#include <QFileInfo>

void CShownImage::setFile(const QString &path)
{
    m_path = path;
    m_pasted = false;
    m_captured = false;
}

void CShownImage::setPasted()
{
    m_path.clear();
    m_pasted = true;
    m_captured = false;
}

void CShownImage::setScreenCapture()
{
    setPasted();
    m_captured = true;
}

QString CShownImage::title() const
{
    if (m_pasted)
        return (m_captured ? tr("Screen capture") : tr("Pasted image")) + QStringLiteral(" - ");
    if (m_path.isEmpty())
        return QString();
    const QFileInfo info(m_path);
    QString text = info.fileName();
    const QString folder = info.canonicalPath();
    if (!text.isEmpty() && !folder.isEmpty())
        text += QStringLiteral(" - ") + QDir::toNativeSeparators(folder);
    if (!text.isEmpty())
        text += QStringLiteral(" - ");
    return text;
}

QImage CShownImage::prepared(const QImage &image, QString *profileName) const
{
    if (m_settings == nullptr || !m_settings->convertToSrgb) {
        *profileName = QString();
        return image;
    }
    QImage converted = image;
    *profileName = CColourProfile::convertToSrgb(&converted);
    return converted;
}
