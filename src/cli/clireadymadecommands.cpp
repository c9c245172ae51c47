#include "cli/clireadymadecommands.h"

#include "cli/cliarguments.h"
#include "cli/clioutput.h"
#include "cli/clitablecommands.h"
#include "palette/colourcopytext.h"
#include "tables/colournamesearch.h"
#include "tables/libcolourtable.h"
#include "tables/readymadetables.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString tableNames()
{
    QStringList names;
    for (const ReadyMadeTable &table : CReadyMadeTables::all())
        names << QStringLiteral("\"%1\"").arg(table.name);
    return names.join(QStringLiteral(", "));
}

} // namespace

CCliStatus CCliReadyMadeCommands::tables(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status =
        args.parse(words, {{QStringLiteral("write"), false}, {QStringLiteral("force"), false}});
    if (status.failed())
        return status;
    const CCliStatus needsWrite = args.needs(QStringLiteral("force"), QStringLiteral("write"));
    if (needsWrite.failed())
        return needsWrite;
    const QStringList &positionals = args.positionals();
    if (!args.has(QStringLiteral("write"))) {
        if (!positionals.isEmpty())
            return CCliStatus::usage(QStringLiteral("tables takes no arguments without --write"));
        return listTables();
    }
    if (positionals.size() != 2) {
        return CCliStatus::usage(QStringLiteral("tables --write needs NAME and FILE (got %1 arguments)")
                                     .arg(positionals.size()));
    }
    return writeTable(positionals.at(0), positionals.at(1), args.has(QStringLiteral("force")));
}

CCliStatus CCliReadyMadeCommands::listTables()
{
    CCliOutput::line(QStringLiteral("name\tentries\tlicence\tsource"));
    for (const ReadyMadeTable &table : CReadyMadeTables::all()) {
        CCliOutput::line(QStringList{table.name,
                                     QString::number(CReadyMadeTables::entryCount(table)),
                                     table.licence, table.source}
                             .join(QLatin1Char('\t')));
    }
    return CCliStatus::ok();
}

CCliStatus CCliReadyMadeCommands::writeTable(const QString &name, const QString &path, bool force)
{
    const ReadyMadeTable *table = CReadyMadeTables::find(name);
    if (table == nullptr) {
        return CCliStatus::usage(QStringLiteral("no ready-made table \"%1\" (there are %2)")
                                     .arg(name.left(40), tableNames()));
    }
    if (path.isEmpty())
        return CCliStatus::usage(QStringLiteral("tables --write needs a file name"));
    // As for convert and import-config: the file is fine, the option is missing.
    if (!force && QFileInfo::exists(path)) {
        return CCliStatus::usage(
            QStringLiteral("%1 already exists; give --force to overwrite it").arg(path));
    }
    if (!CColourTable::writeFileSafely(path, CReadyMadeTables::content(*table))) {
        return CCliStatus::badInput(
            QCoreApplication::translate("CTableMessages", "Error, writing to file: %1.").arg(path));
    }
    return CCliStatus::ok();
}

CCliStatus CCliReadyMadeCommands::find(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status = args.parse(words, {{QStringLiteral("table"), true}});
    if (status.failed())
        return status;
    if (!args.has(QStringLiteral("table")))
        return CCliStatus::usage(QStringLiteral("find needs --table FILE"));
    // Several words are one text: "find --table t dark blue" looks for "dark blue".
    const QString text = args.positionals().join(QLatin1Char(' ')).trimmed();
    if (text.isEmpty())
        return CCliStatus::usage(QStringLiteral("find needs the TEXT to look for"));
    CLibColourTable table;
    const CCliStatus loaded =
        CCliTableCommands::loadTable(args.value(QStringLiteral("table")), &table);
    if (loaded.failed())
        return loaded;
    CCliOutput::line(QStringLiteral("name\thex\tred\tgreen\tblue"));
    for (const int index : CColourNameSearch(table).find(text)) {
        const CColourTableEntry *entry = table.at(index);
        CCliOutput::line(QStringList{entry->name, CColourCopyText::hex({entry->red, entry->green, entry->blue}),
                                     CCliOutput::fixed({entry->red, entry->green, entry->blue}, 4)
                                         .replace(QLatin1Char(' '), QLatin1Char('\t'))}
                             .join(QLatin1Char('\t')));
    }
    return CCliStatus::ok();
}
