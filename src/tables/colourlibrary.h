#pragma once

#include <QList>
#include <QString>

// The Colour Match Library is a folder of ".clrtable" files; there is no
// index: the folder's content is the library.
struct LibraryTableItem
{
    QString name;          // completeBaseName: "Summer.2020" for Summer.2020.clrtable
    QString canonicalPath; // QFileInfo::canonicalFilePath
};

// Plain files matching "*.clrtable" (any case), sorted by name ignoring case.
QList<LibraryTableItem> listLibraryTables(const QString &folder);

// folder + "/" + completeBaseName(name), plus ".clrtable" when the name has no
// suffix. "Reds" -> Reds.clrtable; "Paint.2020" -> "Paint" (no extension).
QString libraryTablePath(const QString &libraryFolder, const QString &tableName);

// Whether a typed table name can become a file of its own directly in the
// library folder: not empty, no folder separator and no leading dot ("..",
// "...", ".x" would name a folder or a hidden file the library does not
// list). Dialogs that make files from names refuse the others with their
// own error message.
bool isUsableTableName(const QString &tableName);
