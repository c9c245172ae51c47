#pragma once

#include "library/libcolourtabletabbase.h"
#include "palette/palettefile.h"

class CAppSettings;
class CColourTable;
class CReadyMadeTablesRow;
class QHBoxLayout;
class QPushButton;

// The "Import" page: turns a Quillon ".config" colour list into a new
// library table. The parsing lives in the core (CQuillonImport); this page
// asks for the file and the table name and reports what went wrong.
class CLibColourTableTabImport : public CLibColourTableTabBase
{
    Q_OBJECT

public:
    CLibColourTableTabImport(CAppSettings *settings, const QString &helpAnchor,
                             QWidget *parent = nullptr);

    // Reads path, asks for the new table's name and writes it into the
    // library. True only when a table file was written.
    bool import(QWidget *parent, const QString &path);

    // The same steps for a palette file (GIMP, swatch exchange, style
    // sheet): all or nothing, conversions reported, then the name prompt.
    bool importPalette(QWidget *parent, const QString &path, CPaletteFile::Format format);

    // A ready-made table (index into CReadyMadeTables::all()): the name
    // prompt starts with the table's own name, then the import's own rules
    // for the name and an existing table. True only when a file was written.
    bool importReadyMade(QWidget *parent, int index);

    QPushButton *quillonButton() const { return m_quillonButton; }
    QPushButton *gimpButton() const { return m_gimpButton; }
    QPushButton *aseButton() const { return m_aseButton; }
    QPushButton *cssButton() const { return m_cssButton; }
    CReadyMadeTablesRow *readyMadeRow() const { return m_readyMadeRow; }

signals:
    // A table was written into the library folder.
    void tableImported();

public slots:
    void QuillonImport();
    void gimpImport();
    void aseImport();
    void cssImport();
    void readyMadeImport(int index);

private:
    QHBoxLayout *buildPaletteRow();
    QPushButton *addButton(const QString &text, QHBoxLayout *row);
    void importChosenPalette(const QString &filter, CPaletteFile::Format format);
    // Asks for the new table's name and writes table into the library.
    // With preFill the name field starts with source (a ready-made table's
    // name) instead of being empty.
    bool saveImportedTable(QWidget *parent, const QString &source, CColourTable &table,
                           bool preFill = false);
    void markImported();

    CAppSettings *m_settings = nullptr;
    QPushButton *m_quillonButton = nullptr;
    QPushButton *m_gimpButton = nullptr;
    QPushButton *m_aseButton = nullptr;
    QPushButton *m_cssButton = nullptr;
    CReadyMadeTablesRow *m_readyMadeRow = nullptr;
};
