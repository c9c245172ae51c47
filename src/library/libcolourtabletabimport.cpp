#include "library/libcolourtabletabimport.h"

#include "app/appcontext.h"
#include "app/appsettings.h"
#include "app/tablemessages.h"
#include "help/textinputdlg.h"
#include "tables/colourlibrary.h"
#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"

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
    layout->addStretch();
}

void CLibColourTableTabImport::QuillonImport()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Select the file to import"), QString(),
        tr("Quillon Files (*.config);;All Files (*.*)"));
    if (path.isEmpty())
        return;
    if (import(this, path))
        setChanged();
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
    const QString anchor = QStringLiteral("library.html#libMaintTabB");
    CTextInputDlg input(AppContext::productName() + tr(" - Import Colour Table"), tr("Importing:"),
                        QDir::toNativeSeparators(path), tr("Save To:"),
                        tr("Please enter a name to use for the newly imported colour table."),
                        parent, anchor);
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
    return CTableMessages::save(parent, table, tablePath, false);
}
