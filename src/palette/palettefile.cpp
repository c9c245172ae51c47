#include "palette/palettefile.h"

#include "palette/asepalette.h"
#include "palette/csspalette.h"
#include "palette/gplpalette.h"
#include "palette/jsonpalette.h"
#include "tables/colourtable.h"
#include "tables/libcolourtable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CPaletteFile", text);
}

const char *const kNames[] = {"", "clrtable", "txt", "gpl", "ase", "css", "json"};

// A table's text read with the table reader itself, so that its rules
// (Latin-1 lines, comments, collapsed blanks) hold here too.
CPaletteReadResult parseTable(const QString &path)
{
    CLibColourTable table;
    const CColourTable::LoadResult loaded = table.load(path);
    if (loaded.status == CColourTable::CannotOpen)
        return CPaletteReadResult::cannotOpen(QString());
    if (loaded.status == CColourTable::BadLine) {
        return CPaletteReadResult::badPart(translated("line"), loaded.lineNumber,
                                           translated("a colour line is \"R, G, B, name\" with "
                                                      "numbers written with \".\"."));
    }
    return CPaletteReadResult::ok(CPaletteFile::fromTable(table));
}

} // namespace

CPaletteFile::Format CPaletteFile::formatForPath(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("csv"))
        return DataSet;
    return formatForName(suffix);
}

CPaletteFile::Format CPaletteFile::formatForName(const QString &name)
{
    const QString lower = name.toLower();
    if (lower == QLatin1String("csv"))
        return DataSet;
    for (int f = ColourTable; f <= Json; ++f) {
        if (lower == QLatin1String(kNames[f]))
            return Format(f);
    }
    return Unknown;
}

QStringList CPaletteFile::formatNames()
{
    return {QStringLiteral("clrtable"), QStringLiteral("txt"), QStringLiteral("csv"),
            QStringLiteral("gpl"),      QStringLiteral("ase"), QStringLiteral("css"),
            QStringLiteral("json")};
}

QString CPaletteFile::suffix(Format format)
{
    return QLatin1String(kNames[format]);
}

CPaletteReadResult CPaletteFile::read(const QString &path, Format format)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return CPaletteReadResult::cannotOpen(file.errorString());
    if (file.size() > kMaximumSize) {
        return CPaletteReadResult::notThisFormat(translated("a palette"),
                                                 translated("it is larger than 64 MiB."));
    }
    if (format == ColourTable || format == DataSet) {
        file.close();
        return parseTable(path);
    }
    return parse(file.readAll(), format);
}

CPaletteReadResult CPaletteFile::parse(const QByteArray &bytes, Format format)
{
    switch (format) {
    case Gpl:
        return CGplPalette::read(bytes);
    case Ase:
        return CAsePalette::read(bytes);
    case Css:
        return CCssPalette::read(bytes);
    case Json:
        return CJsonPalette::read(bytes);
    default:
        break;
    }
    return CPaletteReadResult::notThisFormat(translated("a palette"),
                                             translated("its format is not known."));
}

QByteArray CPaletteFile::serialise(const CPalette &palette, Format format)
{
    switch (format) {
    case Gpl:
        return CGplPalette::write(palette);
    case Ase:
        return CAsePalette::write(palette);
    case Css:
        return CCssPalette::write(palette);
    case Json:
        return CJsonPalette::write(palette);
    default:
        break;
    }
    CLibColourTable table;
    toTable(palette, &table);
    return table.serialise();
}

bool CPaletteFile::write(const QString &path, Format format, const CPalette &palette,
                         QString *errorText)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        if (errorText)
            *errorText = translated("Cannot create the folder %1.").arg(folder);
        return false;
    }
    return CColourTable::writeFileSafely(path, serialise(palette, format), errorText);
}

CPalette CPaletteFile::fromTable(const CColourTable &table)
{
    CPalette palette;
    palette.name = QFileInfo(table.filePath()).completeBaseName();
    for (const CColourTableEntry *e : table.entries())
        palette.colours.append({e->name, {e->red, e->green, e->blue}});
    return palette;
}

void CPaletteFile::toTable(const CPalette &palette, CColourTable *table)
{
    for (const PaletteColour &c : palette.colours) {
        // A table holds one colour a line.
        QString name = c.name;
        name.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
        table->add(std::make_unique<CColourTableEntry>(name, c.rgb.red, c.rgb.green, c.rgb.blue));
    }
}

QStringList CPaletteFile::writeNotes(const CPalette &palette, Format format)
{
    QStringList notes;
    const bool table = format == ColourTable || format == DataSet;
    for (const PaletteColour &c : palette.colours) {
        if (table && c.name.contains(QLatin1Char('#'))) {
            notes.append(translated("\"%1\": a colour table reads the name only up to its "
                                    "\"#\".").arg(c.name));
        } else if (!table && CPalette::outOfRange(c.rgb)) {
            notes.append(translated("\"%1\": components outside 0 to 1 are written as 0 or 1.")
                             .arg(c.name));
        }
    }
    return notes;
}
