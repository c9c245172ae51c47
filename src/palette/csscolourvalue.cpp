#include "palette/csscolourvalue.h"

#include "palette/paletteline.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CCssColourValue", text);
}

bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_');
}

int hexDigit(QChar c)
{
    const ushort u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

// The position after a quoted string or url(...) starting at pos, or pos.
int skipQuotedOrUrl(const QString &value, int pos)
{
    const QChar c = value.at(pos);
    if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
        const int close = value.indexOf(c, pos + 1);
        return close < 0 ? value.size() : close + 1;
    }
    if (QStringView(value).mid(pos, 4).compare(QLatin1String("url("), Qt::CaseInsensitive) == 0
        && (pos == 0 || !isWordChar(value.at(pos - 1)))) {
        const int close = value.indexOf(QLatin1Char(')'), pos);
        return close < 0 ? value.size() : close + 1;
    }
    return pos;
}

// The length of "rgb(" or "rgba(" at pos, or 0.
int functionStart(const QString &value, int pos)
{
    if (pos > 0 && isWordChar(value.at(pos - 1)))
        return 0;
    if (QStringView(value).mid(pos, 5).compare(QLatin1String("rgba("), Qt::CaseInsensitive) == 0)
        return 5;
    if (QStringView(value).mid(pos, 4).compare(QLatin1String("rgb("), Qt::CaseInsensitive) == 0)
        return 4;
    return 0;
}

} // namespace

bool CCssColourValue::parse(const QString &value, QVector<Found> *found, QString *reason,
                            int *offset)
{
    int pos = 0;
    while (pos < value.size()) {
        const int skipped = skipQuotedOrUrl(value, pos);
        if (skipped != pos) {
            pos = skipped;
            continue;
        }
        Found colour;
        colour.offset = pos;
        int end = pos + 1;
        bool ok = true;
        if (value.at(pos) == QLatin1Char('#')) {
            while (end < value.size() && isWordChar(value.at(end)))
                ++end;
            ok = hexColour(value.mid(pos + 1, end - pos - 1), &colour);
        } else if (const int length = functionStart(value, pos)) {
            const int close = value.indexOf(QLatin1Char(')'), pos + length);
            end = close < 0 ? value.size() : close + 1;
            ok = close >= 0 && functionColour(value.mid(pos + length, close - pos - length), &colour);
        } else {
            ++pos;
            continue;
        }
        if (!ok) {
            *offset = pos;
            *reason = translated("\"%1\" is not a colour.").arg(value.mid(pos, end - pos).left(60));
            return false;
        }
        found->append(colour);
        pos = end;
    }
    return true;
}

bool CCssColourValue::hexColour(const QString &digits, Found *found)
{
    const int n = digits.size();
    if (n != 3 && n != 4 && n != 6 && n != 8)
        return false;
    uint value = 0;
    for (const QChar c : digits) {
        const int digit = hexDigit(c);
        if (digit < 0)
            return false;
        value = value * 16 + uint(digit);
    }
    const bool shortForm = n <= 4;
    const int bits = shortForm ? 4 : 8;
    const int alphaBits = (n == 4 || n == 8) ? bits : 0;
    const uint rgb = value >> alphaBits;
    const uint mask = (1u << bits) - 1;
    const double scale = shortForm ? 15.0 : 255.0;
    found->rgb = {((rgb >> (2 * bits)) & mask) / scale, ((rgb >> bits) & mask) / scale,
                  (rgb & mask) / scale};
    found->hadAlpha = alphaBits != 0;
    return true;
}

bool CCssColourValue::functionColour(const QString &arguments, Found *found)
{
    // Either commas throughout or blanks with "/" before the alpha value.
    static const QRegularExpression blanks(QStringLiteral("\\s*/\\s*|\\s+"));
    QStringList parts = arguments.contains(QLatin1Char(','))
                            ? arguments.split(QLatin1Char(','))
                            : arguments.trimmed().split(blanks);
    for (QString &part : parts)
        part = part.trimmed();
    if (parts.size() != 3 && parts.size() != 4)
        return false;
    double values[4] = {0, 0, 0, 0};
    for (int i = 0; i < parts.size(); ++i) {
        if (i == 3) {
            QString alpha = parts.at(3);
            if (alpha.endsWith(QLatin1Char('%')))
                alpha.chop(1);
            if (!CPaletteLine::number(alpha, &values[3]))
                return false;
        } else if (!channel(parts.at(i), &values[i])) {
            return false;
        }
    }
    found->rgb = {values[0], values[1], values[2]};
    found->hadAlpha = parts.size() == 4;
    return true;
}

bool CCssColourValue::channel(const QString &text, double *fraction)
{
    double v = 0.0;
    if (text.endsWith(QLatin1Char('%'))) {
        if (!CPaletteLine::number(text.left(text.size() - 1), &v) || v < 0.0 || v > 100.0)
            return false;
        *fraction = v / 100.0;
        return true;
    }
    if (!CPaletteLine::number(text, &v) || v < 0.0 || v > 255.0)
        return false;
    *fraction = v / 255.0;
    return true;
}
