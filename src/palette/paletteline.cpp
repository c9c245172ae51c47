#include "palette/paletteline.h"

#include <QLocale>

#include <cmath>

QVector<QString> CPaletteLine::split(const QByteArray &bytes)
{
    QByteArray text = bytes;
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    QVector<QString> lines;
    int start = 0;
    while (start < text.size()) {
        int end = text.indexOf('\n', start);
        const int next = end < 0 ? text.size() : end + 1;
        if (end < 0)
            end = text.size();
        int stop = end;
        if (stop > start && text.at(stop - 1) == '\r')
            --stop;
        lines.append(QString::fromUtf8(text.constData() + start, stop - start));
        start = next;
    }
    return lines;
}

bool CPaletteLine::wholeNumber(const QString &text, int min, int max, int *value)
{
    if (text.isEmpty() || text.size() > 9)
        return false;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    const int v = text.toInt();
    if (v < min || v > max)
        return false;
    *value = v;
    return true;
}

bool CPaletteLine::number(const QString &text, double *value)
{
    if (text.isEmpty() || text.at(0).isSpace() || text.at(text.size() - 1).isSpace())
        return false;
    bool ok = false;
    const double v = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(v))
        return false;
    *value = v;
    return true;
}

bool CPaletteLine::looksBinary(const QByteArray &bytes)
{
    return bytes.contains('\0');
}
