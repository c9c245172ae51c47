#include "palette/paletteimport.h"

#include "tables/colourtable.h"
#include "tables/quillonimport.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CPaletteImport", text);
}

} // namespace

CPaletteReadResult CPaletteImport::importFile(const QString &path, CPaletteFile::Format format,
                                              CColourTable &target, const QDateTime &now)
{
    target.clear();
    const CPaletteReadResult result = CPaletteFile::read(path, format);
    if (!result.isOk() || result.palette().colours.isEmpty())
        return result;
    CPaletteFile::toTable(result.palette(), &target);
    target.sort();
    target.setHeader(CQuillonImport::note(path, now));
    return result;
}

QString CPaletteImport::errorText(const CPaletteReadResult &result, const QString &path)
{
    if (!result.isOk())
        return result.message(path);
    if (!result.palette().colours.isEmpty())
        return QString();
    CQuillonImport::Result noRecords;
    noRecords.status = CQuillonImport::NoRecords;
    return CQuillonImport::errorText(noRecords, path);
}

QString CPaletteImport::notesText(const CPaletteReadResult &result, const QString &path)
{
    const QStringList notes = result.palette().notes;
    if (notes.isEmpty())
        return QString();
    return translated("While reading:\n%1\nsome colours were converted:\n\n%2")
        .arg(QDir::toNativeSeparators(path), notes.join(QLatin1Char('\n')));
}
