#include "tables/tablemessagetext.h"

#include <QCoreApplication>

namespace {

// The context the translation files have always kept these texts in.
QString translated(const char *text)
{
    return QCoreApplication::translate("CTableMessages", text);
}

} // namespace

QString CTableMessageText::loadError(const CColourTable::LoadResult &result,
                                     const QString &tableName, const QString &path)
{
    if (result.status == CColourTable::CannotOpen)
        return translated("Error while attempting to open colour table file:\n%1").arg(path);
    if (result.status == CColourTable::BadLine)
        return translated("Unable to load colour table:\n%1\n\nError in line %2")
            .arg(tableName)
            .arg(result.lineNumber);
    return QString();
}

QString CTableMessageText::dataLoadError(const CColourTable::LoadResult &result, const QString &path)
{
    if (result.status == CColourTable::CannotOpen)
        return translated("Error while attempting to open data table:\n%1").arg(path);
    if (result.status == CColourTable::BadLine)
        return translated("Unable to load data table:\n%1\n\nError in line %2")
            .arg(path)
            .arg(result.lineNumber);
    return QString();
}

QString CTableMessageText::emptyLibrary(const QString &tableName)
{
    const QString name = tableName.isEmpty() ? translated("selected") : tableName;
    return translated("The %1 Colour Match Library is empty, so a match cannot be attempted.")
        .arg(name);
}
