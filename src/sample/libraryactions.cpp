#include "sample/libraryactions.h"

#include "common/appcontext.h"
#include "library/dlglibcolourtableadd.h"
#include "library/librarywritemessages.h"
#include "library/libcolourtabledlg.h"
#include "sample/libraryselector.h"

#include <QMessageBox>

CLibraryActions::CLibraryActions(CAppSettings *settings, CLibrarySelector *library,
                                 QWidget *dialogParent)
    : QObject(dialogParent), m_settings(settings), m_library(library), m_parent(dialogParent)
{
}

void CLibraryActions::maintain()
{
    if (execMaintenance())
        emit libraryChanged();
}

// Whatever way the dialog was closed, it reports whether any table was
// made, changed, copied, renamed, deleted or imported.
bool CLibraryActions::execMaintenance()
{
    if (!m_settings)
        return false;
    CLibColourTableDlg dialog(m_settings, m_parent);
    connect(&dialog, &CLibColourTableDlg::displayHelpSignal, this,
            &CLibraryActions::displayHelpSignal);
    dialog.exec();
    return dialog.libraryChanged();
}

void CLibraryActions::addSample(const RgbColour &sample, bool present)
{
    if (!present) {
        QMessageBox::critical(m_parent, AppContext::productName(),
                              tr("Please  first match the colour ...."), QMessageBox::Ok);
        return;
    }
    const CLibColourTable &table = m_library->table();
    CDlgLibColourTableAdd dialog(m_parent, table.filePath(), &table, sample, m_settings);
    connect(&dialog, &CDlgLibColourTableAdd::displayHelpSignal, this,
            &CLibraryActions::displayHelpSignal);
    if (dialog.exec() == QDialog::Accepted)
        addEntry(dialog.name(), sample);
}

bool CLibraryActions::addEntry(const QString &name, const RgbColour &colour)
{
    // Written onto any change another window made meanwhile; when the write
    // fails the table shown matches its file.
    return CLibraryWriteMessages::addEntry(
        m_parent, m_library->table(),
        CColourTableEntry(name, colour.red, colour.green, colour.blue));
}
