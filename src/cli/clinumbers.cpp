#include "cli/clinumbers.h"

#include <QRegularExpression>

#include <cmath>

namespace {

const int kByteMaximum = 255;

bool integerInRange(const QString &word, int minimum, int maximum, int *value)
{
    bool ok = false;
    const qlonglong number = word.trimmed().toLongLong(&ok, 10);
    if (!ok || number < minimum || number > maximum)
        return false;
    *value = int(number);
    return true;
}

// The word as the user typed it, but short and printable, so that an error
// about a huge or binary word still fits on one readable line.
QString quoted(const QString &word)
{
    const int kShown = 40;
    QString shown = word.left(kShown);
    for (QChar &c : shown) {
        if (!c.isPrint())
            c = QLatin1Char('?');
    }
    if (word.size() > kShown)
        shown += QStringLiteral("...");
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

RgbColour fromBytes(int red, int green, int blue)
{
    return {red / 255.0, green / 255.0, blue / 255.0};
}

} // namespace

CCliStatus CCliNumbers::toFinite(const QString &word, double *value)
{
    bool ok = false;
    // QString::toDouble always reads the C locale's notation.
    const double number = word.toDouble(&ok);
    if (!ok && !std::isinf(number))
        return CCliStatus::badInput(QStringLiteral("%1 is not a number").arg(quoted(word)));
    if (!std::isfinite(number))
        return CCliStatus::badInput(QStringLiteral("%1 is not a finite number").arg(quoted(word)));
    *value = number;
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::toFinites(const QStringList &words, QVector<double> *values)
{
    // Read into a list of our own: a caller's list is only replaced once
    // every word is a number, never left half-filled.
    QVector<double> parsed(words.size());
    for (int i = 0; i < words.size(); ++i) {
        const CCliStatus status = toFinite(words.at(i), &parsed[i]);
        if (status.failed())
            return status;
    }
    *values = parsed;
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::toInteger(const QString &word, int minimum, int maximum,
                                  const QString &what, int *value)
{
    if (!integerInRange(word, minimum, maximum, value)) {
        return CCliStatus::badInput(
            QStringLiteral("%1 must be a whole number from %2 to %3, not %4")
                .arg(what)
                .arg(minimum)
                .arg(maximum)
                .arg(quoted(word)));
    }
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::toIntegerList(const QString &text, int count, int minimum, int maximum,
                                      const QString &what, QVector<int> *values)
{
    const QStringList words = text.split(QLatin1Char(','));
    QVector<int> parsed(count);
    bool ok = words.size() == count;
    for (int i = 0; ok && i < count; ++i)
        ok = integerInRange(words.at(i), minimum, maximum, &parsed[i]);
    if (!ok) {
        return CCliStatus::badInput(
            QStringLiteral("%1 needs %2 whole numbers from %3 to %4 separated by commas, not %5")
                .arg(what)
                .arg(count)
                .arg(minimum)
                .arg(maximum)
                .arg(quoted(text)));
    }
    *values = parsed;
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::rgbBytes(const QString &text, RgbColour *colour)
{
    QVector<int> bytes;
    const CCliStatus status =
        toIntegerList(text, 3, 0, kByteMaximum, QStringLiteral("--rgb R,G,B"), &bytes);
    if (status.failed())
        return status;
    *colour = fromBytes(bytes.at(0), bytes.at(1), bytes.at(2));
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::hexColour(const QString &text, RgbColour *colour)
{
    static const QRegularExpression pattern(QStringLiteral("^#?([0-9a-fA-F]{6})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return CCliStatus::badInput(
            QStringLiteral("--hex needs six hexadecimal digits RRGGBB, not %1").arg(quoted(text)));
    }
    const uint rgb = match.captured(1).toUInt(nullptr, 16);
    *colour = fromBytes(int(rgb >> 16) & 0xff, int(rgb >> 8) & 0xff, int(rgb) & 0xff);
    return CCliStatus::ok();
}

CCliStatus CCliNumbers::anyColour(const QString &text, RgbColour *colour)
{
    const QString trimmed = text.trimmed();
    QVector<int> bytes;
    bool ok = false;
    if (trimmed.contains(QLatin1Char(','))) {
        const QStringList words = trimmed.split(QLatin1Char(','));
        bytes.resize(3);
        ok = words.size() == 3;
        for (int i = 0; ok && i < 3; ++i)
            ok = integerInRange(words.at(i), 0, kByteMaximum, &bytes[i]);
        if (ok)
            *colour = fromBytes(bytes.at(0), bytes.at(1), bytes.at(2));
    } else {
        ok = !hexColour(trimmed, colour).failed();
    }
    if (ok)
        return CCliStatus::ok();
    return CCliStatus::badInput(
        QStringLiteral("%1 is not a colour (#rrggbb, rrggbb or R,G,B with 0 to 255)")
            .arg(quoted(text)));
}
