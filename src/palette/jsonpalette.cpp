#include "palette/jsonpalette.h"

#include "colour/colourconversion.h"
#include "palette/csscolourvalue.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

#include <cmath>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CJsonPalette", text);
}

int lineOf(const QByteArray &bytes, int offset)
{
    return int(bytes.left(offset).count('\n')) + 1;
}

double fourDecimals(double v)
{
    return roundToFourDecimals(v);
}

} // namespace

CPaletteReadResult CJsonPalette::read(const QByteArray &bytes)
{
    const QString formatName = translated("a JSON colour list");
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        const QByteArray start = bytes.trimmed().left(1);
        if (start != "[" && start != "{")
            return CPaletteReadResult::notThisFormat(formatName, translated("it is not JSON."));
        return CPaletteReadResult::badPart(translated("line"), lineOf(bytes, error.offset),
                                           error.errorString() + QLatin1Char('.'));
    }
    if (!document.isArray()) {
        return CPaletteReadResult::notThisFormat(
            formatName, translated("it does not hold an array of colours."));
    }
    CPalette palette;
    const QJsonArray array = document.array();
    for (int i = 0; i < array.size(); ++i) {
        PaletteColour colour;
        QString reason = translated("the entry is not an object.");
        if (!array.at(i).isObject() || !readEntry(array.at(i).toObject(), &colour, &reason))
            return CPaletteReadResult::badPart(translated("entry"), i + 1, reason);
        palette.colours.append(colour);
    }
    return CPaletteReadResult::ok(palette);
}

bool CJsonPalette::readEntry(const QJsonObject &object, PaletteColour *colour, QString *reason)
{
    const QJsonValue name = object.value(QStringLiteral("name"));
    if (!name.isUndefined() && !name.isString()) {
        *reason = translated("\"name\" is not text.");
        return false;
    }
    colour->name = name.toString();
    double v[3] = {0, 0, 0};
    if (object.contains(QStringLiteral("rgb"))) {
        if (!readTriple(object, QStringLiteral("rgb"), 0.0, 255.0, v, reason))
            return false;
        colour->rgb = {v[0] / 255.0, v[1] / 255.0, v[2] / 255.0};
        return true;
    }
    if (object.contains(QStringLiteral("hex"))) {
        if (readHex(object.value(QStringLiteral("hex")).toString(), &colour->rgb))
            return true;
        *reason = translated("\"hex\" is not a colour written as \"#rrggbb\".");
        return false;
    }
    if (object.contains(QStringLiteral("lab"))) {
        if (!readTriple(object, QStringLiteral("lab"), -1000.0, 1000.0, v, reason))
            return false;
        colour->rgb = labToRgb(v[0], v[1], v[2]);
        return true;
    }
    *reason = translated("the entry has no \"rgb\", \"hex\" or \"lab\".");
    return false;
}

bool CJsonPalette::readTriple(const QJsonObject &object, const QString &key, double min,
                              double max, double values[3], QString *reason)
{
    const QJsonArray array = object.value(key).toArray();
    bool ok = object.value(key).isArray() && array.size() == 3;
    for (int i = 0; ok && i < 3; ++i) {
        values[i] = array.at(i).toDouble(std::nan(""));
        ok = array.at(i).isDouble() && values[i] >= min && values[i] <= max;
    }
    if (!ok) {
        *reason = translated("\"%1\" is not three numbers from %2 to %3.")
                      .arg(key)
                      .arg(min)
                      .arg(max);
    }
    return ok;
}

bool CJsonPalette::readHex(const QString &text, RgbColour *rgb)
{
    QVector<CCssColourValue::Found> found;
    QString reason;
    int offset = 0;
    if (!text.startsWith(QLatin1Char('#')) || text.size() > 9
        || !CCssColourValue::parse(text, &found, &reason, &offset) || found.size() != 1) {
        return false;
    }
    *rgb = found.first().rgb;
    return true;
}

QByteArray CJsonPalette::write(const CPalette &palette)
{
    QJsonArray array;
    for (const PaletteColour &c : palette.colours) {
        const LabColour lab = rgbToLab(c.rgb);
        QJsonObject object;
        object.insert(QStringLiteral("name"), c.name);
        object.insert(QStringLiteral("hex"), CPalette::hex(c.rgb));
        object.insert(QStringLiteral("rgb"),
                      QJsonArray{CPalette::toByte(c.rgb.red), CPalette::toByte(c.rgb.green),
                                 CPalette::toByte(c.rgb.blue)});
        object.insert(QStringLiteral("lab"), QJsonArray{fourDecimals(lab.L), fourDecimals(lab.a),
                                                        fourDecimals(lab.b)});
        array.append(object);
    }
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}
