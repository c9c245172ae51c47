#include "sample/imagedrop.h"

#include <QMimeData>
#include <QUrl>

QString CImageDrop::localFile(const QMimeData *mime)
{
    if (!mime)
        return QString();
    for (const QUrl &url : mime->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    // Some sources drop a file:// URL as plain text.
    const QUrl text(mime->text().trimmed(), QUrl::StrictMode);
    if (mime->hasText() && text.isLocalFile())
        return text.toLocalFile();
    return QString();
}

QString CImageDrop::describe(const QMimeData *mime)
{
    if (!mime)
        return QString();
    if (!mime->urls().isEmpty())
        return mime->urls().first().toDisplayString();
    const QString text = mime->text().trimmed();
    const QString firstLine = text.section(QLatin1Char('\n'), 0, 0);
    return firstLine.left(200);
}
