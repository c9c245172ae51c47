#include "data/datasetexport.h"

#include "common/appcontext.h"

#include "tables/colourtable.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace {

struct ExportType
{
    const char *filter;
    CPaletteFile::Format format;
};

const ExportType kTypes[] = {
    {QT_TRANSLATE_NOOP("CDataSetExport", "GIMP Palette (*.gpl)"), CPaletteFile::Gpl},
    {QT_TRANSLATE_NOOP("CDataSetExport", "Adobe Swatch Exchange (*.ase)"), CPaletteFile::Ase},
    {QT_TRANSLATE_NOOP("CDataSetExport", "CSS Custom Properties (*.css)"), CPaletteFile::Css},
    {QT_TRANSLATE_NOOP("CDataSetExport", "JSON (*.json)"), CPaletteFile::Json},
};

bool isExportFormat(CPaletteFile::Format format)
{
    for (const ExportType &t : kTypes) {
        if (t.format == format)
            return true;
    }
    return false;
}

} // namespace

QString CDataSetExport::fileFilter()
{
    QStringList filters;
    for (const ExportType &t : kTypes)
        filters << tr(t.filter);
    return filters.join(QStringLiteral(";;"));
}

CPaletteFile::Format CDataSetExport::formatFor(QString *path, const QString &selectedFilter)
{
    const CPaletteFile::Format bySuffix = CPaletteFile::formatForPath(*path);
    if (isExportFormat(bySuffix))
        return bySuffix;
    CPaletteFile::Format format = kTypes[0].format;
    for (const ExportType &t : kTypes) {
        if (tr(t.filter) == selectedFilter)
            format = t.format;
    }
    *path += QLatin1Char('.') + CPaletteFile::suffix(format);
    return format;
}

QString CDataSetExport::run(QWidget *parent, const CColourTable &table, const QString &startFolder)
{
    QString selectedFilter;
    QString path = QFileDialog::getSaveFileName(parent, tr("Export Data Set"), startFolder,
                                                fileFilter(), &selectedFilter);
    if (path.isEmpty())
        return QString();
    const CPaletteFile::Format format = formatFor(&path, selectedFilter);
    return write(parent, table, path, format) ? path : QString();
}

bool CDataSetExport::write(QWidget *parent, const CColourTable &table, const QString &path,
                           CPaletteFile::Format format)
{
    CPalette palette = CPaletteFile::fromTable(table);
    if (palette.name.isEmpty())
        palette.name = QFileInfo(path).completeBaseName();
    QString error;
    if (!CPaletteFile::write(path, format, palette, &error)) {
        QMessageBox::critical(parent, AppContext::productName(), tr("Error, writing to file: %1.").arg(path),
                              QMessageBox::Ok);
        return false;
    }
    const QStringList notes = CPaletteFile::writeNotes(palette, format);
    if (!notes.isEmpty()) {
        QMessageBox::warning(parent, AppContext::productName(),
                             tr("The data set was exported to:\n%1\n\n%2").arg(path, notes.join(QLatin1Char('\n'))),
                             QMessageBox::Ok);
    }
    return true;
}
