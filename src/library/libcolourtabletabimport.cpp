#include "library/libcolourtabletabimport.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/tablemessages.h"
#include "library/librarywritemessages.h"
#include "help/textinputdlg.h"
#include "library/readymadetablesrow.h"
#include "palette/paletteimport.h"
#include "tables/colourlibrary.h"
#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"
#include "tables/readymadetables.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

CLibColourTableTabImport::CLibColourTableTabImport(CAppSettings *settings,
                                                   const QString &helpAnchor, QWidget *parent)
    : CLibColourTableTabBase(helpAnchor, parent), m_settings(settings)
{
    auto *layout = new QVBoxLayout(this);
    auto *row = new QHBoxLayout;
    m_quillonButton = new QPushButton(tr("&Quillon Table"), this);
    m_quillonButton->setAutoDefault(false);
    connect(m_quillonButton, &QPushButton::clicked, this, &CLibColourTableTabImport::QuillonImport);
    row->addWidget(m_quillonButton);
    row->addStretch();
    layout->addLayout(row);
    layout->addLayout(buildPaletteRow());
    // Our own row, below the others: the free colour-name lists shipped.
    m_readyMadeRow = new CReadyMadeTablesRow(this);
    connect(m_readyMadeRow, &CReadyMadeTablesRow::tableChosen, this,
            &CLibColourTableTabImport::readyMadeImport);
    layout->addWidget(m_readyMadeRow);
    layout->addStretch();
}

// Under the companion's row: the palette formats designers' tools write.
QHBoxLayout *CLibColourTableTabImport::buildPaletteRow()
{
    auto *row = new QHBoxLayout;
    m_gimpButton = addButton(tr("&GIMP Palette"), row);
    connect(m_gimpButton, &QPushButton::clicked, this, &CLibColourTableTabImport::gimpImport);
    m_aseButton = addButton(tr("&Adobe Swatches"), row);
    connect(m_aseButton, &QPushButton::clicked, this, &CLibColourTableTabImport::aseImport);
    m_cssButton = addButton(tr("&CSS Colours"), row);
    connect(m_cssButton, &QPushButton::clicked, this, &CLibColourTableTabImport::cssImport);
    row->addStretch();
    return row;
}

QPushButton *CLibColourTableTabImport::addButton(const QString &text, QHBoxLayout *row)
{
    auto *button = new QPushButton(text, this);
    button->setAutoDefault(false);
    row->addWidget(button);
    return button;
}

void CLibColourTableTabImport::QuillonImport()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Select the file to import"), QString(),
        tr("Quillon Files (*.config);;All Files (*.*)"));
    if (path.isEmpty())
        return;
    if (import(this, path))
        markImported();
}

void CLibColourTableTabImport::markImported()
{
    setChanged();
    emit tableImported();
}

void CLibColourTableTabImport::readyMadeImport(int index)
{
    if (importReadyMade(this, index))
        markImported();
}

bool CLibColourTableTabImport::importReadyMade(QWidget *parent, int index)
{
    if (index < 0 || index >= CReadyMadeTables::all().size())
        return false;
    const ReadyMadeTable &source = CReadyMadeTables::all().at(index);
    CLibColourTable table;
    // The table keeps the note it was shipped with: source, licence, size.
    if (!CTableMessages::loadWithMessages(parent, table, source.name, source.resourcePath))
        return false;
    return saveImportedTable(parent, source.name, table, true);
}

void CLibColourTableTabImport::gimpImport()
{
    importChosenPalette(tr("GIMP Palettes (*.gpl);;All Files (*.*)"), CPaletteFile::Gpl);
}

void CLibColourTableTabImport::aseImport()
{
    importChosenPalette(tr("Adobe Swatch Exchange Files (*.ase);;All Files (*.*)"),
                        CPaletteFile::Ase);
}

void CLibColourTableTabImport::cssImport()
{
    importChosenPalette(tr("CSS Files (*.css);;All Files (*.*)"), CPaletteFile::Css);
}

void CLibColourTableTabImport::importChosenPalette(const QString &filter,
                                                   CPaletteFile::Format format)
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Select the file to import"), QString(), filter);
    if (path.isEmpty())
        return;
    if (importPalette(this, path, format))
        markImported();
}

bool CLibColourTableTabImport::importPalette(QWidget *parent, const QString &path,
                                             CPaletteFile::Format format)
{
    CLibColourTable table;
    const CPaletteReadResult result =
        CPaletteImport::importFile(path, format, table, QDateTime::currentDateTime());
    const QString error = CPaletteImport::errorText(result, path);
    if (!error.isEmpty()) {
        QMessageBox::critical(parent, AppContext::productName(), error, QMessageBox::Ok);
        return false;
    }
    const QString notes = CPaletteImport::notesText(result, path);
    if (!notes.isEmpty())
        QMessageBox::warning(parent, AppContext::productName(), notes, QMessageBox::Ok);
    return saveImportedTable(parent, path, table);
}

bool CLibColourTableTabImport::import(QWidget *parent, const QString &path)
{
    CLibColourTable table;
    const CQuillonImport::Result result =
        CQuillonImport::importFile(path, table, QDateTime::currentDateTime());
    if (result.status != CQuillonImport::Imported) {
        QMessageBox::critical(parent, AppContext::productName(),
                              CQuillonImport::errorText(result, path), QMessageBox::Ok);
        return false;
    }
    return saveImportedTable(parent, path, table);
}

bool CLibColourTableTabImport::saveImportedTable(QWidget *parent, const QString &source,
                                                 CColourTable &table, bool preFill)
{
    const QString anchor = QStringLiteral("library.html#libMaintTabB");
    CTextInputDlg input(AppContext::productName() + tr(" - Import Colour Table"), tr("Importing:"),
                        preFill ? source : QDir::toNativeSeparators(source), tr("Save To:"),
                        tr("Please enter a name to use for the newly imported colour table."),
                        parent, anchor, preFill);
    connect(&input, &CTextInputDlg::displayHelpSignal, this,
            &CLibColourTableTabImport::displayHelpSignal);
    if (input.exec() != QDialog::Accepted)
        return false;
    const QString name = input.text();
    const QString tablePath = libraryTablePath(m_settings->libraryDir, name);
    // A name that cannot be a file of its own fails as a write would.
    if (!isUsableTableName(name)) {
        CTableMessages::showWriteError(parent, tablePath);
        return false;
    }
    return CLibraryWriteMessages::saveNew(parent, table, tablePath);
}
