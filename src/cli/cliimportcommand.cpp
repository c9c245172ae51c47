#include "cli/cliimportcommand.h"

#include "cli/cliarguments.h"
#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"

#include <QDateTime>
#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

CCliStatus CCliImportCommand::run(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status =
        args.parse(words, {{QStringLiteral("out"), true}, {QStringLiteral("force"), false}});
    if (status.failed())
        return status;
    if (args.positionals().size() != 1) {
        return CCliStatus::usage(QStringLiteral("import-config needs one FILE (got %1 arguments)")
                                     .arg(args.positionals().size()));
    }
    const CCliStatus needsOut = args.needs(QStringLiteral("force"), QStringLiteral("out"));
    if (needsOut.failed())
        return needsOut;
    const QString source = args.positionals().first();
    CLibColourTable table;
    const CQuillonImport::Result result =
        CQuillonImport::importFile(source, table, QDateTime::currentDateTime());
    if (result.status != CQuillonImport::Imported)
        return CCliStatus::badInput(CQuillonImport::errorText(result, source));
    if (args.has(QStringLiteral("out")))
        return writeTable(table, args.value(QStringLiteral("out")), args.has(QStringLiteral("force")));
    const QByteArray bytes = table.serialise();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    return CCliStatus::ok();
}

CCliStatus CCliImportCommand::writeTable(const CColourTable &table, const QString &path, bool force)
{
    if (path.isEmpty())
        return CCliStatus::usage(QStringLiteral("--out needs a file name"));
    // A missing option, as for convert: the file itself is fine.
    if (!force && QFileInfo::exists(path)) {
        return CCliStatus::usage(
            QStringLiteral("%1 already exists; give --force to overwrite it").arg(path));
    }
    if (!table.write(path)) {
        return CCliStatus::badInput(
            QCoreApplication::translate("CTableMessages", "Error, writing to file: %1.").arg(path));
    }
    return CCliStatus::ok();
}
