#include "cli/clicontrastcommand.h"

#include "cli/clicontrastformatter.h"
#include "cli/clicontrastgrid.h"
#include "cli/clicontrastline.h"
#include "cli/clilinereader.h"
#include "cli/clinumbers.h"
#include "cli/clioutput.h"

CCliStatus CCliContrastCommand::run(const QStringList &words, std::FILE *input)
{
    CCliArguments args;
    CCliStatus status =
        args.parse(words, {{QStringLiteral("format"), true}, {QStringLiteral("grid"), true}});
    QString format;
    if (!status.failed()) {
        status = args.choice(QStringLiteral("format"), {QStringLiteral("tsv"), QStringLiteral("json")},
                             QStringLiteral("tsv"), &format);
    }
    if (status.failed())
        return status;
    const bool json = format == QLatin1String("json");
    const QStringList &positionals = args.positionals();
    if (args.has(QStringLiteral("grid"))) {
        if (!positionals.isEmpty())
            return CCliStatus::usage(QStringLiteral("contrast --grid TABLE takes no colours"));
        return CCliContrastGrid::run(args.value(QStringLiteral("grid")), json);
    }
    if (positionals == QStringList(QStringLiteral("-")))
        return runBatch(input, json);
    if (positionals.size() != 2) {
        return CCliStatus::usage(QStringLiteral("contrast needs FG and BG, - to read pairs from "
                                                "standard input, or --grid TABLE (got %1 "
                                                "arguments)")
                                     .arg(positionals.size()));
    }
    return runPair(positionals, json);
}

CCliStatus CCliContrastCommand::runPair(const QStringList &colours, bool json)
{
    RgbColour foreground;
    RgbColour background;
    CCliStatus status = CCliNumbers::anyColour(colours.at(0), &foreground);
    if (!status.failed())
        status = CCliNumbers::anyColour(colours.at(1), &background);
    if (status.failed())
        return status;
    if (json) {
        CCliOutput::line(QString::fromUtf8(CCliContrastFormatter::jsonObject(foreground, background)));
    } else {
        CCliOutput::line(CCliContrastFormatter::tsvHeader());
        CCliOutput::line(CCliContrastFormatter::tsvRow(foreground, background));
    }
    return CCliStatus::ok();
}

CCliStatus CCliContrastCommand::runBatch(std::FILE *input, bool json)
{
    if (!json)
        CCliOutput::line(QStringLiteral("line\t") + CCliContrastFormatter::tsvHeader());
    CCliLineReader reader(input);
    QByteArray line;
    for (;;) {
        const CCliLineReader::Result result = reader.next(&line);
        if (result != CCliLineReader::Line) {
            return reader.stopStatus(result);
        }
        const CCliStatus status = batchLine(reader, line, json);
        if (status.failed())
            return status;
    }
}

CCliStatus CCliContrastCommand::batchLine(const CCliLineReader &reader, const QByteArray &line,
                                          bool json)
{
    QStringList words;
    const bool isPair = CCliContrastLine::pairWords(line, &words);
    if (words.isEmpty())
        return CCliStatus::ok();
    const int number = reader.lineNumber();
    if (!isPair) {
        return CCliStatus::badInput(
            QStringLiteral("line %1: expected two colours, found %2 words").arg(number).arg(words.size()));
    }
    RgbColour foreground;
    RgbColour background;
    CCliStatus status = CCliNumbers::anyColour(words.at(0), &foreground);
    if (!status.failed())
        status = CCliNumbers::anyColour(words.at(1), &background);
    if (status.failed())
        return CCliStatus::badInput(QStringLiteral("line %1: %2").arg(number).arg(status.message()));
    if (json)
        CCliOutput::line(QString::fromUtf8(CCliContrastFormatter::jsonObject(foreground, background, number)));
    else
        CCliOutput::line(QString::number(number) + QLatin1Char('\t') +
                         CCliContrastFormatter::tsvRow(foreground, background));
    return CCliStatus::ok();
}
