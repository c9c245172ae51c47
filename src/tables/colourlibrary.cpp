#include "tables/colourlibrary.h"

#include <QDir>
#include <QFileInfo>

QList<LibraryTableItem> listLibraryTables(const QString &folder)
{
    // QDir would read an empty path as the working folder.
    if (folder.isEmpty())
        return {};
    // Without QDir::CaseSensitive the name filter ignores case, so
    // "c.CLRTABLE" is a table too; QDir::Files leaves out folders and
    // hidden files.
    const QDir dir(folder, QStringLiteral("*.clrtable"), QDir::Name | QDir::IgnoreCase, QDir::Files);
    QList<LibraryTableItem> items;
    const QFileInfoList infos = dir.entryInfoList();
    items.reserve(infos.size());
    for (const QFileInfo &info : infos)
        items.append({info.completeBaseName(), info.canonicalFilePath()});
    return items;
}

QString libraryTablePath(const QString &libraryFolder, const QString &tableName)
{
    const QFileInfo info(QDir(libraryFolder), tableName);
    QString path = QDir(info.path()).filePath(info.completeBaseName());
    if (info.suffix().isEmpty())
        path += QStringLiteral(".clrtable");
    return path;
}

bool isUsableTableName(const QString &tableName)
{
    // A leading dot makes a hidden file, which the library does not list;
    // that also covers names made only of dots.
    return !tableName.isEmpty() && !tableName.startsWith(QLatin1Char('.'))
           && !tableName.contains(QLatin1Char('/')) && !tableName.contains(QDir::separator());
}
