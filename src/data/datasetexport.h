#pragma once

#include "palette/palettefile.h"

#include <QCoreApplication>
#include <QString>

class CColourTable;
class QWidget;

// "Export Data Set…": asks for a file and writes the data set's colours as
// a GIMP palette, swatch exchange file, style sheet or JSON list, chosen by
// the file's suffix or else by the file type picked in the dialog. The file
// is replaced only once the new one is completely written.
class CDataSetExport
{
    Q_DECLARE_TR_FUNCTIONS(CDataSetExport)

public:
    // The written path, or empty when cancelled or failed (failures are
    // reported in a box).
    static QString run(QWidget *parent, const CColourTable &table, const QString &startFolder);

    // Writes table to path in format; the failure or, on success, what the
    // format could not keep is shown to the user. True when written.
    static bool write(QWidget *parent, const CColourTable &table, const QString &path,
                      CPaletteFile::Format format);

    static QString fileFilter();
    // The format for a chosen path: its suffix when it is an export format,
    // else the chosen filter's; the path gains that format's suffix then.
    static CPaletteFile::Format formatFor(QString *path, const QString &selectedFilter);
};
