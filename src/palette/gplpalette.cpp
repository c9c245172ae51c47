#include "palette/gplpalette.h"

#include "palette/paletteline.h"

#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CGplPalette", text);
}

const QString kFormatName = QStringLiteral("a GIMP palette");

// The next blank-separated word from pos; pos ends after it.
QString nextWord(const QString &line, int *pos)
{
    int p = *pos;
    while (p < line.size() && (line.at(p) == QLatin1Char(' ') || line.at(p) == QLatin1Char('\t')))
        ++p;
    const int start = p;
    while (p < line.size() && line.at(p) != QLatin1Char(' ') && line.at(p) != QLatin1Char('\t'))
        ++p;
    *pos = p;
    return line.mid(start, p - start);
}

// Names live on one line in this format.
QString oneLine(const QString &text)
{
    QString out = text;
    out.replace(QLatin1Char('\r'), QLatin1Char(' '));
    out.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return out;
}

} // namespace

CPaletteReadResult CGplPalette::read(const QByteArray &bytes)
{
    const QVector<QString> lines = CPaletteLine::split(bytes);
    if (CPaletteLine::looksBinary(bytes) || lines.isEmpty()
        || lines.first().trimmed() != QLatin1String("GIMP Palette")) {
        return CPaletteReadResult::notThisFormat(
            kFormatName, translated("its first line is not \"GIMP Palette\"."));
    }
    CPalette palette;
    for (int i = 1; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        QString reason;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const bool ok = line.at(0).isDigit() ? readColourLine(line, &palette, &reason)
                                             : readHeaderLine(line, &palette, &reason);
        if (!ok)
            return CPaletteReadResult::badPart(translated("line"), i + 1, reason);
    }
    return CPaletteReadResult::ok(palette);
}

bool CGplPalette::readHeaderLine(const QString &line, CPalette *palette, QString *reason)
{
    if (line.startsWith(QLatin1String("Name:"))) {
        palette->name = line.mid(5).trimmed();
        return true;
    }
    if (line.startsWith(QLatin1String("Columns:"))) {
        int columns = 0;
        if (CPaletteLine::wholeNumber(line.mid(8).trimmed(), 0, 256, &columns))
            return true;
        *reason = translated("the number of columns must be a whole number from 0 to 256.");
        return false;
    }
    *reason = translated("a colour line starts with three numbers from 0 to 255.");
    return false;
}

bool CGplPalette::readColourLine(const QString &line, CPalette *palette, QString *reason)
{
    int pos = 0;
    int channels[3] = {0, 0, 0};
    for (int &channel : channels) {
        const QString word = nextWord(line, &pos);
        if (!CPaletteLine::wholeNumber(word, 0, 255, &channel)) {
            *reason = word.isEmpty()
                          ? translated("a colour needs three numbers from 0 to 255.")
                          : translated("\"%1\" is not a whole number from 0 to 255.")
                                .arg(word.left(40));
            return false;
        }
    }
    PaletteColour colour;
    colour.rgb = {CPalette::fromByte(channels[0]), CPalette::fromByte(channels[1]),
                  CPalette::fromByte(channels[2])};
    colour.name = line.mid(pos).trimmed();
    palette->colours.append(colour);
    return true;
}

QByteArray CGplPalette::write(const CPalette &palette)
{
    QString text = QStringLiteral("GIMP Palette\n");
    text += QStringLiteral("Name: %1\n").arg(oneLine(palette.name));
    text += QStringLiteral("Columns: 0\n#\n");
    for (const PaletteColour &c : palette.colours) {
        text += QStringLiteral("%1 %2 %3\t%4\n")
                    .arg(CPalette::toByte(c.rgb.red), 3)
                    .arg(CPalette::toByte(c.rgb.green), 3)
                    .arg(CPalette::toByte(c.rgb.blue), 3)
                    .arg(oneLine(c.name));
    }
    return text.toUtf8();
}
