#include "cli/clitablecommands.h"

#include "cli/cliarguments.h"
#include "cli/climatchbatch.h"
#include "cli/climatchformatter.h"
#include "cli/clinumbers.h"
#include "cli/clioutput.h"
#include "colour/colourconversion.h"
#include "colour/matchexplanation.h"
#include "tables/colourmatcher.h"
#include "tables/libcolourtable.h"
#include "tables/tablemessagetext.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <thread>

namespace {

const int kDefaultRowCount = 4;
const int kMaximumRowCount = 1000000;
const int kMaximumJobs = 1024;

// Every core of the machine, unless --jobs says otherwise.
int defaultJobs()
{
    return int(std::max(1u, std::thread::hardware_concurrency()));
}

CCliStatus parseMatchArguments(const QStringList &words, CCliArguments *args)
{
    CCliStatus status = args->parse(words, {{QStringLiteral("table"), true},
                                            {QStringLiteral("rgb"), true},
                                            {QStringLiteral("hex"), true},
                                            {QStringLiteral("count"), true},
                                            {QStringLiteral("format"), true},
                                            {QStringLiteral("explain"), false},
                                            {QStringLiteral("jobs"), true}});
    if (status.failed())
        return status;
    const bool batch = args->positionals() == QStringList(QStringLiteral("-"));
    if (!args->positionals().isEmpty() && !batch) {
        return CCliStatus::usage(
            QStringLiteral("match takes no arguments besides its options, got \"%1\"")
                .arg(args->positionals().first()));
    }
    if (!args->has(QStringLiteral("table")))
        return CCliStatus::usage(QStringLiteral("match needs --table FILE"));
    if (batch && (args->has(QStringLiteral("rgb")) || args->has(QStringLiteral("hex"))))
        return CCliStatus::usage(QStringLiteral("match - reads its colours from standard input, "
                                                "not from --rgb or --hex"));
    if (!batch && args->has(QStringLiteral("jobs")))
        return CCliStatus::usage(QStringLiteral("--jobs needs match -"));
    if (!batch && !args->has(QStringLiteral("rgb")) && !args->has(QStringLiteral("hex")))
        return CCliStatus::usage(QStringLiteral("match needs --rgb R,G,B or --hex RRGGBB"));
    return args->exclusive(QStringLiteral("rgb"), QStringLiteral("hex"));
}

CCliStatus sampleColour(const CCliArguments &args, RgbColour *sample)
{
    if (args.has(QStringLiteral("rgb")))
        return CCliNumbers::rgbBytes(args.value(QStringLiteral("rgb")), sample);
    return CCliNumbers::hexColour(args.value(QStringLiteral("hex")), sample);
}

} // namespace

CCliStatus CCliTableCommands::table(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status = args.parse(words, {});
    if (status.failed())
        return status;
    if (args.positionals().size() != 1) {
        return CCliStatus::usage(QStringLiteral("table needs one FILE (got %1 arguments)")
                                     .arg(args.positionals().size()));
    }
    CLibColourTable table;
    const CCliStatus loaded = loadTable(args.positionals().first(), &table);
    if (loaded.failed())
        return loaded;
    const QByteArray bytes = table.serialise();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    return CCliStatus::ok();
}

CCliStatus CCliTableCommands::match(const QStringList &words)
{
    CCliArguments args;
    CCliStatus status = parseMatchArguments(words, &args);
    QString format;
    if (!status.failed()) {
        status =
            args.choice(QStringLiteral("format"), {QStringLiteral("tsv"), QStringLiteral("json")},
                        QStringLiteral("tsv"), &format);
    }
    const bool batch = !args.positionals().isEmpty();
    // Batch rows have no room for a sentence each: refused, not dropped.
    if (!status.failed() && batch && args.has(QStringLiteral("explain")))
        status = CCliStatus::usage(QStringLiteral("--explain takes one colour, not a list from -"));
    RgbColour sample;
    if (!status.failed() && !batch)
        status = sampleColour(args, &sample);
    int count = kDefaultRowCount;
    if (!status.failed())
        status = rowCountOption(args.value(QStringLiteral("count")), &count);
    int jobs = defaultJobs();
    if (!status.failed() && args.has(QStringLiteral("jobs"))) {
        status = CCliNumbers::toInteger(args.value(QStringLiteral("jobs")), 1, kMaximumJobs,
                                        QStringLiteral("--jobs"), &jobs);
    }
    CLibColourTable table;
    if (!status.failed())
        status = loadTable(args.value(QStringLiteral("table")), &table);
    if (!status.failed() && batch)
        status = checkMatchable(table);
    if (status.failed())
        return status;
    if (batch)
        return CCliMatchBatch(table, count, format == QLatin1String("json"), jobs).run(stdin);
    return printMatch(table, sample, count, format == QLatin1String("json"),
                      args.has(QStringLiteral("explain")));
}

CCliStatus CCliTableCommands::loadTable(const QString &path, CColourTable *table)
{
    const QFileInfo info(path);
    CColourTable::LoadResult result;
    // A folder opens like a file on some systems and would read as empty.
    if (info.isDir())
        result.status = CColourTable::CannotOpen;
    else
        result = table->load(path);
    if (result.status == CColourTable::Loaded)
        return CCliStatus::ok();
    return CCliStatus::badInput(
        CTableMessageText::loadError(result, info.completeBaseName(), path));
}

CCliStatus CCliTableCommands::rowCountOption(const QString &text, int *count)
{
    if (text.isNull()) {
        *count = kDefaultRowCount;
        return CCliStatus::ok();
    }
    return CCliNumbers::toInteger(text, 0, kMaximumRowCount, QStringLiteral("--count"), count);
}

CCliStatus CCliTableCommands::checkMatchable(const CColourTable &table)
{
    if (table.count() > 0)
        return CCliStatus::ok();
    return CCliStatus::badInput(
        CTableMessageText::emptyLibrary(QFileInfo(table.filePath()).baseName()));
}

CCliStatus CCliTableCommands::printMatch(const CColourTable &table, const RgbColour &sample,
                                         int count, bool json, bool explain)
{
    const CCliStatus status = checkMatchable(table);
    if (status.failed())
        return status;
    const QVector<CMatchResult> sorted = CColourMatcher(table).bestRows(sample, count);
    const int rows = CColourMatcher::rowsToShow(sorted, count);
    QStringList explanations;
    const LabColour sampleLab = rgbToLab(sample);
    for (int i = 0; explain && i < rows && i < sorted.size(); ++i) {
        const CMatchResult &r = sorted.at(i);
        explanations << CMatchExplanation::explain(sampleLab, {r.L, r.a, r.b}, r.name);
    }
    CCliOutput::line(json ? CCliMatchFormatter::json(sorted, rows, explanations)
                          : CCliMatchFormatter::tsv(sorted, rows, explanations));
    return CCliStatus::ok();
}
