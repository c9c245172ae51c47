#include "cli/clicontrastgrid.h"

#include "cli/cliconvertcommand.h"
#include "cli/clioutput.h"
#include "palette/contrastgrid.h"
#include "colour/wcagcontrast.h"
#include "palette/palettefile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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
    return ContrastGrid(palette.colours).tsv();
}

QByteArray CCliContrastGrid::json(const CPalette &palette)
{
    const ContrastGrid grid(palette.colours);
    QJsonArray colours;
    QJsonArray ratios;
    for (int row = 0; row < grid.size(); ++row) {
        colours.append(QJsonObject{{QStringLiteral("hex"), CPalette::hex(grid.colour(row).rgb)},
                                   {QStringLiteral("name"), grid.colour(row).name}});
        QJsonArray cells;
        for (int column = 0; column < grid.size(); ++column)
            cells.append(WcagContrast::truncatedRatio(grid.ratio(row, column)));
        ratios.append(cells);
    }
    const QJsonObject object{{QStringLiteral("colours"), colours}, {QStringLiteral("ratios"), ratios}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}
