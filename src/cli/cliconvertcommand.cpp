#include "cli/cliconvertcommand.h"

#include "cli/clioutput.h"
#include "cli/clitablecommands.h"
#include "tables/libcolourtable.h"

#include <QFileInfo>

CCliStatus CCliConvertCommand::run(const QStringList &words)
{
    CCliArguments args;
    CCliStatus status = args.parse(words, {{QStringLiteral("from"), true},
                                           {QStringLiteral("to"), true},
                                           {QStringLiteral("force"), false}});
    if (status.failed())
        return status;
    if (args.positionals().size() != 2) {
        return CCliStatus::usage(QStringLiteral("convert needs IN and OUT (got %1 arguments)")
                                     .arg(args.positionals().size()));
    }
    const QString in = args.positionals().at(0);
    const QString out = args.positionals().at(1);
    CPaletteFile::Format from = CPaletteFile::Unknown;
    CPaletteFile::Format to = CPaletteFile::Unknown;
    status = format(args, QStringLiteral("from"), in, &from);
    if (!status.failed())
        status = format(args, QStringLiteral("to"), out, &to);
    if (!status.failed() && QFileInfo::exists(out) && !args.has(QStringLiteral("force"))) {
        status = CCliStatus::usage(
            QStringLiteral("%1 already exists; give --force to replace it").arg(out));
    }
    CPalette palette;
    if (!status.failed())
        status = readInput(in, from, &palette);
    if (status.failed())
        return status;
    if (palette.name.isEmpty())
        palette.name = QFileInfo(in).completeBaseName();
    return writeOutput(out, to, palette);
}

CCliStatus CCliConvertCommand::format(const CCliArguments &args, const QString &option,
                                      const QString &path, CPaletteFile::Format *format)
{
    const QString names = CPaletteFile::formatNames().join(QLatin1Char('|'));
    if (args.has(option)) {
        *format = CPaletteFile::formatForName(args.value(option));
        if (*format != CPaletteFile::Unknown)
            return CCliStatus::ok();
        return CCliStatus::usage(QStringLiteral("--%1 must be one of %2, got \"%3\"")
                                     .arg(option, names, args.value(option).left(40)));
    }
    *format = CPaletteFile::formatForPath(path);
    if (*format != CPaletteFile::Unknown)
        return CCliStatus::ok();
    return CCliStatus::usage(QStringLiteral("cannot tell the format of %1 from its suffix; "
                                            "give --%2 %3")
                                 .arg(path, option, names));
}

CCliStatus CCliConvertCommand::readInput(const QString &path, CPaletteFile::Format format,
                                         CPalette *palette)
{
    if (format == CPaletteFile::ColourTable || format == CPaletteFile::DataSet) {
        // The same texts as every other command that reads a table.
        CLibColourTable table;
        const CCliStatus status = CCliTableCommands::loadTable(path, &table);
        if (!status.failed())
            *palette = CPaletteFile::fromTable(table);
        return status;
    }
    const CPaletteReadResult result = CPaletteFile::read(path, format);
    if (!result.isOk())
        return CCliStatus::badInput(result.message(path));
    *palette = result.palette();
    for (const QString &note : palette->notes)
        CCliOutput::error(QStringLiteral("note: ") + note);
    return CCliStatus::ok();
}

CCliStatus CCliConvertCommand::writeOutput(const QString &path, CPaletteFile::Format format,
                                           const CPalette &palette)
{
    QString error;
    if (!CPaletteFile::write(path, format, palette, &error))
        return CCliStatus::badInput(QStringLiteral("cannot write %1: %2").arg(path, error));
    for (const QString &note : CPaletteFile::writeNotes(palette, format))
        CCliOutput::error(QStringLiteral("note: ") + note);
    return CCliStatus::ok();
}
