#include "tables/readymadetables.h"

#include <QFile>

// The tables live in the core's own resource file; a static library's
// resources must be registered by hand before first use, and
// Q_INIT_RESOURCE cannot be used inside a namespace.
static void registerReadyMadeResources()
{
    Q_INIT_RESOURCE(readymadetables);
}

namespace {

QVector<ReadyMadeTable> makeTables()
{
    registerReadyMadeResources();
    return {
        {QStringLiteral("X11 Colours"), QStringLiteral(":/tables/x11colours.clrtable"),
         QStringLiteral("MIT-style (X.Org)"), QStringLiteral("x11-common 1:7.7+23 (Debian)"),
         QStringLiteral(":/tables/licences/x11-common.copyright.txt")},
        {QStringLiteral("xkcd Colours"), QStringLiteral(":/tables/xkcdcolours.clrtable"),
         QStringLiteral("CC0 1.0 (public domain)"),
         QStringLiteral("python3-matplotlib 3.6.3-1+b1 (Debian)"),
         QStringLiteral(":/tables/licences/xkcd.CC0-1.0.txt")},
        {QStringLiteral("Color Name List"), QStringLiteral(":/tables/colornamelist.clrtable"),
         QStringLiteral("MIT"), QStringLiteral("color-name-list 14.51.0 (npm)"),
         QStringLiteral(":/tables/licences/color-name-list.MIT.txt")},
    };
}

QString nameKey(const QString &name)
{
    QString key = name.toCaseFolded();
    key.remove(QLatin1Char(' '));
    return key;
}

QByteArray readResource(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

} // namespace

const QVector<ReadyMadeTable> &CReadyMadeTables::all()
{
    static const QVector<ReadyMadeTable> tables = makeTables();
    return tables;
}

const ReadyMadeTable *CReadyMadeTables::find(const QString &name)
{
    const QString key = nameKey(name);
    for (const ReadyMadeTable &table : all()) {
        if (nameKey(table.name) == key)
            return &table;
    }
    return nullptr;
}

QByteArray CReadyMadeTables::content(const ReadyMadeTable &table)
{
    return readResource(table.resourcePath);
}

QString CReadyMadeTables::licenceText(const ReadyMadeTable &table)
{
    return QString::fromUtf8(readResource(table.licencePath));
}

CColourTable::LoadResult CReadyMadeTables::load(const ReadyMadeTable &table, CColourTable &into)
{
    const CColourTable::LoadResult result = into.load(table.resourcePath);
    into.setFilePath(QString());
    return result;
}

int CReadyMadeTables::entryCount(const ReadyMadeTable &table)
{
    // The generator writes the note first and then one entry a line, with
    // no blank lines.
    const QByteArray bytes = content(table);
    int count = 0;
    for (const QByteArray &line : bytes.split('\n')) {
        if (!line.trimmed().isEmpty() && !line.startsWith('#'))
            ++count;
    }
    return count;
}
