#include "cli/clicontrastgrid.h"

#include "cli/cliconvertcommand.h"
#include "cli/clioutput.h"
#include "colour/wcagcontrast.h"
#include "palette/palettefile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace {

// A name stays in its cell: tabs and line breaks become spaces.
QString cellText(const QString &name)
{
    QString text = name;
    for (QChar &c : text) {
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            c = QLatin1Char(' ');
    }
    return text;
}

} // namespace

CCliStatus CCliContrastGrid::run(const QString &path, bool asJson)
{
    const CPaletteFile::Format format = CPaletteFile::formatForPath(path);
    if (format == CPaletteFile::Unknown) {
        return CCliStatus::usage(QStringLiteral("cannot tell the format of %1 from its suffix (%2)")
                                     .arg(path, CPaletteFile::formatNames().join(QLatin1Char('|'))));
    }
    CPalette palette;
    const CCliStatus status = CCliConvertCommand::readInput(path, format, &palette);
    if (status.failed())
        return status;
    if (palette.colours.isEmpty())
        return CCliStatus::badInput(QStringLiteral("%1 holds no colours").arg(path));
    if (asJson)
        CCliOutput::line(QString::fromUtf8(json(palette)));
    else
        CCliOutput::line(tsv(palette));
    return CCliStatus::ok();
}

QString CCliContrastGrid::tsv(const CPalette &palette)
{
    QStringList header{QStringLiteral("colour"), QStringLiteral("name")};
    for (const PaletteColour &colour : palette.colours)
        header << CPalette::hex(colour.rgb);
    QStringList lines{header.join(QLatin1Char('\t'))};
    for (const PaletteColour &row : palette.colours) {
        QStringList cells{CPalette::hex(row.rgb), cellText(row.name)};
        for (const PaletteColour &column : palette.colours)
            cells << WcagContrast::ratioText(WcagContrast::ratio(row.rgb, column.rgb));
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

QByteArray CCliContrastGrid::json(const CPalette &palette)
{
    QJsonArray colours;
    QJsonArray ratios;
    for (const PaletteColour &row : palette.colours) {
        colours.append(QJsonObject{{QStringLiteral("hex"), CPalette::hex(row.rgb)},
                                   {QStringLiteral("name"), row.name}});
        QJsonArray cells;
        for (const PaletteColour &column : palette.colours)
            cells.append(WcagContrast::truncatedRatio(WcagContrast::ratio(row.rgb, column.rgb)));
        ratios.append(cells);
    }
    const QJsonObject object{{QStringLiteral("colours"), colours}, {QStringLiteral("ratios"), ratios}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}
